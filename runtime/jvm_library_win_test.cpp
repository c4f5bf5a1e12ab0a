#include "runtime/jvm_library.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>

#include "base/environment.h"
#include "tests/unit_support/folder_fixture.h"

namespace tarn {
namespace {

/// The result for a runtime with a `jvm.dll` in each of the folders. The flag is empty when it was
/// not set.
struct Selection {
    std::wstring path;
    std::optional<bool> server;

    bool operator==(const Selection&) const = default;
};

Selection Select(std::initializer_list<const wchar_t*> folders, JvmType type) {
    const FolderFixture home;
    for (const wchar_t* folder : folders) {
        home.Write(std::wstring(L"bin\\") + folder + L"\\jvm.dll");
    }
    bool first = true;
    bool second = false;
    const std::wstring path = SelectJvmLibrary(home.path(), type, first);
    EXPECT_EQ(SelectJvmLibrary(home.path(), type, second), path);
    Selection selection;
    if (first == second) selection.server = first;
    if (!path.empty()) {
        EXPECT_EQ(path.substr(0, home.path().size()), home.path());
        selection.path = path.substr(home.path().size());
    }
    return selection;
}

TEST(SelectJvmLibraryTest, AClientJvmPrecedesAServerJvmThatIsNotRequested) {
    EXPECT_EQ(Select({L"client", L"server"}, JvmType::Default),
              (Selection{L"bin\\client\\jvm.dll", false}));
    EXPECT_EQ(Select({L"client", L"server"}, JvmType::FavorServer),
              (Selection{L"bin\\server\\jvm.dll", true}));
    EXPECT_EQ(Select({L"client", L"server"}, JvmType::Server),
              (Selection{L"bin\\server\\jvm.dll", true}));
}

TEST(SelectJvmLibraryTest, ALoneServerJvmSuitsEveryType) {
    for (const JvmType type : {JvmType::Default, JvmType::FavorServer, JvmType::Server}) {
        EXPECT_EQ(Select({L"server"}, type), (Selection{L"bin\\server\\jvm.dll", true}));
    }
}

TEST(SelectJvmLibraryTest, ARequiredServerJvmHasNoReplacement) {
    EXPECT_EQ(Select({L"client", L"classic", L"hotspot", L"jrockit"}, JvmType::Server),
              (Selection{L"", std::nullopt}));
}

TEST(SelectJvmLibraryTest, TriesTheOtherFoldersInOrder) {
    for (const JvmType type : {JvmType::Default, JvmType::FavorServer}) {
        EXPECT_EQ(Select({L"jrockit"}, type), (Selection{L"bin\\jrockit\\jvm.dll", false}));
        EXPECT_EQ(Select({L"hotspot", L"jrockit"}, type),
                  (Selection{L"bin\\hotspot\\jvm.dll", false}));
        EXPECT_EQ(Select({L"classic", L"hotspot", L"jrockit"}, type),
                  (Selection{L"bin\\classic\\jvm.dll", false}));
        EXPECT_EQ(Select({L"client", L"classic", L"hotspot", L"jrockit"}, type),
                  (Selection{L"bin\\client\\jvm.dll", false}));
    }
    EXPECT_EQ(Select({L"server", L"jrockit"}, JvmType::Default),
              (Selection{L"bin\\server\\jvm.dll", true}));
    EXPECT_EQ(Select({L"hotspot", L"server"}, JvmType::Default),
              (Selection{L"bin\\hotspot\\jvm.dll", false}));
}

TEST(SelectJvmLibraryTest, WithoutAJvmTheFlagIsUnchanged) {
    for (const JvmType type : {JvmType::Default, JvmType::FavorServer, JvmType::Server}) {
        EXPECT_EQ(Select({}, type), (Selection{L"", std::nullopt}));
        EXPECT_EQ(Select({L"minimal"}, type), (Selection{L"", std::nullopt}));
    }
}

TEST(SelectJvmLibraryTest, InvalidHomesHaveNoJvm) {
    bool server = false;
    for (const std::wstring& home :
         {std::wstring(L"Q:\\none\\"), std::wstring(L"\\\\.\\"), std::wstring(L"*\\"),
          std::wstring(L"<>|\"\\"), std::wstring(40000, L'x') + L"\\"}) {
        EXPECT_EQ(SelectJvmLibrary(home, JvmType::Default, server), L"");
    }
}

class PublishJvmLocationTest : public testing::Test {
  protected:
    ~PublishJvmLocationTest() override {
        SetEnvironmentVariableW(L"TARN_JVM_PATH", nullptr);
        SetEnvironmentVariableW(L"TARN_JVM_HOME", nullptr);
    }
};

TEST_F(PublishJvmLocationTest, PublishesLibraryAndHome) {
    PublishJvmLocation(L"C:\\Java\\jdk\\jre\\bin\\server\\jvm.dll");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_JVM_PATH%"), L"C:\\Java\\jdk\\jre\\bin\\server\\jvm.dll");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_JVM_HOME%"), L"C:\\Java\\jdk\\jre");
}

TEST_F(PublishJvmLocationTest, PublishesAPathWithoutFoldersUnchanged) {
    PublishJvmLocation(L"jvm.dll");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_JVM_PATH%"), L"jvm.dll");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_JVM_HOME%"), L"jvm.dll");
}

TEST(FindInRuntimeBinTest, FindsAFileInTheBinFolder) {
    const FolderFixture home;
    const std::wstring splash = home.Write(L"bin\\splashscreen.dll");
    const std::wstring library = home.path() + L"bin\\server\\jvm.dll";
    EXPECT_EQ(FindInRuntimeBin(library, L"splashscreen.dll"), splash);
    EXPECT_EQ(FindInRuntimeBin(library, L"other.dll"), L"");
}

TEST(FindInRuntimeBinTest, UsesAPathWithoutFoldersAsTheFolder) {
    EXPECT_EQ(FindInRuntimeBin(L"jvm.dll", L"splashscreen.dll"), L"");
    // Slashes do not separate components.
    const FolderFixture home;
    home.Write(L"file.dll");
    std::wstring slashed = home.path();
    for (wchar_t& character : slashed) {
        if (character == L'\\') character = L'/';
    }
    EXPECT_EQ(FindInRuntimeBin(slashed, L"file.dll"), slashed + L"file.dll");
}

}  // namespace
}  // namespace tarn
