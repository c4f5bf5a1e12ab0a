#include "tests/unit_support/url_handler.h"

namespace tarn {
namespace {

/// The program that is registered, which lies below the test program.
std::wstring HandlerProgram() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\')) + L"\\programs\\create_file.exe";
}

}  // namespace

UrlHandler::UrlHandler(const std::wstring& scheme) : key_(L"Software\\Classes\\" + scheme) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    trace_ = std::wstring(folder) + scheme + L".txt";
    DeleteFileW(trace_.c_str());
    Register(HKEY_CURRENT_USER);
    // Wine ignores per-user handlers and reads only those of the machine.
    HKEY seen = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, scheme.c_str(), 0, KEY_READ, &seen) == ERROR_SUCCESS)
        RegCloseKey(seen);
    else
        Register(HKEY_LOCAL_MACHINE);
}

void UrlHandler::Register(HKEY root) {
    roots_.push_back(root);
    const auto set = [&](const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        RegSetKeyValueW(root, key.c_str(), name, REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    };
    set(key_, L"URL Protocol", L"");
    set(key_ + L"\\shell\\open\\command", nullptr, L"\"" + HandlerProgram() + L"\" " + trace_);
}

UrlHandler::~UrlHandler() {
    for (const HKEY root : roots_) RegDeleteTreeW(root, key_.c_str());
    DeleteFileW(trace_.c_str());
}

bool UrlHandler::WasRun() const {
    for (int tries = 0; tries < 200; ++tries) {
        if (GetFileAttributesW(trace_.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
        Sleep(50);
    }
    return false;
}

}  // namespace tarn
