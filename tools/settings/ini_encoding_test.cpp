#include "tools/settings/ini_encoding.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarn::tools {
namespace {

using namespace std::string_view_literals;

DecodedIni Decode(std::string_view bytes) {
    return DecodeIni(std::as_bytes(std::span(bytes)));
}

TEST(IniEncodingTest, TellsTheEncodingsApart) {
    EXPECT_EQ(Decode("").encoding, IniEncoding::kAscii);
    EXPECT_EQ(Decode("[A]\r\nb=c").encoding, IniEncoding::kAscii);
    EXPECT_EQ(Decode("b=\xC3\xBC").encoding, IniEncoding::kUtf8);
    EXPECT_EQ(Decode("\xEF\xBB\xBF[A]").encoding, IniEncoding::kUtf8WithMark);
    EXPECT_EQ(Decode("b=\xFC").encoding, IniEncoding::kCodePage);
    EXPECT_EQ(Decode("\xFF\xFE[\0"sv).encoding, IniEncoding::kUtf16);
    EXPECT_EQ(Decode("[\0A\0]\0"sv).encoding, IniEncoding::kUtf16WithoutMark);
    EXPECT_EQ(Decode("\xFE\xFF\0["sv).encoding, IniEncoding::kUtf16BigEndian);
    EXPECT_EQ(Decode("\xFF\xFE\0\0[\0\0\0"sv).encoding, IniEncoding::kUtf32);
}

TEST(IniEncodingTest, GivesTheTextAsItWasMeant) {
    EXPECT_EQ(Decode("b=\xC3\xBC").text, L"b=ü");
    EXPECT_EQ(Decode("\xEF\xBB\xBF"
                     "b")
                  .text,
              L"b");
    EXPECT_EQ(Decode("b=\xFC").text, L"b=ü");
    EXPECT_EQ(Decode("\xFF\xFE"
                     "b\0\xFC\0"sv)
                  .text,
              L"bü");
    EXPECT_EQ(Decode("\xFE\xFF\0b\0\xFC"sv).text, L"bü");
    EXPECT_EQ(Decode("\xFF\xFE\0\0b\0\0\0\xFC\0\0\0"sv).text, L"bü");
}

TEST(IniEncodingTest, JoinsSurrogatesAndReplacesLoneOnes) {
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8\x00\xDE"sv).text, L"\U0001F600");
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8x\0"sv).text, L"\uFFFDx");
    EXPECT_EQ(Decode("\xFF\xFE\x00\xDE"sv).text, L"\uFFFD");
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8"sv).text, L"\uFFFD");
}

TEST(IniEncodingTest, NoticesHalfACharacter) {
    EXPECT_TRUE(Decode("\xFF\xFE[\0x"sv).hasOddByte);
    EXPECT_FALSE(Decode("\xFF\xFE[\0"sv).hasOddByte);
}

}  // namespace
}  // namespace tarn::tools
