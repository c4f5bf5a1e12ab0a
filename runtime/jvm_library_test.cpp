#include "runtime/jvm_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarn {
namespace {

std::vector<std::wstring> Paths(JvmType type) {
    std::vector<std::wstring> paths;
    for (const JvmLibraryPlace& place : JvmLibraryPlaces(type)) paths.emplace_back(place.path);
    return paths;
}

TEST(JvmLibraryPlacesTest, EachTypeHasItsOrder) {
    const std::wstring server = L"bin\\server\\jvm.dll";
    const std::wstring client = L"bin\\client\\jvm.dll";
    const std::wstring classic = L"bin\\classic\\jvm.dll";
    const std::wstring hotspot = L"bin\\hotspot\\jvm.dll";
    const std::wstring jrockit = L"bin\\jrockit\\jvm.dll";
    EXPECT_THAT(Paths(JvmType::Server), testing::ElementsAre(server));
    EXPECT_THAT(Paths(JvmType::Default),
                testing::ElementsAre(client, classic, hotspot, server, jrockit));
    EXPECT_THAT(Paths(JvmType::FavorServer),
                testing::ElementsAre(server, client, classic, hotspot, server, jrockit));
}

TEST(JvmLibraryPlacesTest, OnlyTheServerFolderContainsAServerJvm) {
    for (const JvmLibraryPlace& place : JvmLibraryPlaces(JvmType::FavorServer)) {
        EXPECT_EQ(place.server, place.path == L"bin\\server\\jvm.dll");
    }
}

TEST(CutComponentsTest, CutsAtTheLastBackslashEachTime) {
    EXPECT_EQ(CutComponents(L"C:\\a\\b\\c.dll", 0), L"C:\\a\\b\\c.dll");
    EXPECT_EQ(CutComponents(L"C:\\a\\b\\c.dll", 1), L"C:\\a\\b");
    EXPECT_EQ(CutComponents(L"C:\\a\\b\\c.dll", 2), L"C:\\a");
    EXPECT_EQ(CutComponents(L"C:\\a\\\\c.dll", 2), L"C:\\a");
}

TEST(CutComponentsTest, KeepsATextWithoutABackslash) {
    EXPECT_EQ(CutComponents(L"C:\\c.dll", 3), L"C:");
    EXPECT_EQ(CutComponents(L"bin/server/jvm.dll", 3), L"bin/server/jvm.dll");
    EXPECT_EQ(CutComponents(L"", 3), L"");
}

TEST(CutComponentsTest, FindsHomeAndBinOfARuntime) {
    const wchar_t* library = L"C:\\Java\\jdk\\jre\\bin\\server\\jvm.dll";
    EXPECT_EQ(RuntimeHomeOf(library), L"C:\\Java\\jdk\\jre");
    EXPECT_EQ(RuntimeBinOf(library), L"C:\\Java\\jdk\\jre\\bin");
}

}  // namespace
}  // namespace tarn
