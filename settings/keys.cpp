#include "settings/keys.h"

#include "base/text.h"

namespace tarn {

bool IsYes(std::wstring_view value) {
    return EqualsIgnoringCase(value, L"Yes");
}

bool IsExactlyYes(std::wstring_view value) {
    return value == L"yes";
}

}  // namespace tarn
