#include "instance/shared_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace tarn {
namespace {

TEST(InstanceNameTest, ReplacesBackslashesByUnderscores) {
    EXPECT_EQ(InstanceName(L"C:\\Apps\\sample.exe"), L"C:_Apps_sample.exe");
}

TEST(InstanceNameTest, KeepsAllOtherCharacters) {
    EXPECT_EQ(InstanceName(L"\\\\server\\share\\My App\\a_b/C.exe"),
              L"__server_share_My App_a_b/C.exe");
    EXPECT_EQ(InstanceName(L"sample.exe"), L"sample.exe");
}

TEST(InstanceNameTest, TheReadyEventHasASuffix) {
    EXPECT_EQ(ReadyEventName(L"C:_Apps_sample.exe"), L"C:_Apps_sample.exe_upr_evt");
}

using Arguments = std::vector<std::wstring>;
using Area = std::array<char16_t, kArgumentUnits>;

Area FilledWith(char16_t unit) {
    Area area;
    area.fill(unit);
    return area;
}

Area AreaOf(std::u16string_view units) {
    Area area = FilledWith(u'\0');
    std::copy(units.begin(), units.end(), area.begin());
    return area;
}

// Returns the arguments that the first instance reads when a second one writes `arguments`.
Arguments HandedOver(const Arguments& arguments) {
    Area area = FilledWith(u'x');
    EXPECT_TRUE(EncodeArguments(arguments, area));
    return DecodeArguments(area);
}

TEST(ArgumentUnitsTest, CountsTheTerminatorOfEachArgumentAndOfTheList) {
    EXPECT_EQ(ArgumentUnits({}), 1u);
    EXPECT_EQ(ArgumentUnits({L"a", L"bc", L""}), 2u + 3u + 1u + 1u);
    EXPECT_EQ(ArgumentUnits({std::wstring(30000, L'a')}), 30002u);
}

TEST(EncodeArgumentsTest, TerminatesEachArgumentAndZeroesTheRest) {
    Area area = FilledWith(u'x');
    ASSERT_TRUE(EncodeArguments({L"a", L"bc"}, area));
    EXPECT_EQ(area, AreaOf(std::u16string_view(u"a\0bc\0", 5)));
}

TEST(EncodeArgumentsTest, ZeroesTheWholeAreaWithoutArguments) {
    Area area = FilledWith(u'x');
    ASSERT_TRUE(EncodeArguments({}, area));
    EXPECT_EQ(area, FilledWith(u'\0'));
}

TEST(EncodeArgumentsTest, WritesAnEmptyArgumentAsItsZero) {
    Area area = FilledWith(u'x');
    ASSERT_TRUE(EncodeArguments({L"a", L"", L"b"}, area));
    EXPECT_EQ(area, AreaOf(std::u16string_view(u"a\0\0b\0", 5)));
}

TEST(EncodeArgumentsTest, AcceptsArgumentsOfExactly1038Bytes) {
    const Arguments one = {std::wstring(518, L'x')};
    EXPECT_EQ(HandedOver(one), one);
    const Arguments many(259, L"y");
    EXPECT_EQ(many.size() * 4 + 2, 1038u);
    EXPECT_EQ(HandedOver(many), many);
    const Arguments full = {std::wstring(500, L'x'), std::wstring(17, L'y')};
    EXPECT_EQ(HandedOver(full), full);
}

TEST(EncodeArgumentsTest, RejectsTwoBytesMoreWithoutAChangeOfTheArea) {
    Area area = FilledWith(u'x');
    EXPECT_FALSE(EncodeArguments({std::wstring(519, L'a')}, area));
    EXPECT_FALSE(EncodeArguments({std::wstring(500, L'a'), std::wstring(18, L'b')}, area));
    EXPECT_FALSE(EncodeArguments(Arguments(260, L"a"), area));
    EXPECT_FALSE(EncodeArguments(Arguments(520, L""), area));
    EXPECT_FALSE(EncodeArguments({std::wstring(30000, L'a')}, area));
    EXPECT_EQ(area, FilledWith(u'x'));
}

TEST(DecodeArgumentsTest, ReadsEncodedArguments) {
    const Arguments arguments = {L"C:\\My Files\\a.txt", L"-x", L"\u00e4\u20ac\u4e2d"};
    EXPECT_EQ(HandedOver(arguments), arguments);
}

TEST(DecodeArgumentsTest, KeepsEveryUnitIncludingLoneSurrogates) {
    const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    const std::wstring lone = {static_cast<wchar_t>(0xDE00), L'x', static_cast<wchar_t>(0xFFFF)};
    const Arguments arguments = {pair, lone};
    EXPECT_EQ(HandedOver(arguments), arguments);
}

TEST(DecodeArgumentsTest, ReadsNoArgumentsAsAnEmptyList) {
    EXPECT_EQ(HandedOver({}), Arguments());
}

TEST(DecodeArgumentsTest, AnEmptyArgumentAfterAnotherEndsTheList) {
    EXPECT_EQ(HandedOver({L"a", L"", L"b"}), Arguments({L"a"}));
    EXPECT_EQ(HandedOver({L"a", L""}), Arguments({L"a"}));
}

TEST(DecodeArgumentsTest, AnEmptyArgumentBeforeAnotherIsKept) {
    EXPECT_EQ(HandedOver({L"", L"a"}), Arguments({L"", L"a"}));
    EXPECT_EQ(HandedOver({L"", L"a", L"b"}), Arguments({L"", L"a", L"b"}));
    EXPECT_EQ(HandedOver({L"", L"a", L"", L"b"}), Arguments({L"", L"a"}));
}

TEST(DecodeArgumentsTest, OnlyEmptyArgumentsAreAnEmptyList) {
    EXPECT_EQ(HandedOver({L""}), Arguments());
    EXPECT_EQ(HandedOver({L"", L""}), Arguments());
    EXPECT_EQ(HandedOver(Arguments(519, L"")), Arguments());
}

TEST(DecodeArgumentsTest, TwoEmptyArgumentsAtTheStartEndTheList) {
    EXPECT_EQ(HandedOver({L"", L"", L"b"}), Arguments());
}

TEST(DecodeArgumentsTest, AnUnterminatedArgumentEndsWithTheArea) {
    EXPECT_EQ(DecodeArguments(FilledWith(u'x')), Arguments({std::wstring(520, L'x')}));

    Area area = FilledWith(u'x');
    area[1] = u'\0';
    EXPECT_EQ(DecodeArguments(area), Arguments({L"x", std::wstring(518, L'x')}));
}

TEST(DecodeArgumentsTest, AnUnterminatedArgumentAfterAnEmptyOneEndsWithTheArea) {
    Area area = FilledWith(u'x');
    area[0] = u'\0';
    EXPECT_EQ(DecodeArguments(area), Arguments({L"", std::wstring(519, L'x')}));
}

TEST(DecodeArgumentsTest, AcceptsATerminatorInTheLastUnit) {
    Area area = FilledWith(u'x');
    area.back() = u'\0';
    EXPECT_EQ(DecodeArguments(area), Arguments({std::wstring(519, L'x')}));
}

// The address sanitizer detects a read beyond the heap block.
TEST(DecodeArgumentsTest, DoesNotReadBeyondTheArea) {
    const auto area = std::make_unique<Area>(FilledWith(u'z'));
    EXPECT_EQ(DecodeArguments(*area).size(), 1u);
}

}  // namespace
}  // namespace tarn
