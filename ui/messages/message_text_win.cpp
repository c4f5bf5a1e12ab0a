#include <algorithm>
#include <cstdlib>

#include "base/program.h"
#include "base/text.h"
#include "base/windows.h"
#include "ui/messages/message_text.h"

namespace tarn {
namespace {

std::size_t ReadStringTable(unsigned id, wchar_t* buffer, std::size_t size) {
    return static_cast<std::size_t>(
        LoadStringW(ProgramModule(), id, buffer, static_cast<int>(size)));
}

}  // namespace

std::wstring LoadMessageText(unsigned id) {
    return ReadGrowing(
        1, [&](wchar_t* buffer, std::size_t size) { return ReadStringTable(id, buffer, size); });
}

MessageText::MessageText(unsigned id) {
    if (id == 0) return;
    for (std::size_t size = kFirstBufferSize; Reserve(size); size *= 2) {
        length_ = ReadStringTable(id, characters_, size);
        if (length_ + 1 < size) {
            characters_[length_] = L'\0';  // not written when there is no such entry
            return;
        }
    }
}

MessageText::MessageText(std::wstring_view text) {
    if (!Reserve(text.size() + 1)) return;
    length_ = text.size();
    *std::copy(text.begin(), text.end(), characters_) = L'\0';
}

MessageText::MessageText(const MessageText& format, std::initializer_list<FormatValue> values) {
    const std::size_t length = FormatInto(nullptr, format.view(), values);
    isValid_ = format.isValid();
    if (!isValid_ || !Reserve(length + 1)) return;
    length_ = FormatInto(characters_, format.view(), values);
    characters_[length_] = L'\0';
}

MessageText::~MessageText() {
    std::free(characters_);
}

// Replaces the contents by `size` characters of unknown value.
bool MessageText::Reserve(std::size_t size) {
    std::free(characters_);
    characters_ = static_cast<wchar_t*>(std::malloc(size * sizeof(wchar_t)));
    length_ = 0;
    isValid_ = characters_ != nullptr;
    return isValid_;
}

}  // namespace tarn
