#include "tools/image/version_info.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

VersionInfo SomeInfo() {
    VersionInfo info;
    info.fileVersion = {1, 2, 3, 4};
    info.productVersion = {5, 6, 7, 65535};
    info.SetText("ProductName", "\xC3\x84pp");
    info.SetText("Comments", "x");
    info.SetText("FileVersion", "1.2.3.4");
    return info;
}

TEST(VersionInfoTest, ReadsBackWhatWasWritten) {
    const Bytes written = WriteVersionInfo(SomeInfo());
    const VersionInfo read = ReadVersionInfo(written);
    EXPECT_EQ(read.fileVersion, SomeInfo().fileVersion);
    EXPECT_EQ(read.productVersion, SomeInfo().productVersion);
    EXPECT_EQ(read.texts, SomeInfo().texts);
    EXPECT_EQ(WriteVersionInfo(read), written);
}

TEST(VersionInfoTest, AnEmptyTextRemovesOne) {
    VersionInfo info = SomeInfo();
    info.SetText("Comments", "");
    info.SetText("Absent", "");
    EXPECT_EQ(info.texts.size(), 2U);
    EXPECT_EQ(info.Text("Comments"), "");
    EXPECT_EQ(info.Text("FileVersion"), "1.2.3.4");
}

TEST(VersionInfoTest, RejectsTruncatedResources) {
    const Bytes written = WriteVersionInfo(SomeInfo());
    for (std::size_t size = 0; size < written.size(); ++size) {
        EXPECT_THROW(ReadVersionInfo(ByteSpan(written).first(size)), Failure) << size;
    }
    VersionInfo large;
    large.SetText("Comments", std::string(40000, 'x'));
    EXPECT_THROW(WriteVersionInfo(large), Failure);
}

TEST(VersionInfoTest, EndsAtANodeWithoutSize) {
    Bytes written = WriteVersionInfo(SomeInfo());
    // The size of the first node below the root.
    StoreU16(written, 40 + 52, 0);
    EXPECT_THROW(ReadVersionInfo(written), Failure);
}

TEST(VersionNumber, IsTheFirstFourNumbersOfAText) {
    using Number = VersionInfo::Number;
    EXPECT_EQ(VersionNumberOf("2.1.0"), (Number{2, 1, 0, 0}));
    EXPECT_EQ(VersionNumberOf("v2.1-beta3"), (Number{2, 1, 3, 0}));
    EXPECT_EQ(VersionNumberOf("1.2.3.4.5"), (Number{1, 2, 3, 4}));
    EXPECT_EQ(VersionNumberOf("20260321"), (Number{65535, 0, 0, 0}));
    EXPECT_EQ(VersionNumberOf("final"), (Number{}));
}

}  // namespace
}  // namespace tarn::tools
