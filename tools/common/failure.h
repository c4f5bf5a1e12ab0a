#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarn::tools {

/// Exit codes of every command.
inline constexpr int kSuccess = 0;
inline constexpr int kWarnings = 1;  // only with an option such as --strict
inline constexpr int kFailed = 2;

/// A command cannot do what it was asked to do. `what()` is the complete message in UTF-8: the
/// file, the problem and a remedy. The entry function prints it and exits with `kFailed`.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const std::string& message);

    /// "FILE: problem", with the path as the user typed it.
    Failure(const std::filesystem::path& file, std::string_view problem);
};

/// Calls `function`, which works on a file's bytes, and prefixes the message of a Failure with the
/// file's name.
template <typename Function>
auto WithFileName(const std::filesystem::path& file, const Function& function) {
    try {
        return function();
    } catch (const Failure& failure) {
        throw Failure(file, failure.what());
    }
}

}  // namespace tarn::tools
