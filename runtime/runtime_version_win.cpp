#include "base/text.h"
#include "runtime/runtime_version.h"
#include "ui/messages/message_text.h"

namespace tarn {

std::wstring DescribeVersionBounds(const RuntimeVersion& minimum, const RuntimeVersion& maximum) {
    const VersionPhrase phrase = ChooseVersionPhrase(minimum, maximum);
    return FormatText(LoadMessageText(phrase.textId), {phrase.first, phrase.second});
}

}  // namespace tarn
