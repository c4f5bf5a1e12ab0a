#pragma once

#include <string>

namespace tarn::test {

/// Replaces the text of a control in a dialog of a program, as a resource editor does. Returns
/// whether that succeeded.
bool ReplaceControlText(const std::wstring& program, int dialog, int control,
                        const std::wstring& text);

/// Replaces a text of a program's string table, as a resource editor does. Returns whether that
/// succeeded.
bool ReplaceMessageText(const std::wstring& program, unsigned id, const std::wstring& text);

/// Embeds a settings text (UTF-8) in a program. Returns whether that succeeded.
bool BuildInSettings(const std::wstring& program, const std::string& text);

/// Gives a dialog of a program a window class that does not exist, so that it cannot be created.
bool BreakDialog(const std::wstring& program, int dialog);

}  // namespace tarn::test
