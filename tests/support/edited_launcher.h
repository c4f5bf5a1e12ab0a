#pragma once

#include <string>

namespace tarn::test {

/// Replaces the text of one control in a dialog of a program, as a resource editor does. Returns
/// whether that worked.
bool ReplaceControlText(const std::wstring& program, int dialog, int control,
                        const std::wstring& text);

/// Replaces one text of a program's string table, as a resource editor does. Returns whether that
/// worked.
bool ReplaceMessageText(const std::wstring& program, unsigned id, const std::wstring& text);

/// Builds a settings text (UTF-8) into a program. Returns whether that worked.
bool BuildInSettings(const std::wstring& program, const std::string& text);

/// Gives a dialog of a program a window class that does not exist, so that it cannot be made.
bool BreakDialog(const std::wstring& program, int dialog);

}  // namespace tarn::test
