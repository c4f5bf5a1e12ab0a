#include "tools/java/jar_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string TextOf(const std::optional<Bytes>& content) {
    if (!content) return "(absent)";
    return std::string(reinterpret_cast<const char*>(content->data()), content->size());
}

std::string ProblemOf(const Bytes& content) {
    try {
        const JarFile jar(content, "folder/app.jar");
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "";
}

TEST(JarFileTest, ReadsEntriesByName) {
    const Bytes content = ZipOf().Add("a/", "").Add("a/b.txt", "text").Content();
    const JarFile jar(content, "app.jar");
    EXPECT_THAT(jar.Names(), ElementsAre("a/", "a/b.txt"));
    EXPECT_TRUE(jar.Has("a/b.txt"));
    EXPECT_FALSE(jar.Has("A/b.txt"));
    EXPECT_EQ(TextOf(jar.Read("a/b.txt")), "text");
    EXPECT_EQ(TextOf(jar.Read("a/c.txt")), "(absent)");
}

TEST(JarFileTest, IsFoundBetweenOtherData) {
    Bytes content = ZipOf().Add("a", "text").Content();
    content.insert(content.begin(), 1000, std::byte{'x'});
    content.insert(content.end(), 5000, std::byte{'y'});
    EXPECT_EQ(TextOf(JarFile(content, "app.exe").Read("a")), "text");
}

TEST(JarFileTest, MayBeEmpty) {
    const Bytes content = ZipOf().Content();
    EXPECT_TRUE(JarFile(content, "app.jar").Names().empty());
}

TEST(JarFileTest, NamesAFileThatIsNotAZip) {
    EXPECT_THAT(ProblemOf({}), HasSubstr("app.jar: is not a jar"));
    EXPECT_THAT(ProblemOf(Bytes(100000, std::byte{'P'})), HasSubstr("app.jar: is not a jar"));
}

TEST(JarFileTest, RejectsEveryTruncatedFile) {
    const Bytes whole = ZipOf().Add("a", "text").Add("b", "more").Content();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_NE(ProblemOf(Bytes(whole.begin(), whole.begin() + static_cast<long>(size))), "")
            << size;
    }
}

TEST(JarFileTest, RejectsEncryptedEntries) {
    EXPECT_THAT(ProblemOf(ZipOf().Add("a", "text").Add("secret", "text", 1).Content()),
                HasSubstr("app.jar: is encrypted (secret)"));
}

TEST(JarFileTest, ReportsACorruptEntryWhenItIsRead) {
    Bytes content = ZipOf().Add("a", "text").Content();
    const char text[] = {'t', 'e', 'x', 't'};
    const auto place =
        std::search(content.begin(), content.end(), reinterpret_cast<const std::byte*>(text),
                    reinterpret_cast<const std::byte*>(text) + sizeof(text));
    *place = std::byte{'T'};
    const JarFile jar(content, "app.jar");
    EXPECT_THROW(jar.Read("a"), Failure);
}

TEST(JarFileTest, RejectsAnEntryAboveTheLimit) {
    const Bytes content = ZipOf().Add("a", "12345").Content();
    const JarFile jar(content, "app.jar");
    EXPECT_THROW(jar.Read("a", 4), Failure);
    EXPECT_EQ(TextOf(jar.Read("a", 5)), "12345");
}

TEST(JarFileTest, DerivesTheEntryOfAClass) {
    EXPECT_EQ(EntryOfClass("a.b.C$D"), "a/b/C$D.class");
    EXPECT_EQ(EntryOfClass("a/b/C"), "a/b/C.class");
}

}  // namespace
}  // namespace tarn::tools
