#include "jvm/fast_start.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace tarn {
namespace {

using Bytes = std::vector<std::byte>;

std::span<const std::byte> BytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

/// The end record of a zip file whose directory has this size, and what follows it.
std::string EndRecord(std::uint32_t directorySize, std::string_view comment = {}) {
    std::string record = "PK\x05\x06";
    record.resize(22, '\0');
    std::memcpy(record.data() + 12, &directorySize, sizeof directorySize);
    return record.append(comment);
}

std::uint64_t FingerprintOf(std::string_view bytes) {
    Fingerprint fingerprint;
    fingerprint.Add(BytesOf(bytes));
    return fingerprint.value();
}

std::string Release(std::string_view version) {
    return "IMPLEMENTOR=\"x\"\nJAVA_VERSION=\"" + std::string(version) + "\"\n";
}

TEST(WritesArchives, FromJava21On) {
    for (const char* const version : {"1.8.0_392", "8", "11.0.13", "17.0.9", "20"}) {
        EXPECT_FALSE(WritesArchives(Release(version))) << version;
    }
    for (const char* const version : {"21", "21.0.8", "25-ea", "100"}) {
        EXPECT_TRUE(WritesArchives(Release(version))) << version;
    }
}

TEST(WritesArchives, NotWithoutAVersion) {
    for (const char* const text : {"", "JAVA_VERSION=", "JAVA_VERSION=\"x\"", "VERSION=21"}) {
        EXPECT_FALSE(WritesArchives(text)) << text;
    }
}

TEST(WritesArchives, TheCharacterAfterTheDigitsEndsTheNumber) {
    for (const char* const version : {"2:", "2/1", "2 1"}) {
        EXPECT_FALSE(WritesArchives(Release(version))) << version;
    }
}

TEST(WritesArchives, AVersionOfAnyLengthIsRead) {
    EXPECT_TRUE(WritesArchives("JAVA_VERSION=" + std::string(1000, '9')));
}

TEST(RulesOutArchiveTest, FindsOptionsForAnotherArchive) {
    EXPECT_TRUE(RulesOutArchive("-XX:SharedArchiveFile=C:\\x.jsa"));
    EXPECT_TRUE(RulesOutArchive("-XX:+AutoCreateSharedArchive"));
    EXPECT_TRUE(RulesOutArchive("-XX:AOTCache=C:\\x.aot"));
}

TEST(RulesOutArchiveTest, FindsOptionsThatEndAJvmThatIsToWriteOne) {
    for (const char* const option :
         {"-javaagent:a.jar", "-agentlib:jdwp=server=y", "-agentpath:C:\\a.dll",
          "-Xrunjdwp:server=y", "--limit-modules=java.base", "--patch-module=a.b=c.jar",
          "--upgrade-module-path=modules"}) {
        EXPECT_TRUE(RulesOutArchive(option)) << option;
        EXPECT_TRUE(RulesOutArchive("-Da=b " + std::string(option) + " -Xmx1g")) << option;
    }
}

TEST(RulesOutArchiveTest, AcceptsOtherOptions) {
    for (const char* const option :
         {"", "-Xmx1g", "-XX:+UseSerialGC", "--module-path=modules", "--add-modules=a.b",
          "--add-opens=java.base/java.lang=ALL-UNNAMED", "-Dhttp.agent=Notes",
          "%JAVA_TOOL_OPTIONS% %_JAVA_OPTIONS% "}) {
        EXPECT_FALSE(RulesOutArchive(option)) << option;
    }
}

TEST(FingerprintTest, DependsOnEachBitAndTheLength) {
    const std::string text = "a directory of 29 bytes, say.";
    for (std::size_t bit = 0; bit < 8 * text.size(); ++bit) {
        std::string changed = text;
        changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ 1 << bit % 8);
        EXPECT_NE(FingerprintOf(changed), FingerprintOf(text)) << bit;
    }
    EXPECT_NE(FingerprintOf(text + '\0'), FingerprintOf(text));
    EXPECT_EQ(FingerprintOf(text), FingerprintOf(text));
}

TEST(FingerprintTest, DependsOnTheOrderOfThePieces) {
    Fingerprint one;
    one.Add(L"a.jar");
    one.Add(L"b.jar");
    Fingerprint other;
    other.Add(L"b.jar");
    other.Add(L"a.jar");
    EXPECT_NE(one.value(), other.value());
}

TEST(ZipDirectoryDistance, ReachesTheDirectoryAcrossTheTwoRecordsOfLargeFiles) {
    const std::string records(56 + 20, '#');
    const std::string fromDirectory = std::string(100, 'd') + records + EndRecord(100);
    EXPECT_EQ(ZipDirectoryDistance(BytesOf("entries" + fromDirectory)), fromDirectory.size());
}

TEST(ZipDirectoryDistance, CountsWhatFollowsTheEndRecord) {
    const std::string comment(70, '#');
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(100, comment))),
              ZipDirectoryDistance(BytesOf(EndRecord(100))) + 70);
}

TEST(ZipDirectoryDistance, ReachesADirectoryBeforeTheTail) {
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(0x40000000))) - 0x40000000U,
              ZipDirectoryDistance(BytesOf(EndRecord(100))) - 100);
}

TEST(ZipDirectoryDistance, IsZeroWhenTheRecordHasNoUsableSize) {
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(0x40000001))), 0U);
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(0xFFFFFFFF))), 0U);
}

TEST(ZipDirectoryDistance, IsZeroWithoutAnEndRecord) {
    EXPECT_EQ(ZipDirectoryDistance({}), 0U);
    EXPECT_EQ(ZipDirectoryDistance(BytesOf("PK\x05\x06")), 0U);
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(std::string(1000, 'P'))), 0U);
    const std::string cut = EndRecord(5).substr(0, 21);
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(cut)), 0U);
}

}  // namespace
}  // namespace tarn
