#include "base/program.h"
#include "settings/embedded_settings.h"

namespace tarn {

std::wstring LoadEmbeddedText() {
    std::wstring text;
    const HMODULE module = ProgramModule();
    const HRSRC resource = FindResourceW(module, L"SETTINGS", MAKEINTRESOURCEW(10));  // RT_RCDATA
    if (resource == nullptr) return text;
    const HGLOBAL data = LoadResource(module, resource);
    if (data == nullptr) return text;
    const char* const bytes = static_cast<const char*>(LockResource(data));
    const int size = static_cast<int>(SizeofResource(module, resource));
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes, size, nullptr, 0);
    if (length <= 0) return text;
    text.resize(static_cast<std::size_t>(length));
    MultiByteToWideChar(CP_UTF8, 0, bytes, size, text.data(), length);
    return text;
}

}  // namespace tarn
