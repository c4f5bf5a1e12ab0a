#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace tarn::fuzz {

/// Aborts when a property does not hold, which the fuzzer reports as a crash and keeps the input.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

/// The fuzzer's bytes, consumed from the front; zeros when they are used up.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    template <typename Number>
    Number TakeNumber() {
        Number number{};
        const std::size_t taken = size_ < sizeof number ? size_ : sizeof number;
        if (taken != 0) std::memcpy(&number, data_, taken);
        data_ += taken;
        size_ -= taken;
        return number;
    }

    /// The remaining bytes as UTF-16 units. A byte is the unit of its value, so that texts of the
    /// corpus are readable; 0xFF precedes the two bytes of any other unit.
    std::wstring TakeText() {
        std::wstring text;
        text.reserve(size_);
        while (size_ != 0) {
            const auto byte = TakeNumber<std::uint8_t>();
            text.push_back(static_cast<wchar_t>(byte == 0xFF ? TakeNumber<std::uint16_t>() : byte));
        }
        // A heap block of exactly this size, so that a read beyond it is detected.
        text.shrink_to_fit();
        return text;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

}  // namespace tarn::fuzz
