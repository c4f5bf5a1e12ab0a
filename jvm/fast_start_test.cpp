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

TEST(WritesArchives, AVersionOfAnyLengthIsRead) {
    EXPECT_TRUE(WritesArchives("JAVA_VERSION=" + std::string(1000, '9')));
}

TEST(FingerprintTest, DependsOnEachByteAndTheLength) {
    const std::string text = "a directory of 29 bytes, say.";
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string changed = text;
        changed[at] ^= 1;
        EXPECT_NE(FingerprintOf(changed), FingerprintOf(text)) << at;
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

TEST(ZipDirectoryDistance, ReachesBeforeTheDirectory) {
    const std::string tail = std::string(500, 'x') + EndRecord(100);
    EXPECT_GE(ZipDirectoryDistance(BytesOf(tail)), 122U);
    EXPECT_LE(ZipDirectoryDistance(BytesOf(tail)), 300U);
}

TEST(ZipDirectoryDistance, CountsWhatFollowsTheEndRecord) {
    const std::string comment(70, '#');
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(100, comment))),
              ZipDirectoryDistance(BytesOf(EndRecord(100))) + 70);
}

TEST(ZipDirectoryDistance, ADirectorySizeOfAnyValueIsReturned) {
    EXPECT_EQ(ZipDirectoryDistance(BytesOf(EndRecord(0x70000000))) - 0x70000000U,
              ZipDirectoryDistance(BytesOf(EndRecord(100))) - 100);
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
