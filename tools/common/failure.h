#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarn::tools {

/// Exit codes of every command.
inline constexpr int kSuccess = 0;
inline constexpr int kWarnings = 1;  // only where a command says so
inline constexpr int kFailed = 2;

/// A command cannot do what it was asked for. `what()` is the whole message in UTF-8: it names the
/// file and the way out. The entry function prints it and ends the program with `kFailed`.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const std::string& message);

    /// "FILE: problem", with the path as the user would type it.
    Failure(const std::filesystem::path& file, std::string_view problem);
};

}  // namespace tarn::tools
