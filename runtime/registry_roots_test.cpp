#include "runtime/registry_roots.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tarn {
namespace {

/// The numbers of the roots, '1' to '7', for which `test` is true.
template <typename Test>
std::string Which(Test test) {
    std::string digits;
    char digit = '1';
    for (const RegistryRoot& root : RegistryRoots()) {
        if (test(root)) digits += digit;
        ++digit;
    }
    return digits;
}

std::string Searched(const wchar_t* source, const wchar_t* provider) {
    RuntimeSearchPolicy policy;
    ApplyJvmSource(source, policy);
    ApplyVmProvider(provider, policy);
    return Which([&](const RegistryRoot& root) {
        return IsKindSearched(root, policy) && IsProviderSearched(root, policy);
    });
}

std::string Favored(const wchar_t* source, const wchar_t* provider) {
    RuntimeSearchPolicy policy;
    ApplyJvmSource(source, policy);
    ApplyVmProvider(provider, policy);
    return Which([&](const RegistryRoot& root) { return IsFavored(root, policy); });
}

TEST(RegistryRootsTest, HasTheKeysInOrder) {
    std::vector<std::wstring> keys;
    for (const RegistryRoot& root : RegistryRoots()) keys.emplace_back(root.key);
    const std::vector<std::wstring> expected = {
        L"Software\\JavaSoft\\JDK",
        L"Software\\JavaSoft\\JRE",
        L"Software\\JavaSoft\\Java Development Kit",
        L"Software\\JavaSoft\\Java Runtime Environment",
        L"Software\\JRockit\\Java Runtime Environment",
        L"Software\\JRockit\\Java Development Kit",
        L"Software\\IBM\\Java2 Runtime Environment",
    };
    EXPECT_EQ(keys, expected);
}

TEST(RegistryRootsTest, EachProviderWordAdmitsItsRoots) {
    EXPECT_EQ(Searched(L"", L""), "1234");
    EXPECT_EQ(Searched(L"", L"sun"), "1234");
    EXPECT_EQ(Searched(L"", L"jrockit"), "56");
    EXPECT_EQ(Searched(L"", L"IBM"), "7");
    for (const wchar_t* all : {L"favor_sun", L"favor_jrockit", L"favor_ibm", L"any"}) {
        EXPECT_EQ(Searched(L"", all), "1234567");
    }
}

TEST(RegistryRootsTest, EachSourceWordAdmitsItsRoots) {
    EXPECT_EQ(Searched(L"favor_JRE", L"any"), "1234567");
    EXPECT_EQ(Searched(L"favor_JDK", L"any"), "1234567");
    EXPECT_EQ(Searched(L"only_JDK", L"any"), "136");
    EXPECT_EQ(Searched(L"only_JRE", L"any"), "2457");
    EXPECT_EQ(Searched(L"Favor_JRE", L"any"), "");
    EXPECT_EQ(Searched(L"only_JDK", L"ibm"), "");
}

TEST(RegistryRootsTest, FavoursTheWantedKindsOfTheFavouredProvider) {
    EXPECT_EQ(Favored(L"", L""), "1234");
    EXPECT_EQ(Favored(L"favor_JRE", L""), "24");
    EXPECT_EQ(Favored(L"favor_JDK", L""), "13");
    EXPECT_EQ(Favored(L"only_JDK", L"favor_sun"), "13");
    EXPECT_EQ(Favored(L"", L"favor_jrockit"), "56");
    EXPECT_EQ(Favored(L"favor_JRE", L"jrockit"), "5");
    EXPECT_EQ(Favored(L"favor_JDK", L"jrockit"), "6");
    EXPECT_EQ(Favored(L"", L"favor_ibm"), "7");
    EXPECT_EQ(Favored(L"favor_JDK", L"ibm"), "");
    EXPECT_EQ(Favored(L"", L"any"), "");
    EXPECT_EQ(Favored(L"nonsense", L""), "");
}

TEST(RegistryRootsTest, AllowedOrFavoredAloneAdmitsAProvider) {
    RuntimeSearchPolicy policy;
    policy.sunAllowed = false;
    policy.sunFavored = false;
    policy.ibmFavored = true;
    policy.jrockitAllowed = true;
    EXPECT_EQ(Which([&](const RegistryRoot& root) { return IsProviderSearched(root, policy); }),
              "567");
}

TEST(RegistryRootsTest, OnlyTheOlderRuntimeRootIgnoresFavorServer) {
    EXPECT_EQ(Which([](const RegistryRoot& root) {
                  return JvmTypeIn(root, JvmType::FavorServer) == JvmType::Default;
              }),
              "4");
    for (const JvmType type : {JvmType::Default, JvmType::Server}) {
        EXPECT_EQ(Which([=](const RegistryRoot& root) { return JvmTypeIn(root, type) == type; }),
                  "1234567");
    }
}

TEST(RegistryRootsTest, OlderDevelopmentKitsContainTheirRuntime) {
    EXPECT_EQ(Which([](const RegistryRoot& root) {
                  return HomeOf(root, L"C:\\Java\\x") == L"C:\\Java\\x\\jre\\";
              }),
              "36");
    EXPECT_EQ(Which([](const RegistryRoot& root) {
                  return HomeOf(root, L"C:\\Java\\x") == L"C:\\Java\\x\\";
              }),
              "12457");
    for (const RegistryRoot& root : RegistryRoots()) {
        EXPECT_EQ(HomeOf(root, L"C:\\Java\\x\\"), HomeOf(root, L"C:\\Java\\x"));
    }
}

std::wstring TextOf(std::initializer_list<int> bytes) {
    std::vector<std::byte> data;
    for (const int byte : bytes) data.push_back(static_cast<std::byte>(byte));
    return TextOfValue(data);
}

TEST(TextOfValueTest, ReadsUpToTheFirstZeroOrTheEnd) {
    EXPECT_EQ(TextOf({'a', 0, 'b', 0, 0, 0}), L"ab");
    EXPECT_EQ(TextOf({'a', 0, 'b', 0}), L"ab");
    EXPECT_EQ(TextOf({'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}), L"a");
    EXPECT_EQ(TextOf({0x3A, 0x26}), L"\u263A");
    EXPECT_EQ(TextOf({0, 1}), L"\u0100");
}

TEST(TextOfValueTest, IgnoresAnOddByte) {
    EXPECT_EQ(TextOf({'a', 0, 'b'}), L"a");
    EXPECT_EQ(TextOf({'a'}), L"");
    EXPECT_EQ(TextOf({'a', 0, 0}), L"a");
}

TEST(TextOfValueTest, ReadsNoDataAsAnEmptyText) {
    EXPECT_EQ(TextOf({}), L"");
    EXPECT_EQ(TextOf({0}), L"");
    EXPECT_EQ(TextOf({0, 0}), L"");
    EXPECT_EQ(TextOf({0, 0, 'a', 0}), L"");
}

}  // namespace
}  // namespace tarn
