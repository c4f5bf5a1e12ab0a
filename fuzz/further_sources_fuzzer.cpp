// Words of "Further Sources", folders of the registry and of the environment, the file `release` of
// a runtime and the first bytes of its library.

#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "runtime/further_sources.h"
#include "runtime/pe_header.h"

namespace {

using tarn::fuzz::Require;

void CheckWords(const std::wstring& text) {
    std::wstring_view rest = text;
    std::size_t pieces = 0;
    std::wstring joined;
    while (!rest.empty()) {
        if (pieces++ != 0) joined += L';';
        joined += tarn::TakePiece(rest);
    }
    if (joined.size() < text.size()) joined += L';';
    Require(joined == text);

    rest = text;
    std::size_t sources = 0;
    while (tarn::TakeFurtherSource(rest)) ++sources;
    Require(rest.empty() && sources <= pieces);
}

void CheckFolder(const std::wstring& text) {
    // On the heap and alone, so that a character written beyond it is noticed.
    std::vector<wchar_t> folder(text.begin(), text.end());
    folder.push_back(L'\0');
    folder.push_back(L'x');
    folder.shrink_to_fit();
    if (!tarn::MakeDriveFolder(folder.data())) return;
    const std::wstring_view made = folder.data();
    Require(made.size() >= 3 && made[1] == L':' && made[2] == L'\\' && made.back() == L'\\');
    Require(made.find_first_of(L"\"/") == std::wstring_view::npos);
}

void CheckRelease(std::string_view release) {
    const std::string_view version = tarn::JavaVersionIn(release);
    Require(version.find('\n') == std::string_view::npos);
    if (version.empty()) return;
    Require(release.find("JAVA_VERSION=" + std::string(version)) != std::string_view::npos);
}

void CheckMachine(std::span<const std::byte> file) {
    const std::uint16_t machine = tarn::MachineIn(file);
    if (machine == 0) return;
    Require(tarn::HasPeHeaders(file));
    std::uint32_t headers = 0;
    std::memcpy(&headers, file.data() + 60, sizeof headers);
    std::uint16_t field = 0;
    std::memcpy(&field, file.data() + headers + 4, sizeof field);
    Require(field == machine);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CheckRelease(bytes);
    CheckMachine(std::as_bytes(std::span(data, size)));
    const std::wstring text = tarn::fuzz::FuzzInput(data, size).TakeText();
    CheckWords(text);
    CheckFolder(text.substr(0, text.find(L'\0')));
    return 0;
}
