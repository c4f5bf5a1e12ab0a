#pragma once

#include <string>
#include <string_view>

namespace fake_jvm {

/// Appends one line to the file that FAKE_JVM_LOG names: the thread's id, a tab, the text. The file
/// is opened and closed for each line, so that the log is complete when a process ends during a
/// call. The caller holds `Lock()` while other threads may log, because Wine appends in two steps;
/// not at the end of the process, when a thread may have been ended with the lock.
void Log(std::string_view text);

/// Logs a line that makes tests fail: a caller violated a rule of the interface.
void LogViolation(std::string_view text);

/// The bytes in quotes, with everything but printable ASCII as `\xNN`: bytes whose code page is in
/// question.
std::string QuoteBytes(std::string_view bytes);

/// In quotes, as UTF-8; quotes, backslashes, control characters and unpaired surrogates are
/// escaped (`\"`, `\\`, `\uXXXX`).
std::string QuoteText(std::u16string_view text);

std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

/// An environment variable of this process as UTF-16; false when it is not set.
bool ReadEnvironment(const wchar_t* name, std::wstring& value);

/// Logs the variable as `environment NAME="value"`.
void LogVariable(const wchar_t* name, const char* nameInLog);

/// Logs the error modes (`SetThreadErrorMode`, `SetErrorMode`) of the calling thread and of the
/// process as `error mode of PLACE: thread 0x… process 0x…`.
void LogErrorMode(std::string_view place);

}  // namespace fake_jvm
