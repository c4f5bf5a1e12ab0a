// The platform's calls that the standard library lacks: one Windows and one POSIX implementation.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

namespace tarn::tools {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using UniqueStream = std::unique_ptr<std::FILE, FileCloser>;

/// Opens a regular file for reading, following links. Never waits for the other end of a named
/// pipe. On failure the result is null and `errno` says why; EINVAL for anything that is not a
/// regular file.
UniqueStream OpenRegularFile(const std::filesystem::path& file);

/// Creates a file for writing. Fails with EEXIST where the name exists, even as a dangling link. On
/// failure the result is null and `errno` says why.
UniqueStream CreateNewFile(const std::filesystem::path& file);

/// Whether a path is a symbolic link or, on Windows, a junction. False when it does not exist.
bool IsLink(const std::filesystem::path& path);

/// The folder of this program's executable; empty when the system does not report it.
std::filesystem::path ProgramFolder();

/// Makes UTC the time zone of this process and of the programs that it starts.
void UseUtc();

struct Terminals {
    bool output = false;
    bool errors = false;
};

/// Which of the standard streams are terminals. On Windows it also switches the streams to binary
/// mode, and a console to UTF-8 and escape sequences.
Terminals PrepareTerminals();

}  // namespace tarn::tools
