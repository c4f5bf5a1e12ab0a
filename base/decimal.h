#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// A number as signed decimal digits, without an allocation.
class Decimal {
  public:
    explicit Decimal(std::int32_t number);

    /// Valid as long as this object.
    std::wstring_view text() const { return {first_, digits_ + kSize}; }

    Decimal(const Decimal&) = delete;
    Decimal& operator=(const Decimal&) = delete;

  private:
    // A sign and the ten digits of 2^31.
    static constexpr int kSize = 11;

    wchar_t digits_[kSize];
    wchar_t* first_ = digits_ + kSize;
};

/// The number as signed decimal digits. The standard library's way brings all of printf, floating
/// point included, into the launcher: 43 KB.
std::wstring DecimalText(std::int32_t number);

}  // namespace tarn
