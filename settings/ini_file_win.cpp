#include "settings/ini_file.h"

#include "base/handles.h"
#include "base/text.h"

namespace tarn {

IniFile::IniFile(std::wstring path) : path_(std::move(path)) {}

IniFile::~IniFile() = default;

unsigned long IniFile::Probe(unsigned char (&buffer)[4]) const {
    const UniqueFile file(CreateFileW(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return GetLastError();
    DWORD read = 0;
    if (!ReadFile(file.get(), buffer, sizeof buffer, &read, nullptr)) return GetLastError();
    return ERROR_SUCCESS;
}

std::wstring IniFile::Read(const wchar_t* section, const wchar_t* key, std::size_t spare) const {
    return ReadGrowing(spare, [&](wchar_t* buffer, std::size_t size) -> std::size_t {
        return GetPrivateProfileStringW(section, key, L"", buffer, static_cast<DWORD>(size),
                                        path_.c_str());
    });
}

std::wstring IniFile::GetValue(const wchar_t* section, const wchar_t* key) const {
    std::wstring value = Read(section, key, 1);
    // In a corrupt file a value may contain null characters.
    const std::size_t end = value.find(L'\0');
    if (end != std::wstring::npos) value.resize(end);
    return value;
}

std::wstring IniFile::ReadSectionNames() const {
    return ReadGrowing(2, [&](wchar_t* buffer, std::size_t size) -> std::size_t {
        return GetPrivateProfileSectionNamesW(buffer, static_cast<DWORD>(size), path_.c_str());
    });
}

std::vector<std::wstring> IniFile::GetSectionNames() const {
    const std::wstring names = ReadSectionNames();
    // The list ends with an empty name.
    std::vector<std::wstring> result;
    for (std::size_t at = 0; at < names.size() && names[at] != L'\0';) {
        result.emplace_back(names.c_str() + at);
        at += result.back().size() + 1;
    }
    return result;
}

bool IniFile::SetValue(const wchar_t* section, const wchar_t* key,
                       const std::wstring& value) const {
    return WritePrivateProfileStringW(section, key, value.c_str(), path_.c_str()) != FALSE;
}

bool IniFile::Remove() const {
    return DeleteFileW(path_.c_str()) != FALSE;
}

}  // namespace tarn
