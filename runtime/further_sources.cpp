#include "runtime/further_sources.h"

#include "base/text.h"

namespace tarn {

namespace {

using enum KeyLayout;

// clang-format off
constexpr MakerPlace kPlaces[] = {
    // keys  below SOFTWARE         below program files  below the user's programs
    {None,   "",                    "Java",              false},
    {Msi,    "Eclipse Adoptium",    "Eclipse Adoptium",  true},
    {Msi,    "Eclipse Foundation",  "",                  false},
    {Msi,    "AdoptOpenJDK",        "",                  false},
    {Msi,    "Semeru",              "Semeru",            false},
    {Msi,    "Microsoft",           "Microsoft",         false},
    {Named,  "Azul Systems\\Zulu",  "Zulu",              false},
    {None,   "",                    "Amazon Corretto",   false},
    {Named,  "BellSoft\\Liberica",  "BellSoft",          false},
};
// clang-format on

}  // namespace

std::wstring_view TakePiece(std::wstring_view& rest) {
    const std::wstring_view piece = rest.substr(0, rest.find(L';'));
    rest.remove_prefix(piece.size() < rest.size() ? piece.size() + 1 : piece.size());
    return piece;
}

std::optional<FurtherSource> TakeFurtherSource(std::wstring_view& rest) {
    while (!rest.empty()) {
        const std::wstring_view word = TrimWhiteSpace(TakePiece(rest));
        for (std::size_t known = 0; known < std::size(kFurtherSourceWords); ++known) {
            if (EqualsIgnoringCase(word, kFurtherSourceWords[known])) {
                return static_cast<FurtherSource>(known);
            }
        }
    }
    return std::nullopt;
}

std::span<const MakerPlace> MakerPlaces() {
    return kPlaces;
}

bool MakeDriveFolder(wchar_t* text) {
    wchar_t* end = text;
    for (const wchar_t* from = text; *from != L'\0'; ++from) {
        if (*from != L'"') *end++ = *from == L'/' ? L'\\' : *from;
    }
    if (end - text < 2) return false;
    if (end[-1] != L'\\') *end++ = L'\\';
    *end = L'\0';
    return text[1] == L':' && text[2] == L'\\';
}

bool HasNoBounds(const RuntimeSearchPolicy& policy) {
    return policy.maximum.parts[0] == kOpenPart && IsBlank(policy.minimum);
}

}  // namespace tarn
