#include "resources/ids.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

MessageReader messageReader = nullptr;

}  // namespace

void ReadMessagesInstead(MessageReader reader) {
    messageReader = reader;
}

int ErrorReporter::ShowErrorMessage(const MessageText& text, const MessageText& caption) const {
    if (!text.isValid() || !caption.isValid()) return 0;
    if (messageReader != nullptr) {
        messageReader(text.view());
        return IDOK;
    }
    const HWND owner = splashWindowHandle_ != nullptr
                           ? splashWindowHandle_->load(std::memory_order_relaxed)
                           : nullptr;
    return MessageBoxW(owner, text.c_str(), caption.c_str(), MB_OK | MB_ICONERROR);
}

int ErrorReporter::ShowFormattedError(const MessageText& format, std::wstring_view argument) const {
    return ShowErrorMessage(MessageText(format, {argument}));
}

int ErrorReporter::ShowWindowsFailure(unsigned descriptionId) const {
    const MessageText frame(IDS_WINDOWS_EXCEPTION);
    const MessageText description(descriptionId);
    const DWORD error = GetLastError();
    if (!description.isValid()) return 0;
    return ShowErrorMessage(
        MessageText(frame, {description.view(), static_cast<std::int32_t>(error)}));
}

int ErrorReporter::ShowJniFailure(unsigned descriptionId, unsigned reasonId) const {
    const MessageText frame(IDS_JNI_EXCEPTION_REASON);
    const MessageText description(descriptionId);
    const MessageText reason(reasonId);
    if (!description.isValid() || !reason.isValid()) return 0;
    return ShowErrorMessage(MessageText(frame, {description.view(), reason.view()}));
}

}  // namespace tarn
