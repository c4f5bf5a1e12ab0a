#include "runtime/search_policy.h"

#include "base/text.h"

namespace tarn {

namespace {

struct SourceRow {
    std::wstring_view name;
    bool favouring;
    bool jdkWanted;
    bool jreWanted;
};

// clang-format off
constexpr SourceRow kSources[] = {
    // name         favouring  JDK    JRE
    {L"favor_JRE",  true,      false, true },
    {L"favor_JDK",  true,      true,  false},
    {L"only_JDK",   false,     true,  false},
    {L"only_JRE",   false,     false, true },
};
// clang-format on

struct ProviderRow {
    std::wstring_view name;
    bool jrockitAllowed;
    bool jrockitFavored;
    bool sunAllowed;
    bool sunFavored;
    bool ibmAllowed;
    bool ibmFavored;
};

// Without "sun": docs/developer/compatibility.md.
// clang-format off
constexpr ProviderRow kProviders[] = {
    // name             jrockit       sun           ibm
    {L"jrockit",        true,  true,  false, false, false, false},
    {L"ibm",            false, false, false, false, true,  true },
    {L"favor_sun",      true,  false, true,  true,  true,  false},
    {L"favor_jrockit",  true,  true,  true,  false, true,  false},
    {L"favor_ibm",      true,  false, true,  false, true,  true },
    {L"any",            true,  false, true,  false, true,  false},
};
// clang-format on

}  // namespace

JvmType JvmTypeOf(std::wstring_view text) {
    if (text == L"server") return JvmType::Server;
    if (text == L"favor_server") return JvmType::FavorServer;
    return JvmType::Default;
}

void ApplyJvmSource(std::wstring_view text, RuntimeSearchPolicy& policy) {
    if (text.empty()) {
        policy.jdkWanted = true;
        policy.jreWanted = true;
        return;
    }
    // An unknown word excludes all roots: docs/developer/compatibility.md.
    SourceRow found{text, false, false, false};
    for (const SourceRow& row : kSources) {
        if (text == row.name) found = row;
    }
    policy.sourceFavouring = found.favouring;
    policy.jdkWanted = found.jdkWanted;
    policy.jreWanted = found.jreWanted;
}

void ApplyVmProvider(std::wstring_view text, RuntimeSearchPolicy& policy) {
    for (const ProviderRow& row : kProviders) {
        if (!EqualsIgnoringCase(text, row.name)) continue;
        policy.jrockitAllowed = row.jrockitAllowed;
        policy.jrockitFavored = row.jrockitFavored;
        policy.sunAllowed = row.sunAllowed;
        policy.sunFavored = row.sunFavored;
        policy.ibmAllowed = row.ibmAllowed;
        policy.ibmFavored = row.ibmFavored;
        return;
    }
}

}  // namespace tarn
