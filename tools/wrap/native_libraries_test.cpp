#include "tools/wrap/native_libraries.h"

#include <gmock/gmock.h>

#include "tools/common/folder_fixture.h"
#include "tools/image/small_executable.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(ClassifierTest, NamesTheSystem) {
    EXPECT_EQ(SystemOfClassifier("javafx-graphics-17.0.10-linux.jar"), "Linux");
    EXPECT_EQ(SystemOfClassifier("javafx-graphics-21-mac-aarch64.jar"), "macOS");
    EXPECT_EQ(SystemOfClassifier("x-4.1.100.Final-osx-x86_64.JAR"), "macOS");
    EXPECT_EQ(SystemOfClassifier("x-natives-linux-amd64.jar"), "Linux");
    EXPECT_EQ(SystemOfClassifier("x-1.0-SNAPSHOT-linux.jar"), "Linux");
}

TEST(ClassifierTest, IsNoPartOfAnOrdinaryName) {
    for (const char* const name :
         {"javafx-graphics-17-win.jar", "hash-mac.jar", "linux.jar", "mac-1.0.jar", "x-1.0.jar"}) {
        EXPECT_EQ(SystemOfClassifier(name), "") << name;
    }
}

class NativeLibraries : public FolderTest {
  protected:
    std::vector<std::string> Warnings(const char* name, const ZipOf& zip) const {
        ApplicationJars jars;
        jars.emplace_back(ClassPathFile{Put(name, zip.Content()), name});
        std::vector<std::string> warnings;
        WarnAboutOtherSystems(jars, warnings);
        return warnings;
    }

    static std::string Library(std::uint16_t machine) {
        SmallExecutable library({".text"});
        const Bytes content = library.Set16(SmallExecutable::kPeHeader + 4, machine).Content();
        return std::string(AsText(content));
    }
};

TEST_F(NativeLibraries, ForAnotherSystemGiveAWarning) {
    EXPECT_THAT(Warnings("swt.jar", ZipOf().Add("libswt.so", "x")),
                ElementsAre(HasSubstr("swt.jar: is for Linux")));
    EXPECT_THAT(Warnings("a.jar", ZipOf().Add("natives/libx.dylib", "x")),
                ElementsAre(HasSubstr("macOS")));
    EXPECT_THAT(Warnings("a-1.0-mac.jar", ZipOf().Add("a", "b")), ElementsAre(HasSubstr("macOS")));
    EXPECT_THAT(Warnings("a.jar", ZipOf().Add("x.dll", Library(0x14C))),
                ElementsAre(HasSubstr("32-bit Windows")));
}

TEST_F(NativeLibraries, ForWindowsAndOthersGiveNone) {
    EXPECT_THAT(Warnings("a.jar", ZipOf()
                                      .Add("linux/libx.so", "x")
                                      .Add("win32/x.dll", Library(0x14C))
                                      .Add("win64/x.dll", Library(0x8664))),
                IsEmpty());
    EXPECT_THAT(Warnings("a.jar", ZipOf().Add("a/B.class", "x")), IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
