#include "tools/explain/captured_messages.h"

#include <utility>

#include "tools/common/text_encoding.h"
#include "ui/messages/error_reporter.h"

namespace tarn::tools {
namespace {

std::vector<std::string> captured;

void Capture(std::wstring_view text) {
    captured.push_back(Utf8Of(text));
}

}  // namespace

CapturedMessages::CapturedMessages() {
    captured.clear();
    ReadMessagesInstead(&Capture);
}

CapturedMessages::~CapturedMessages() {
    ReadMessagesInstead(nullptr);
}

std::vector<std::string> CapturedMessages::Take() {
    return std::exchange(captured, {});
}

}  // namespace tarn::tools
