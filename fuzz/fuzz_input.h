#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace tarn::fuzz {

/// A property that does not hold is a crash to the fuzzer, which then keeps the input.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

/// What the fuzzer made up, taken from the front piece by piece; zeros when it is used up.
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

    /// All that is left as UTF-16 units. A byte stands for the unit of its value, so that texts of
    /// the corpus can be read; 0xFF stands before the two bytes of any unit.
    std::wstring TakeText() {
        std::wstring text;
        text.reserve(size_);
        while (size_ != 0) {
            const auto byte = TakeNumber<std::uint8_t>();
            text.push_back(static_cast<wchar_t>(byte == 0xFF ? TakeNumber<std::uint16_t>() : byte));
        }
        // So that it lies on the heap in its own size, and a unit read beyond it is noticed.
        text.shrink_to_fit();
        return text;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

}  // namespace tarn::fuzz
