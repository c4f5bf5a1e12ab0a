#include "tests/unit_support/browser_colors_in_registry.h"

namespace tarn {
namespace {

constexpr wchar_t kColorsKey[] = L"Software\\Microsoft\\Internet Explorer\\Settings";

}  // namespace

void ClearBrowserColors() {
    for (const wchar_t* const name : {L"Anchor Color", L"Anchor Color Visited"})
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kColorsKey, name);
}

void SetBrowserColor(const wchar_t* name, DWORD type, const std::wstring& value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kColorsKey, name, type, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void SetBrowserColorBytes(const wchar_t* name, DWORD type, const std::wstring& value) {
    // The text is followed by something else than a terminator, because Windows adds a missing one.
    const std::wstring more = value + L"x";
    RegSetKeyValueW(HKEY_CURRENT_USER, kColorsKey, name, type, more.c_str(),
                    static_cast<DWORD>(value.size() * sizeof(wchar_t)));
}

}  // namespace tarn
