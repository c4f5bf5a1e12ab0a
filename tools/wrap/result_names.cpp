#include "tools/wrap/result_names.h"

#include <algorithm>
#include <array>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kLongestName = 255;  // UTF-16 units

// Letters from `first` to `last` have their capitals at a fixed distance.
struct LetterRange {
    unsigned first;
    unsigned last;
    unsigned distance;
};

constexpr LetterRange kRanges[] = {
    {'a', 'z', 32},     {0xE0, 0xF6, 32},     {0xF8, 0xFE, 32},   {0x3AD, 0x3AF, 37},
    {0x3B1, 0x3C1, 32}, {0x3C3, 0x3CB, 32},   {0x430, 0x44F, 32}, {0x450, 0x45F, 80},
    {0x561, 0x586, 48}, {0xFF41, 0xFF5A, 32},
};

// Ranges in which capitals and small letters alternate, beginning with a capital.
constexpr std::array<std::pair<unsigned, unsigned>, 12> kPairs = {{{0x100, 0x12F},
                                                                   {0x132, 0x137},
                                                                   {0x139, 0x148},
                                                                   {0x14A, 0x177},
                                                                   {0x179, 0x17E},
                                                                   {0x1CD, 0x1DC},
                                                                   {0x1DE, 0x1EF},
                                                                   {0x1F8, 0x21F},
                                                                   {0x222, 0x233},
                                                                   {0x460, 0x481},
                                                                   {0x48A, 0x4BF},
                                                                   {0x1E00, 0x1EFF}}};

wchar_t ToUpper(wchar_t letter) {
    // NOLINTNEXTLINE(bugprone-signed-char-misuse): no UTF-16 unit or code point is negative
    const auto code = static_cast<unsigned>(letter);
    switch (code) {
        case 0xFF:
            return L'\u0178';
        case 0x3AC:
            return L'\u0386';
        case 0x3C2:  // final sigma
            return L'\u03A3';
        case 0x3CC:
            return L'\u038C';
        case 0x3CD:
            return L'\u038E';
        case 0x3CE:
            return L'\u038F';
        default:
            break;
    }
    for (const LetterRange& range : kRanges) {
        if (code >= range.first && code <= range.last) {
            return static_cast<wchar_t>(code - range.distance);
        }
    }
    for (const auto& [first, last] : kPairs) {
        // U+1E96 to U+1E9F have no capitals of one character.
        const bool isPaired = code >= first && code <= last && (code < 0x1E96 || code > 0x1E9F);
        if (isPaired && (code - first) % 2 == 1) return static_cast<wchar_t>(code - 1);
    }
    return letter;
}

// Names of devices, which Windows reserves in every folder and with every extension.
bool IsDeviceName(std::string_view name) {
    std::string stem = ToLowerAscii(name.substr(0, name.find('.')));
    while (!stem.empty() && stem.back() == ' ') stem.pop_back();
    for (const std::string_view device : {"con", "prn", "aux", "nul", "conin$", "conout$"}) {
        if (stem == device) return true;
    }
    if (!stem.starts_with("com") && !stem.starts_with("lpt")) return false;
    const std::string number = stem.substr(3);
    // The superscript digits count as digits.
    return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') || number == "\xC2\xB9" ||
           number == "\xC2\xB2" || number == "\xC2\xB3";
}

// What is wrong with a name; empty for a valid one.
std::string_view ProblemOf(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return "is not a file name";
    for (const char letter : name) {
        if (static_cast<unsigned char>(letter) < ' ') return "contains a control character";
        if (std::string_view("<>:\"|?*\\").find(letter) != std::string_view::npos) {
            return "contains one of the characters < > : \" | ? * \\";
        }
    }
    if (name.back() == '.' || name.back() == ' ') return "ends with a dot or a space";
    if (IsDeviceName(name)) return "is the name of a device";
    if (Utf8Of(WideOf(name)) != name) return "is not valid UTF-8";
    if (Utf16Of(name).size() > kLongestName) return "is longer than 255 characters";
    return {};
}

}  // namespace

void CheckWindowsPath(const std::string& path, const std::string& origin) {
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string_view name = std::string_view(path).substr(at, end - at);
        if (const std::string_view problem = ProblemOf(name); !problem.empty()) {
            throw Failure(origin + ": the name \"" + std::string(name) +
                          "\" is not possible on Windows: it " + std::string(problem) +
                          "; rename it");
        }
        at = end + 1;
    }
}

std::wstring ToUpperAsWindows(std::wstring_view name) {
    std::wstring upper(name);
    for (wchar_t& letter : upper) letter = ToUpper(letter);
    return upper;
}

bool ResultNames::AddFile(const std::string& target, const std::string& origin,
                          const std::filesystem::path& source) {
    CheckWindowsPath(target, origin);
    if (const std::size_t slash = target.rfind('/'); slash != std::string::npos) {
        AddFolder(target.substr(0, slash), origin);
    }
    return Add({target, origin, source, false});
}

void ResultNames::AddFolder(const std::string& target, const std::string& origin) {
    CheckWindowsPath(target, origin);
    for (std::size_t end = target.find('/'); end != std::string::npos;
         end = target.find('/', end + 1)) {
        Add({target.substr(0, end), origin, {}, true});
    }
    Add({target, origin, {}, true});
}

bool ResultNames::Add(Entry entry) {
    const auto [found, isNew] = entries_.try_emplace(ToUpperAsWindows(WideOf(entry.target)), entry);
    if (isNew) return true;
    const Entry& present = found->second;
    if (entry.isFolder && present.isFolder && entry.target == present.target) return true;
    std::error_code error;
    const bool isSameFile = !entry.isFolder && !present.isFolder && !entry.source.empty() &&
                            std::filesystem::equivalent(entry.source, present.source, error);
    if (isSameFile) return false;
    throw Failure(entry.origin + " and " + present.origin + ": both would become " + entry.target +
                  (entry.target == present.target
                       ? std::string()
                       : ", which Windows does not distinguish from " + present.target) +
                  "; rename one");
}

}  // namespace tarn::tools
