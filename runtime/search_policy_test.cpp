#include "runtime/search_policy.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tarn {
namespace {

std::string Narrow(std::wstring_view text) {
    return {text.begin(), text.end()};
}

TEST(JvmTypeTest, OnlyTheExactWordsSelectAType) {
    EXPECT_EQ(JvmTypeOf(L"server"), JvmType::Server);
    EXPECT_EQ(JvmTypeOf(L"favor_server"), JvmType::FavorServer);
    for (const wchar_t* text : {L"", L"Server", L"SERVER", L"server ", L"Favor_Server", L"client",
                                L"default", L"favor_client"}) {
        EXPECT_EQ(JvmTypeOf(text), JvmType::Default) << Narrow(text);
    }
}

using SourceFlags = std::array<bool, 3>;

SourceFlags SourceOf(const wchar_t* text, bool favouringBefore = true) {
    RuntimeSearchPolicy policy;
    policy.sourceFavouring = favouringBefore;
    ApplyJvmSource(text, policy);
    return {policy.sourceFavouring, policy.jdkWanted, policy.jreWanted};
}

TEST(JvmSourceTest, EveryRowSetsItsFlags) {
    EXPECT_EQ(SourceOf(L""), (SourceFlags{true, true, true}));
    EXPECT_EQ(SourceOf(L"favor_JRE"), (SourceFlags{true, false, true}));
    EXPECT_EQ(SourceOf(L"favor_JDK"), (SourceFlags{true, true, false}));
    EXPECT_EQ(SourceOf(L"only_JDK"), (SourceFlags{false, true, false}));
    EXPECT_EQ(SourceOf(L"only_JRE"), (SourceFlags{false, false, true}));
}

TEST(JvmSourceTest, AnyOtherTextExcludesAllRoots) {
    for (const wchar_t* text : {L"Favor_JRE", L"favor_jre", L"FAVOR_JDK", L"only_jdk", L"JRE",
                                L"favor_JRE ", L" ", L"any"}) {
        EXPECT_EQ(SourceOf(text), (SourceFlags{false, false, false})) << Narrow(text);
    }
}

TEST(JvmSourceTest, AnEmptyTextDoesNotChangeTheFavouring) {
    EXPECT_EQ(SourceOf(L"", false), (SourceFlags{false, true, true}));
}

TEST(JvmSourceTest, AnEmptyTextWantsBothKindsAgain) {
    RuntimeSearchPolicy policy;
    ApplyJvmSource(L"no such word", policy);
    ASSERT_FALSE(policy.jdkWanted);
    ASSERT_FALSE(policy.jreWanted);
    ApplyJvmSource(L"", policy);
    EXPECT_TRUE(policy.jdkWanted);
    EXPECT_TRUE(policy.jreWanted);
}

/// jrockitAllowed, jrockitFavored, sunAllowed, sunFavored, ibmAllowed, ibmFavored.
using ProviderFlags = std::array<bool, 6>;

constexpr ProviderFlags kDefaults{false, false, true, true, false, false};

ProviderFlags ProvidersOf(std::wstring_view text) {
    RuntimeSearchPolicy policy;
    ApplyVmProvider(text, policy);
    return {policy.jrockitAllowed, policy.jrockitFavored, policy.sunAllowed,
            policy.sunFavored,     policy.ibmAllowed,     policy.ibmFavored};
}

TEST(VmProviderTest, EveryRowSetsItsFlagsInAnyLetterCase) {
    const struct {
        std::wstring name;
        std::wstring otherCase;
        ProviderFlags flags;
    } rows[] = {
        {L"jrockit", L"JROCKIT", {true, true, false, false, false, false}},
        {L"ibm", L"IBM", {false, false, false, false, true, true}},
        {L"favor_sun", L"FAVOR_SUN", {true, false, true, true, true, false}},
        {L"favor_jrockit", L"Favor_JRockit", {true, true, true, false, true, false}},
        {L"favor_ibm", L"Favor_IBM", {true, false, true, false, true, true}},
        {L"any", L"aNY", {true, false, true, false, true, false}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ProvidersOf(row.name), row.flags) << Narrow(row.name);
        EXPECT_EQ(ProvidersOf(row.otherCase), row.flags) << Narrow(row.otherCase);
    }
}

TEST(VmProviderTest, AnyOtherTextKeepsTheDefaults) {
    for (const wchar_t* text : {L"", L"sun", L"Sun", L"oracle", L"ibm ", L" any", L"favor"}) {
        EXPECT_EQ(ProvidersOf(text), kDefaults) << Narrow(text);
    }
}

TEST(VmProviderTest, AnyOtherTextKeepsEarlierFlags) {
    RuntimeSearchPolicy policy;
    ApplyVmProvider(L"ibm", policy);
    ApplyVmProvider(L"", policy);
    ApplyVmProvider(L"sun", policy);
    EXPECT_FALSE(policy.sunAllowed);
    EXPECT_TRUE(policy.ibmAllowed);
    EXPECT_TRUE(policy.ibmFavored);
}

TEST(IbmInPolicyTest, AllowedOrFavoredSuffices) {
    RuntimeSearchPolicy policy;
    EXPECT_FALSE(IbmInPolicy(policy));
    policy.ibmAllowed = true;
    EXPECT_TRUE(IbmInPolicy(policy));
    policy.ibmAllowed = false;
    policy.ibmFavored = true;
    EXPECT_TRUE(IbmInPolicy(policy));
}

}  // namespace
}  // namespace tarn
