#include "ui/messages/error_box.h"

#include "base/format_text.h"
#include "resources/ids.h"
#include "ui/messages/message_text.h"

namespace tarn {
namespace {

MessageReader messageReader = nullptr;

}  // namespace

void ReadMessagesInstead(MessageReader reader) {
    messageReader = reader;
}

std::wstring TextOrId::Load() const {
    if (id_ != 0) return LoadMessageText(id_);
    return text_ != nullptr ? *text_ : std::wstring();
}

int ShowErrorMessage(HWND owner, const TextOrId& text, const TextOrId& caption) {
    const std::wstring loadedText = text.Load();
    if (messageReader != nullptr) {
        messageReader(loadedText);
        return IDOK;
    }
    if (caption.empty())
        return MessageBoxW(owner, loadedText.c_str(), nullptr, MB_OK | MB_ICONERROR);
    const std::wstring loadedCaption = caption.Load();
    return MessageBoxW(owner, loadedText.c_str(), loadedCaption.c_str(), MB_OK | MB_ICONERROR);
}

int ShowFormattedError(HWND owner, const std::wstring& format, const std::wstring& argument) {
    return ShowErrorMessage(owner, FormatText(format, {argument}));
}

int ShowWindowsFailure(HWND owner, unsigned descriptionId) {
    const std::wstring frame = LoadMessageText(IDS_WINDOWS_EXCEPTION);
    const std::wstring description = LoadMessageText(descriptionId);
    const DWORD error = GetLastError();
    return ShowErrorMessage(owner, FormatText(frame, {description, static_cast<int>(error)}));
}

}  // namespace tarn
