#include "tools/settings/ini_encoding.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarn::tools {
namespace {

using namespace std::string_view_literals;

DecodedIni Decode(std::string_view bytes) {
    return DecodeIni(std::as_bytes(std::span(bytes)));
}

TEST(IniEncodingTest, IsRecognised) {
    EXPECT_EQ(Decode("").encoding, IniEncoding::Ascii);
    EXPECT_EQ(Decode("[A]\r\nb=c").encoding, IniEncoding::Ascii);
    EXPECT_EQ(Decode("b=\xC3\xBC").encoding, IniEncoding::Utf8);
    EXPECT_EQ(Decode("\xEF\xBB\xBF[A]").encoding, IniEncoding::Utf8WithMark);
    EXPECT_EQ(Decode("b=\xFC").encoding, IniEncoding::CodePage);
    EXPECT_EQ(Decode("\xFF\xFE[\0"sv).encoding, IniEncoding::Utf16);
    EXPECT_EQ(Decode("[\0A\0]\0"sv).encoding, IniEncoding::Utf16WithoutMark);
    EXPECT_EQ(Decode("\xFE\xFF\0["sv).encoding, IniEncoding::Utf16BigEndian);
    EXPECT_EQ(Decode("\xFF\xFE\0\0[\0\0\0"sv).encoding, IniEncoding::Utf32);
}

TEST(IniEncodingTest, DecidesHowTheTextIsDecoded) {
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

TEST(IniEncodingTest, Of8BitTextIsWindows1252) {
    EXPECT_EQ(Decode("\xE4 \x80\x81").text, L"\u00E4 \u20AC\u0081");
}

TEST(IniEncodingTest, JoinsSurrogatesAndReplacesLoneOnes) {
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8\x00\xDE"sv).text, L"\U0001F600");
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8x\0"sv).text, L"\uFFFDx");
    EXPECT_EQ(Decode("\xFF\xFE\x00\xDE"sv).text, L"\uFFFD");
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8"sv).text, L"\uFFFD");
}

TEST(IniEncodingTest, ReportsHalfACodeUnit) {
    EXPECT_TRUE(Decode("\xFF\xFE[\0x"sv).hasOddByte);
    EXPECT_FALSE(Decode("\xFF\xFE[\0"sv).hasOddByte);
}

}  // namespace
}  // namespace tarn::tools
