#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(StructureRulesTest, AcceptsKnownSectionsAndKeys) {
    EXPECT_THAT(
        Check(CheckStructure, L"[application]\nFAILURE CHECK=Yes\n[Display+]\nSplash Screen=x"),
        IsEmpty());
}

TEST(StructureRulesTest, SuggestsTheIntendedSection) {
    EXPECT_THAT(Check(CheckStructure, L"[Aplication]\nx=y"),
                ElementsAre("1 warning unknown-section"));
    EXPECT_EQ(AdviceOf(CheckStructure, L"[Aplication]"), "did you mean [Application]?");
    EXPECT_THAT(AdviceOf(CheckStructure, L"[ Application ]"), HasSubstr("write [Application]"));
    EXPECT_THAT(AdviceOf(CheckStructure, L"[JavaRuntimeEnvironment+]"),
                HasSubstr("[Java Runtime Environment]"));
    EXPECT_THAT(AdviceOf(CheckStructure, L"[Colours]"), HasSubstr("remove it"));
}

TEST(StructureRulesTest, SuggestsTheIntendedKey) {
    EXPECT_THAT(Check(CheckStructure, L"[Application]\n\nFailure Chek=Yes"),
                ElementsAre("3 warning unknown-key"));
    EXPECT_EQ(AdviceOf(CheckStructure, L"[Application]\nFailure Chek=Yes"),
              "did you mean \"Failure Check\"?");
    // The correct spelling of a key that is misspelt permanently.
    EXPECT_EQ(AdviceOf(CheckStructure, L"[Display]\nPrefer Native Splash Screen=Yes"),
              "did you mean \"Preffer Native Splash Screen\"?");
    EXPECT_EQ(AdviceOf(CheckStructure, L"[Application]\nJVM Typ=server"),
              "did you mean \"JVM Type\" of [Java Runtime Environment]?");
}

TEST(StructureRulesTest, SuggestsTheRightSectionOfAKey) {
    EXPECT_THAT(Check(CheckStructure, L"[Application]\nMain Class=a.B"),
                ElementsAre("2 warning misplaced-key"));
    EXPECT_EQ(AdviceOf(CheckStructure, L"[Application]\nMain Class=a.B"),
              "move it to [Java Runtime Environment]");
}

TEST(StructureRulesTest, WarnsAboutRepeatedSectionsAndKeys) {
    EXPECT_THAT(Check(CheckStructure, L"[Application]\nCmd=1\ncmd=2\n[APPLICATION]\nCmd=3"),
                ElementsAre("3 warning repeated-key", "4 warning repeated-section"));
}

TEST(StructureRulesTest, WarnsAboutLinesThatAreNotSettings) {
    EXPECT_THAT(Check(CheckStructure, L"Cmd=1\n[Application]\n# x=y\nword\n[Open"),
                ElementsAre("1 warning outside-section", "3 warning not-a-comment",
                            "4 warning stray-line", "5 warning stray-line"));
}

TEST(AdditiveRulesTest, WarnAboutValuesThatAreNotLists) {
    EXPECT_THAT(
        Check(CheckAdditiveSections,
              L"[Java Runtime Environment+]\nVirtual Machine Parameters=-Xmx1g\n[Class Path+]\n"
              L"Class Path=a.jar\n[Application+]\nCmd=x"),
        IsEmpty());
    EXPECT_THAT(Check(CheckAdditiveSections, L"[Application+]\nSingle Instance=yes"),
                ElementsAre("2 warning additive-blank"));
    EXPECT_THAT(Check(CheckAdditiveSections, L"[Java Runtime Environment+]\nMain Class=a.B"),
                ElementsAre("2 warning additive-blank"));
}

TEST(AdditiveRulesTest, WarnAboutOverriddenValues) {
    EXPECT_THAT(Check(CheckAdditiveSections, L"[Application]\nCmd=x\n[Application+]\nCmd=y"),
                ElementsAre("4 warning additive-overridden"));
    EXPECT_THAT(Check(CheckAdditiveSections, L"[Application]\nCmd=\n[Application+]\nCmd=y"),
                IsEmpty());
}

TEST(AdditiveRulesTest, WarnAboutKeysThatAreReadFromTheMainFileOnly) {
    EXPECT_THAT(Check(CheckAdditiveSections, L"[Display+]\nSplash Screen=a.png"),
                ElementsAre("2 warning additive-unread"));
}

}  // namespace
}  // namespace tarn::tools
