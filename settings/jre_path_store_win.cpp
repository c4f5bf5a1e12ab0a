#include <optional>

#include "base/handles.h"
#include "base/paths.h"
#include "base/text.h"
#include "settings/jre_path_store.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"

namespace tarn {
namespace {

constexpr std::wstring_view kByteOrderMark = L"\uFEFF";

bool FitsAnsi(const std::wstring& text) {
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.c_str(), -1, nullptr, 0, nullptr, &lost);
    return lost == FALSE;
}

// Creates a file with this content. Fails when the file exists; leaves no incomplete file behind.
bool CreateNewFile(const std::wstring& path, DWORD attributes, std::wstring_view content) {
    const DWORD size = static_cast<DWORD>(content.size() * sizeof(wchar_t));
    UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                attributes | FILE_FLAG_WRITE_THROUGH, nullptr));
    if (!file) return false;
    DWORD written = 0;
    WriteFile(file.get(), content.data(), size, &written, nullptr);
    file.reset();
    if (written != size) DeleteFileW(path.c_str());
    return written == size;
}

// Replaces a file in one step, keeping its attributes and permissions. On failure the file stays as
// it is.
bool ReplaceContent(const std::wstring& path, DWORD attributes, std::wstring_view content) {
    // No other process uses this name at the same time.
    std::wstring newPath = DecimalText(static_cast<std::int32_t>(GetCurrentProcessId()));
    newPath.insert(0, path);
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    if (!CreateNewFile(newPath, attributes & kKept, content)) return false;
    if (ReplaceFileW(path.c_str(), newPath.c_str(), nullptr, 0, nullptr, nullptr)) return true;
    // With this error the old file is gone, and the new one has kept its name.
    if (GetLastError() != ERROR_UNABLE_TO_MOVE_REPLACEMENT) DeleteFileW(newPath.c_str());
    return false;
}

// Makes a settings file able to hold any character: creates it as UTF-16, or converts it. Returns
// false, with the file unchanged, on failure.
bool EnsureUtf16(const std::wstring& path) {
    if (CreateNewFile(path, FILE_ATTRIBUTE_NORMAL, kByteOrderMark)) return true;

    const DWORD attributes = GetFileAttributesW(path.c_str());
    // A link would be replaced by a file. All bits are set when the attributes cannot be read.
    if (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_REPARSE_POINT)) return false;
    // Room for the text, which has at most as many UTF-16 units as the file has bytes, and after it
    // for these bytes and one more, which shows that the file is too large.
    std::wstring text(kByteOrderMark);
    text.resize(1 + 2 * kMaxConvertedSize);
    char* const bytes = reinterpret_cast<char*>(&text[1 + kMaxConvertedSize]);
    DWORD size = 0;
    {
        // Opened for writing too, so that a file that the user may not write is not replaced.
        const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                          FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!ReadFile(file.get(), bytes, kMaxConvertedSize + 1, &size, nullptr)) return false;
    }
    if (!IsAnsiText({bytes, size})) return true;  // its encoding is left to the system
    if (size > kMaxConvertedSize) return false;
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes, static_cast<int>(size),
                                           text.data() + 1, static_cast<int>(kMaxConvertedSize));
    if (length == 0 && size != 0) return false;
    return ReplaceContent(path, attributes, {text.data(), 1 + static_cast<std::size_t>(length)});
}

}  // namespace

bool IsAnsiText(std::string_view bytes) {
    // The marks begin with EF, FE or FF, which no line of a settings file does.
    if (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0xEF) return false;
    return bytes.find('\0') == std::string_view::npos;
}

void WriteJrePath(const std::wstring& settingsPath, const std::wstring& folder) {
    // The profile functions look for a name without a folder in the Windows folder; such a file is
    // left to them.
    const bool hasFolder = settingsPath.find_first_of(L"\\/:") != std::wstring::npos;
    if (hasFolder && !FitsAnsi(folder) && !EnsureUtf16(settingsPath)) return;
    WritePrivateProfileStringW(keys::kJavaRuntimeEnvironment, keys::kJrePath, folder.c_str(),
                               settingsPath.c_str());
}

void RememberRuntime(const Settings& settings, const std::wstring& folder) {
    const auto store = [&](const std::wstring& programPath) {
        if (!settings.serviceMode) {
            WriteJrePath(PerUserSettingsPath(settings, programPath, true), folder);
        } else if (const std::optional<std::wstring> path = SettingsPathOf(programPath)) {
            WriteJrePath(*path, folder);
        }
    };
    if (const std::optional<std::wstring> program = ModulePath()) store(*program);
    if (!settings.pairProduct.empty()) store(settings.pairProduct);
}

}  // namespace tarn
