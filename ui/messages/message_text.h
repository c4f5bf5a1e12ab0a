#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tarn {

/// Loads an entry of the executable's string table, of any length (`LoadStringW`). An entry that
/// does not exist is an empty text.
std::wstring LoadMessageText(unsigned id);

/// The text of an error box, in UTF-16. `std::wstring` ends the process when an allocation fails;
/// this text becomes invalid instead, so that the box is left out and the failure that it was to
/// report keeps its own result.
class MessageText {
  public:
    /// No text. As a caption it means Windows' default one.
    MessageText() = default;
    /// Loads an entry of the string table, as `LoadMessageText` does; 0 means no text.
    MessageText(unsigned id);
    MessageText(std::wstring_view text);
    /// Fills the places of `format` with `values`, as `FormatText` does.
    MessageText(const MessageText& format, std::initializer_list<FormatValue> values);

    MessageText(const MessageText&) = delete;
    MessageText& operator=(const MessageText&) = delete;
    ~MessageText();

    /// False when there was not enough memory for the text.
    bool isValid() const { return isValid_; }
    /// Terminated by a null character; null when there is no text.
    const wchar_t* c_str() const { return characters_; }
    std::wstring_view view() const { return {characters_, length_}; }

  private:
    bool Reserve(std::size_t size);

    wchar_t* characters_ = nullptr;
    std::size_t length_ = 0;
    bool isValid_ = true;
};

}  // namespace tarn
