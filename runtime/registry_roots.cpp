#include "runtime/registry_roots.h"

#include "base/text.h"

namespace tarn {

namespace {

using enum RuntimeKind;
using enum RuntimeProvider;

constexpr std::wstring_view kSameFolder;
constexpr std::wstring_view kInsideJdk = L"jre\\";

// Newer JDKs contain no separate runtime folder: docs/developer/compatibility.md.
// clang-format off
constexpr RegistryRoot kRoots[] = {
    // key                                               kind provider home         FavorServer ignored
    {L"Software\\JavaSoft\\JDK",                         Jdk, Sun,     kSameFolder, false},
    {L"Software\\JavaSoft\\JRE",                         Jre, Sun,     kSameFolder, false},
    {L"Software\\JavaSoft\\Java Development Kit",        Jdk, Sun,     kInsideJdk,  false},
    {L"Software\\JavaSoft\\Java Runtime Environment",    Jre, Sun,     kSameFolder, true },
    {L"Software\\JRockit\\Java Runtime Environment",     Jre, Jrockit, kSameFolder, false},
    {L"Software\\JRockit\\Java Development Kit",         Jdk, Jrockit, kInsideJdk,  false},
    {L"Software\\IBM\\Java2 Runtime Environment",        Jre, Ibm,     kSameFolder, false},
};
// clang-format on

struct ProviderFlags {
    bool allowed;
    bool favored;
};

ProviderFlags FlagsOf(RuntimeProvider provider, const RuntimeSearchPolicy& policy) {
    switch (provider) {
        case Jrockit:
            return {policy.jrockitAllowed, policy.jrockitFavored};
        case Ibm:
            return {policy.ibmAllowed, policy.ibmFavored};
        case Sun:
            break;
    }
    return {policy.sunAllowed, policy.sunFavored};
}

bool IsKindWanted(RuntimeKind kind, const RuntimeSearchPolicy& policy) {
    return kind == Jdk ? policy.jdkWanted : policy.jreWanted;
}

}  // namespace

std::span<const RegistryRoot> RegistryRoots() {
    return kRoots;
}

bool IsKindSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy) {
    return policy.sourceFavouring || IsKindWanted(root.kind, policy);
}

bool IsProviderSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy) {
    const ProviderFlags flags = FlagsOf(root.provider, policy);
    return flags.allowed || flags.favored;
}

bool IsFavored(const RegistryRoot& root, const RuntimeSearchPolicy& policy) {
    return IsKindWanted(root.kind, policy) && FlagsOf(root.provider, policy).favored;
}

JvmType JvmTypeIn(const RegistryRoot& root, JvmType wanted) {
    return root.ignoresFavorServer && wanted == JvmType::FavorServer ? JvmType::Default : wanted;
}

std::wstring HomeOf(const RegistryRoot& root, std::wstring_view javaHome) {
    std::wstring home = EnsureTrailing(javaHome, L'\\');
    home += root.belowHome;
    return home;
}

std::wstring TextOfValue(std::span<const std::byte> data) {
    std::wstring text;
    for (std::size_t at = 0; at + 1 < data.size(); at += 2) {
        const unsigned unit =
            std::to_integer<unsigned>(data[at]) | std::to_integer<unsigned>(data[at + 1]) << 8;
        if (unit == 0) break;
        text += static_cast<wchar_t>(unit);
    }
    return text;
}

}  // namespace tarn
