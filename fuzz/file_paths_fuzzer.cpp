// Paths built from settings and the launcher's folder.

#include <algorithm>
#include <optional>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/native_paths.h"
#include "jvm/output_redirection.h"
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

// A model: the text before the last backslash, or the path itself when there is none.
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
    base.resize(std::min(base.rfind(L'.'), base.size()));
    std::wstring folder = product;
    for (const wchar_t forbidden : {L'\\', L'?', L'"', L'|', L'>', L'<', L':', L'/', L'*'})
        std::erase(folder, forbidden);
    const auto path = tarn::PerUserPathOf(L"C:\\data", product, L"code", program);
    Require(path.ProductFolder() == L"C:\\data\\" + folder);
    Require(path.CodeFolder() == path.ProductFolder() + L"\\code");
    Require(path.file == path.CodeFolder() + L'\\' + base + L".ini");
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

bool IsSeparator(wchar_t c) {
    return c == L'\\' || c == L'/';
}

// The ends of the components, from `start` on. A component that is missing there is empty.
std::vector<std::size_t> ComponentEnds(const std::wstring& name, std::size_t start) {
    std::vector<std::size_t> ends;
    bool inComponent = true;
    for (std::size_t i = start; i < name.size(); ++i) {
        if (IsSeparator(name[i]) && inComponent) ends.push_back(i);
        inComponent = !IsSeparator(name[i]);
    }
    return ends;
}

// The folders to create are those after the drive, or after server and share.
std::vector<std::size_t> NaiveFolderLevels(const std::wstring& name) {
    std::size_t start = 2;
    std::size_t inRoot = 2;
    if (name[1] == L':') {
        // An empty component right after the colon belongs to the drive.
        inRoot = name.size() > 2 && IsSeparator(name[2]) ? 1 : 0;
    } else if (name[2] == L'?' || name[2] == L'.') {
        if (name.size() > 3 && name[3] == L'\\') {
            start = 4;
            std::wstring mark = name.substr(4, 4);
            for (wchar_t& c : mark)
                if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
            inRoot = mark == L"UNC\\" ? 3 : 1;
        }
    }
    std::vector<std::size_t> ends = ComponentEnds(name, start);
    ends.erase(ends.begin(),
               ends.begin() + static_cast<std::ptrdiff_t>(std::min(inRoot, ends.size())));
    return ends;
}

void CheckFolderLevels(const std::wstring& name) {
    std::vector<std::size_t> levels;
    std::size_t level = 0;
    while ((level = tarn::NextFolderLevel(name, level)) != std::wstring::npos)
        levels.push_back(level);
    Require(levels == NaiveFolderLevels(name));
}

}  // namespace

// Two texts separated by a line feed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const std::size_t end = std::min(text.find(L'\n'), text.size());
    const std::wstring first = text.substr(0, end);
    const std::wstring second = text.substr(std::min(end + 1, text.size()));
    CheckSettingsPath(first);
    CheckPerUserPath(first, second);
    CheckNativePaths(second, first);
    CheckFolderLevels(L"C:" + first);
    CheckFolderLevels(L"\\\\" + first + L'x');
    CheckFolderLevels(L"\\\\?\\" + first);
    return 0;
}
