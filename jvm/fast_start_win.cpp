#include <memory>
#include <utility>

#include "base/ansi_text.h"
#include "base/handles.h"
#include "base/paths.h"
#include "jvm/class_path.h"
#include "jvm/fast_start.h"
#include "jvm/output_redirection.h"
#include "runtime/further_sources.h"
#include "runtime/jvm_library.h"

namespace tarn {
namespace {

// Fixed buffers and `wsprintfW`, because each `std::wstring` that is put together and destroyed
// takes 60 bytes of the launcher. `wsprintfW` writes at most this many characters, the terminator
// included. A longer path is truncated: there is no such file.
constexpr std::size_t kMostFormatted = 1024;
constexpr std::size_t kLongestPath = kMostFormatted - 64;  // with a name or an option added to it

// Of an archive's name: "-", the mark of the installation, "-", the fingerprint, ".jsa".
constexpr wchar_t kNameFormat[] = L"-%08x-%08x%08x.jsa";
constexpr std::size_t kFingerprintLength = 16 + 4;

unsigned HalfOf(const Fingerprint& fingerprint, int half) {
    return static_cast<unsigned>(fingerprint.value() >> (32 * half));
}

// What the archive depends on, read through one buffer. Files are not mapped, so that a drive that
// disappears is no more than a failed read.
class ArchiveState {
  public:
    bool AddRuntime(std::wstring_view jvmLibraryPath) {
        const std::span<const std::byte> release =
            Open(RuntimeHomeOf(jvmLibraryPath), L"\\release");
        fingerprint_.Add(release);
        return WritesArchives({reinterpret_cast<const char*>(release.data()), release.size()});
    }

    void Add(std::wstring_view text) { fingerprint_.Add(text); }

    // Adds jars, separated by ";": the time, which an archive has to match, and the directory of
    // each. The time and the size do not suffice: a reproducible build gives other classes the same
    // ones. Returns false when one of them is not a jar.
    bool AddJars(std::wstring_view jars) {
        fingerprint_.Add(jars);
        while (!jars.empty()) {
            const std::wstring_view jar = TakePiece(jars);
            if (!jar.empty() && !AddJar(jar)) return false;
        }
        return true;
    }

    // Opens the archive, whose path is `path()` afterwards. Returns whether it is complete: the JVM
    // writes the header last. A file without one, from a run that was killed, would turn the
    // runtime's own archive off, as a missing one does.
    bool OpenArchive(std::wstring_view prefix, std::wstring_view program) {
        Fingerprint mark;
        mark.Add(program);
        wchar_t name[64];
        wsprintfW(name, kNameFormat, HalfOf(mark, 0), HalfOf(fingerprint_, 1),
                  HalfOf(fingerprint_, 0));
        const std::span<const std::byte> archive = Open(prefix, name);
        return !archive.empty() && archive.front() != std::byte{0};
    }

    // Of the last file that was opened.
    const wchar_t* path() const { return path_; }

    // The JVM's option of this name for that file.
    const wchar_t* Option(const wchar_t* name) {
        wsprintfW(option_, L"-XX:%s=%s", name, path_);
        return option_;
    }

  private:
    // Returns the first bytes of a file; none of a file that cannot be read, such as a folder.
    std::span<const std::byte> Open(std::wstring_view folder, const wchar_t* name = L"") {
        constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        wsprintfW(path_ + folder.copy(path_, kLongestPath), L"%s", name);
        file_.reset(CreateFileW(path_, GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
        return Read();
    }

    // Returns the next bytes; none at the end of the file.
    std::span<const std::byte> Read() {
        DWORD size = 0;
        if (!ReadFile(file_.get(), buffer_, kZipTailSize, &size, nullptr)) size = 0;
        return {buffer_, size};
    }

    bool Seek(std::uint32_t distanceFromEnd) const {
        const LONG offset = static_cast<LONG>(0 - distanceFromEnd);
        return SetFilePointer(file_.get(), offset, nullptr, FILE_END) != INVALID_SET_FILE_POINTER;
    }

    bool AddJar(std::wstring_view jar) {
        std::span<const std::byte> bytes = Open(jar);
        FILETIME time{};
        GetFileTime(file_.get(), nullptr, nullptr, &time);
        fingerprint_.Add(std::as_bytes(std::span(&time, 1)));
        // Fails for a file that has been read completely.
        if (Seek(kZipTailSize)) bytes = Read();
        const std::uint32_t distance = ZipDirectoryDistance(bytes);
        if (distance == 0) return false;
        if (distance > bytes.size() && Seek(distance)) bytes = Read();
        do {
            fingerprint_.Add(bytes);
            bytes = Read();
        } while (!bytes.empty());
        return true;
    }

    Fingerprint fingerprint_;
    UniqueFile file_;
    wchar_t path_[kMostFormatted];
    wchar_t option_[kMostFormatted];
    std::byte buffer_[kZipTailSize];
};

}  // namespace

void AddFastStartOption(const FastStartInputs& inputs, JvmOptions& options) {
    // The settings' own options take precedence.
    if (inputs.vmParameters.find(L"Archive") != std::wstring_view::npos) return;
    std::wstring_view more = inputs.setting;
    const std::wstring_view prefix = TakePiece(more);
    // Too large for the stack.
    const auto state = std::make_unique_for_overwrite<ArchiveState>();
    state->Add(inputs.vmParameters);
    if (!state->AddRuntime(inputs.jvmLibraryPath) || !state->AddJars(inputs.classPath) ||
        !state->AddJars(ExpandClassPath(more, FolderOf(inputs.program)))) {
        return;
    }
    options.readsArchive = state->OpenArchive(prefix, inputs.program);
    std::string ansiOption = ToThreadAnsi(
        state->Option(options.readsArchive ? L"SharedArchiveFile" : L"ArchiveClassesAtExit"),
        BestFit::No);
    if (ansiOption.find('?') != std::string::npos) return;
    options.ansiOptions.push_back(std::move(ansiOption));
    options.archiveFile = state->path();
}

void PrepareArchive(JvmOptions& options) {
    const std::wstring& file = options.archiveFile;
    if (file.empty()) return;
    // Not on the stack either: a frame of more than a page needs a function of the compiler's
    // library, which is not linked.
    const auto buffer = std::make_unique_for_overwrite<wchar_t[]>(kMostFormatted);
    wchar_t* const path = buffer.get();
    // Until this process ends, no other one writes the archive: two would mix their bytes. The JVM
    // ends the application with code 1 when it cannot write, so the folder is tried, too.
    if (!options.readsArchive) {
        CreateOutputFolders(file);
        wsprintfW(path, L"%s~", file.c_str());
        if (CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE,
                        nullptr) == INVALID_HANDLE_VALUE) {
            options.ansiOptions.pop_back();
        }
    }
    wsprintfW(path + file.copy(path, file.size() - kFingerprintLength), L"*.jsa");
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(FindFirstFileW(path, &found));
    if (!search) return;
    do {
        wsprintfW(path + FolderOf(file).size(), L"%s", found.cFileName);
        // The same length: the pattern also matches other names, and short ones.
        const std::wstring_view other = path;
        if (other.size() != file.size() || other == file) continue;
        // The JVM makes its archives read-only.
        SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(path);
    } while (FindNextFileW(search.get(), &found));
}

}  // namespace tarn
