#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring Options(const std::wstring& options) {
    return L"[Java Runtime Environment]\nVirtual Machine Parameters=" + options;
}

TEST(MemoryRulesTest, AcceptsSizesAndPercentages) {
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xms64m -Xmx1G -Xss1m -Xmn32M")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xms25p -Xmx50:256:4096P -Xss1:1p")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx1:64:4096t")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx%MY_HEAP%")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx536870912")), IsEmpty());
}

TEST(MemoryRulesTest, RejectsMalformedSizes) {
    const struct {
        const wchar_t* written;
        const char* advice;
    } cases[] = {
        {L"-Xmx512MB", "write -Xmx512M"},
        {L"-Xmx512mb", "write -Xmx512m"},
        {L"-Xmx=512m", "write -Xmx512m"},
        {L"-Xmx50%", "write -Xmx50p for percent of the machine's memory"},
        {L"-Xmx0.5g", "write a whole number and k, m or g: -Xmx512m"},
        {L"-Xmx", "write the size without a space before it: -Xmx512m"},
        {L"-Xmx512", "write a size with its unit, such as -Xmx512m"},
        {L"-Xmn1x", "write a whole number and k, m or g: -Xmn512m"},
    };
    for (const auto& one : cases) {
        EXPECT_THAT(Check(CheckMemorySizes, Options(one.written)), ElementsAre("2 error size"))
            << one.written;
        EXPECT_EQ(AdviceOf(CheckMemorySizes, Options(one.written)), one.advice);
    }
}

TEST(MemoryRulesTest, WarnsAboutAStackSizeWithoutUnit) {
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xss1024")), ElementsAre("2 error stack-size"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xss1048576")),
                ElementsAre("2 warning stack-size"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xss2g")), ElementsAre("2 error stack-size"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xss0")), ElementsAre("2 warning stack-size"));
}

TEST(MemoryRulesTest, RejectsPercentagesThatWrap) {
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50t")),
                ElementsAre("2 error percentage-wraps"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx2T")),
                ElementsAre("2 error percentage-wraps"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50:2097152p")),
                ElementsAre("2 error percentage-wraps"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50:2097151p")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx1t")), ElementsAre("2 warning percentage"));
}

TEST(MemoryRulesTest, WarnsAboutMisreadPercentages) {
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx=50p")), ElementsAre("2 error percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmxp")), ElementsAre("2 error percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx0p")), ElementsAre("2 error percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx200p")), ElementsAre("2 warning percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50:64m:512mp")),
                ElementsAre("2 warning percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50:512:64p")),
                ElementsAre("2 warning percentage"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xmx50:1:2:3p")),
                ElementsAre("2 warning percentage"));
}

TEST(MemoryRulesTest, ComparesTheLastSizeOfEachKind) {
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xms2g -Xmx1g")),
                ElementsAre("2 error heap-order"));
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xms2g -Xmx1g -Xmx4g")), IsEmpty());
    EXPECT_THAT(Check(CheckMemorySizes, Options(L"-Xms2g -Xmx50p")), IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
