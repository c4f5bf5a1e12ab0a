#include "tools/stamp/stamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/image/executable.h"
#include "tools/image/small_executable.h"
#include "tools/image/string_table.h"
#include "tools/image/version_info.h"
#include "tools/java/jar_file.h"
#include "tools/java/zip_end.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Bytes Launcher() {
    return SmallExecutable({".text", ".rsrc", ".reloc"}).Content();
}

Bytes Stamped(const Bytes& executable, const StampChanges& changes) {
    std::vector<std::string> warnings;
    Bytes content = Stamp(executable, changes, warnings);
    EXPECT_THAT(warnings, IsEmpty());
    return content;
}

Bytes Jar(std::string_view content) {
    return ZipOf().Add("entry", content).Content();
}

std::string EntryOf(const Bytes& executable) {
    const Bytes entry = *JarFile(executable, "app.exe").Read("entry");
    return std::string(reinterpret_cast<const char*>(entry.data()), entry.size());
}

TEST(StampTest, ChangesOnlyWhatIsRequested) {
    StampChanges changes;
    changes.settings = "[A]\r\n";
    changes.strings = {{210, "text"}};
    changes.versionTexts = {{"ProductName", "App"}, {"Comments", "x"}};
    changes.version = "1.2";
    const Bytes first = Stamped(Launcher(), changes);
    EXPECT_EQ(Stamped(first, {}), first);
    StampChanges second;
    second.versionTexts = {{"Comments", ""}};
    second.settings = "";
    const ResourceTree tree = Executable(Stamped(first, second)).Resources();
    const VersionInfo info = ReadVersionInfo(*FindResource(tree, kResourceVersion, 1));
    EXPECT_EQ(info.Text("ProductName"), "App");
    EXPECT_EQ(info.Text("FileVersion"), "1.2");
    EXPECT_EQ(info.Text("Comments"), "");
    EXPECT_EQ(info.fileVersion, (VersionInfo::Number{1, 2, 0, 0}));
    EXPECT_EQ(StringOf(tree, 210), "text");
    EXPECT_EQ(tree.count(kResourceData), 0U);
}

TEST(StampTest, AlignsAnAppendedJarForASignature) {
    for (const char* const text : {"", "1", "12", "123", "1234", "12345", "123456", "1234567"}) {
        StampChanges changes;
        changes.jar = Jar(text);
        const Bytes stamped = Stamped(Launcher(), changes);
        EXPECT_EQ(stamped.size() % 8, 0U);
        EXPECT_EQ(EntryOf(stamped), text);
        EXPECT_EQ(FindZip(stamped)->end, stamped.size());
    }
}

TEST(StampTest, ReplacesAJarAndKeepsItOnOtherChanges) {
    StampChanges changes;
    changes.jar = Jar("first one, which is longer");
    const Bytes first = Stamped(Launcher(), changes);
    changes.jar = Jar("second");
    const Bytes second = Stamped(first, changes);
    EXPECT_EQ(second, Stamped(Launcher(), changes));
    StampChanges settings;
    settings.settings = std::string(5000, 'x');
    const Bytes third = Stamped(second, settings);
    EXPECT_EQ(EntryOf(third), "second");
    settings.jar = changes.jar;
    EXPECT_EQ(third, Stamped(Launcher(), settings));
}

TEST(StampTest, RejectsASignedFileWithoutTheOption) {
    StampChanges changes;
    changes.jar = Jar("text");
    const Bytes unsignedFile = Stamped(Launcher(), changes);
    Bytes signedFile = unsignedFile;
    StoreU32(signedFile, SmallExecutable::Directory(4),
             static_cast<std::uint32_t>(unsignedFile.size()));
    StoreU32(signedFile, SmallExecutable::Directory(4) + 4, 16);
    signedFile.resize(unsignedFile.size() + 16, std::byte{'s'});
    EXPECT_EQ(EntryOf(signedFile), "text");
    std::vector<std::string> warnings;
    try {
        Stamp(signedFile, {}, warnings);
        FAIL() << "was changed";
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("--drop-signature"));
    }
    StampChanges drop;
    drop.dropsSignature = true;
    EXPECT_EQ(Stamped(signedFile, drop), unsignedFile);
}

TEST(StampTest, WarnsAboutLostPlaceholders) {
    StampChanges changes;
    changes.strings = {{222, "Cannot load %s (%d)"}};
    std::vector<std::string> warnings;
    const Bytes stamped = Stamp(Launcher(), changes, warnings);
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("text 222 had no placeholders")));
    warnings.clear();
    changes.strings = {{222, "%s: %d%%"}};
    Stamp(stamped, changes, warnings);
    EXPECT_THAT(warnings, IsEmpty());
    changes.strings = {{222, "%d: %s"}};
    Stamp(stamped, changes, warnings);
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("text 222 had %s%d")));
}

}  // namespace
}  // namespace tarn::tools
