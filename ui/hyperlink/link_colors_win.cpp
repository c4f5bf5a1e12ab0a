#include "ui/hyperlink/link_colors.h"

#include "base/handles.h"

namespace tarn {
namespace {

void ReadColor(HKEY key, const wchar_t* name, PackedColor& color) {
    // Eleven characters and a terminator hold "255,255,255"; a longer text is no colour.
    BYTE data[24];
    DWORD size = sizeof(data);
    DWORD type = REG_NONE;
    if (RegQueryValueExW(key, name, nullptr, &type, data, &size) != ERROR_SUCCESS) return;
    if (const auto read = LinkColorOfValue(type, {data, size})) color = *read;
}

}  // namespace

void ReadBrowserColors(LinkColors& colors) {
    UniqueRegistryKey key;
    // Opened for writing, too (docs/developer/compatibility.md).
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Internet Explorer\\Settings", 0,
                      KEY_READ | KEY_WRITE, key.put()) != ERROR_SUCCESS)
        return;
    ReadColor(key.get(), L"Anchor Color", colors.link);
    ReadColor(key.get(), L"Anchor Color Visited", colors.visited);
}

}  // namespace tarn
