// The arguments of a second launch as the running application receives them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/single_instance_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;

class HandOffArguments : public SingleInstanceFixture {};

TEST_F(HandOffArguments, NoArgumentsAreAnEmptyArray) {
    const auto first = StartFirst(L"own arguments");
    EXPECT_EQ(Second(L"before"), 0);
    EXPECT_EQ(Second(), 0);
    app.Log().WaitFor(std::string(kVoidCall) + "[])");
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["before"])", "[]"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, AnEmptyArgumentAfterAnotherEndsTheList) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"a \"\" b"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["a"])"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, AnEmptyArgumentBeforeAFileIsKept) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"\"\" file.txt"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["", "file.txt"])"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, OnlyEmptyArgumentsAreAnEmptyArray) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"\"\""), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_EQ(Second(L"\"\" \"\""), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 2; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre("[]", "[]"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, TwoEmptyArgumentsAtTheStartEndTheList) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"\"\" \"\" b"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre("[]"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, UnitsArriveUnchanged) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"\u00E4\u20AC\u4E2D \U0001F600 \"x\xD83D y\" \xDE00"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(),
                ElementsAre("[\"\u00E4\u20AC\u4E2D\", \"\U0001F600\", \"x\\uD83D y\", "
                            "\"\\uDE00\"]"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, Accepts1038BytesOfArguments) {
    const auto first = StartFirst();
    // 2 * (500 + 1) + 2 * (17 + 1)
    const std::wstring arguments = std::wstring(500, L'x') + L' ' + std::wstring(17, L'y');
    EXPECT_EQ(Second(arguments), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre("[\"" + std::string(500, 'x') + "\", \"" +
                                              std::string(17, 'y') + "\"]"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, RejectsTwoBytesMoreWithoutARequest) {
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"before"), 0);
    EXPECT_EQ(Second(std::wstring(500, L'x') + L' ' + std::wstring(18, L'y')), -1);
    EXPECT_EQ(Second(std::wstring(30000, L'x')), -1);
    EXPECT_EQ(InstanceBlock::Open(app.Executable()).Arguments(), u"before");
    EXPECT_EQ(Second(L"after"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 2; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["before"])", R"(["after"])"));
    EndFirst(*first);
}

TEST_F(HandOffArguments, ArgumentsOfTheSettingsAreNotHandedOver) {
    settings.Application(L"Cmd", L"from settings");
    const auto first = StartFirst();
    EXPECT_EQ(Second(L"mine"), 0);
    EXPECT_TRUE(WaitUntil([&] { return SecondaryCalls().size() == 1; }));
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["mine"])"));
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
