// Paths that are made of settings and of the place where the launcher lies.

#include <algorithm>
#include <optional>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/folder_levels.h"
#include "jvm/native_paths.h"
#include "settings/settings_paths.h"

namespace {

using tarn::fuzz::Require;

std::vector<std::wstring> Split(const std::wstring& path) {
    std::vector<std::wstring> components(1);
    for (const wchar_t c : path) {
        if (c == L'\\') {
            components.emplace_back();
        } else {
            components.back() += c;
        }
    }
    return components;
}

// What stands before the last backslash; the path itself when there is none.
std::wstring Parent(const std::wstring& path) {
    const std::size_t size = Split(path).back().size();
    return size == path.size() ? path : path.substr(0, path.size() - size - 1);
}

void CheckSettingsPath(const std::wstring& program) {
    std::optional<std::wstring> expected;
    for (std::size_t i = 0; i < program.size(); ++i)
        if (program[i] == L'.') expected = program.substr(0, i) + L".ini";
    Require(tarn::SettingsPathOf(program) == expected);
}

void CheckPerUserPath(const std::wstring& program, const std::wstring& product) {
    std::wstring base = Split(program).back();
    base = base.substr(0, base.rfind(L'.'));
    std::wstring folder = product;
    for (const wchar_t forbidden : {L'\\', L'?', L'"', L'|', L'>', L'<', L':', L'/', L'*'})
        std::erase(folder, forbidden);
    const auto path = tarn::PerUserPathOf(L"C:\\data", product, L"code", program);
    Require(path.productFolder == L"C:\\data\\" + folder);
    Require(path.codeFolder == path.productFolder + L"\\code");
    Require(path.file == path.codeFolder + L'\\' + base + L".ini");
}

void CheckNativePaths(const std::wstring& setting, const std::wstring& library) {
    const std::wstring bin = Parent(Parent(library));
    const bool open = !setting.empty() && setting.back() != L';';
    Require(tarn::ProcessPathValue(setting, library) ==
            setting + (open ? L";" : L"") + L"%Path%;" + bin);
    const std::wstring folder = bin.substr(0, bin.size() - Split(bin).back().size());
    Require(tarn::LibraryPathValue(setting, L"C:\\Apps\\", library) ==
            setting + L"C:\\Apps\\;.;%Path%" + folder + L"lib");
}

// Every level is a folder on the way, longer than the one before; the file itself is none.
void CheckFolderLevels(const std::wstring& name) {
    std::size_t previous = 0;
    for (;;) {
        const std::size_t level = tarn::NextFolderLevel(name, previous);
        if (level == std::wstring::npos) break;
        Require(level > previous && level < name.size());
        Require(name[level] == L'\\' || name[level] == L'/');
        Require(name[level - 1] != L'\\' && name[level - 1] != L'/');
        previous = level;
    }
    // None was left out at the end.
    const std::size_t last = name.find_last_of(L"\\/");
    if (previous != 0 && last != std::wstring::npos)
        Require(name.find_first_not_of(L"\\/", previous) > last || previous == last ||
                name.find_last_not_of(L"\\/", last) == previous - 1);
}

}  // namespace

// Two texts with a line feed in between.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const std::size_t end = std::min(text.find(L'\n'), text.size());
    const std::wstring first = text.substr(0, end);
    const std::wstring second = text.substr(std::min(end + 1, text.size()));
    CheckSettingsPath(first);
    CheckPerUserPath(first, second);
    CheckNativePaths(second, first);
    CheckFolderLevels(L"C:\\" + first);
    CheckFolderLevels(L"\\\\" + first);
    return 0;
}
