#include "tools/setup/msi_limits.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/setup/msi_codes.h"

namespace tarn::tools {
namespace {

// Four strings of each file are in the database; 65,536 strings need another format, which wixl
// does not write reliably.
constexpr std::size_t kMostMsiFiles = 15'000;

// The format of cabinets counts the bytes of a folder in blocks of 32 KiB, of which it has 65,535.
constexpr std::uint64_t kLargestCabinet = std::uint64_t{65'535} * 32'768;

// The column of the table Shortcut.
constexpr std::size_t kLongestShortcut = 128;

// Whether a character is in Windows-1252.
bool IsWestern(wchar_t character) {
    constexpr std::wstring_view kBetween =
        L"\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u017D"
        L"\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u017E\u0178";
    return character < 0x80 || (character >= 0xA0 && character <= 0xFF) ||
           kBetween.find(character) != std::wstring_view::npos;
}

// wixl writes texts in Windows-1252. Of others it loses characters, or crashes.
void CheckCharacters(const std::string& text) {
    const std::wstring wide = WideOf(text);
    if (std::all_of(wide.begin(), wide.end(), IsWestern)) return;
    throw Failure("--msi: \"" + text +
                  "\" contains characters outside Windows-1252, which wixl cannot write; rename "
                  "it, or make a setup program without --msi");
}

}  // namespace

void CheckMsi(const Product& product, const PackageContent& content,
              const std::vector<RegistryValue>& values) {
    MsiVersionOf(product.number);
    for (const std::string* const text :
         {&product.name, &product.vendor, &product.fileName, &product.executable}) {
        CheckCharacters(*text);
    }
    for (const std::string& path : content.folders) CheckCharacters(path);
    for (const PackageFile& file : content.files) CheckCharacters(file.path);
    for (const RegistryValue& value : values) {
        CheckCharacters(value.key);
        CheckCharacters(value.data);
    }
    if (content.files.size() > kMostMsiFiles) {
        throw Failure("--msi: the folder contains " + std::to_string(content.files.size()) +
                      " files; at most " + std::to_string(kMostMsiFiles) +
                      " are possible in an MSI, and more in a setup program without --msi");
    }
    if (content.size >= kLargestCabinet) {
        throw Failure("--msi: the folder's files have " + std::to_string(content.size >> 20) +
                      " MiB; at most " + std::to_string((kLargestCabinet >> 20)) +
                      " are possible in an MSI");
    }
    if (Utf16Of(product.fileName).size() + std::string_view(".lnk").size() > kLongestShortcut) {
        throw Failure("--msi: the name \"" + product.name +
                      "\" is too long for a shortcut; specify another one with --name");
    }
}

}  // namespace tarn::tools
