// The class path of the settings, and which of its entries are searched on the disk.

#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/class_path.h"

namespace {

using tarn::fuzz::Require;

std::vector<std::wstring> NaiveEntries(const std::wstring& text) {
    std::vector<std::wstring> entries;
    std::wstring entry;
    for (const wchar_t c : text + L';') {
        if (c != L';') {
            entry += c;
        } else {
            if (!entry.empty()) entries.push_back(entry);
            entry.clear();
        }
    }
    return entries;
}

bool NaiveIsAbsolute(const std::wstring& entry) {
    if (entry.size() < 2) return false;
    return entry[1] == L':' || (entry[0] == L'\\' && entry[1] == L'\\');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    const std::vector<std::wstring> entries = tarn::ClassPathEntries(text);
    Require(entries == NaiveEntries(text));

    std::wstring joined;
    const std::wstring folder = L"C:\\Apps\\";
    for (const std::wstring& entry : entries) {
        joined += entry + L';';
        const bool absolute = NaiveIsAbsolute(entry);
        const bool wildcard = entry.find(L'*') != std::wstring::npos;
        Require(tarn::IsLiteralEntry(entry) == (absolute && !wildcard));
        Require(tarn::ClassPathPattern(entry, folder) == (absolute ? entry : folder + entry));
    }
    Require(tarn::ClassPathEntries(joined) == entries);
    return 0;
}
