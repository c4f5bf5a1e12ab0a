#include "tools/check/rules_fixture.h"
#include "tools/check/vm_flags.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::wstring Options(const std::wstring& options, const std::wstring& lowest = L"11",
                     const std::wstring& highest = L"any") {
    return L"[Java Runtime Environment]\nVirtual Machine Parameters=" + options +
           L"\nMinimum Version=" + lowest + L"\nMaximum Version=" + highest;
}

TEST(JvmOptionRulesTest, AcceptsOptionsOfTheJvm) {
    EXPECT_THAT(
        Check(CheckJvmOptions,
              Options(L"-Da=\"b c\" -D -ea -ea:com... -esa -verbose:gc -Xlog:gc* -Xrs -Xshare:auto "
                      L"-javaagent:a.jar --add-opens=java.base/java.lang=ALL-UNNAMED "
                      L"--enable-preview -XX:+UseG1GC -Xint %MY_OPTIONS% -Xmx1g")),
        IsEmpty());
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"")), IsEmpty());
}

TEST(JvmOptionRulesTest, RejectsOptionsOfTheProgramJava) {
    for (const wchar_t* option :
         {L"-server", L"-client", L"-d64", L"-cp", L"-jar", L"-splash:x.png", L"-showversion",
          L"-noverify", L"-Xbootclasspath/p:a.jar", L"-Djava.ext.dirs=x", L"--module=a/b.C"}) {
        EXPECT_THAT(Check(CheckJvmOptions, Options(option)), ElementsAre("2 error refused-option"))
            << option;
    }
    EXPECT_EQ(AdviceOf(CheckJvmOptions, Options(L"-server")), "write JVM Type=server instead");
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-cp a.jar;b.jar")),
                ElementsAre("2 error refused-option"));
}

TEST(JvmOptionRulesTest, RequiresAnEqualsSignBeforeAValue) {
    const std::wstring written =
        Options(L"--add-opens java.base/java.lang=ALL-UNNAMED --add-modules");
    EXPECT_THAT(Check(CheckJvmOptions, written),
                ElementsAre("2 error blank-for-equals", "2 error blank-for-equals"));
    EXPECT_EQ(AdviceOf(CheckJvmOptions, written),
              "write --add-opens=java.base/java.lang=ALL-UNNAMED | write --add-modules=<value>");
}

TEST(JvmOptionRulesTest, SuggestsTheIntendedOption) {
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-XMX1g")), ElementsAre("2 error unknown-option"));
    EXPECT_THAT(AdviceOf(CheckJvmOptions, Options(L"--add-open=a/b=c")), HasSubstr("--add-opens"));
    EXPECT_THAT(AdviceOf(CheckJvmOptions, Options(L"-Da=b c")), HasSubstr("-Da=\"b c\""));
    EXPECT_THAT(AdviceOf(CheckJvmOptions, Options(L"-Xmx 512m")), HasSubstr("-Xmx512m"));
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"UseG1GC")), ElementsAre("2 error not-an-option"));
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-ea \"\" -esa")),
                ElementsAre("2 error not-an-option"));
}

TEST(JvmOptionRulesTest, AcceptsNewOptionsThatAnOlderRuntimeIgnores) {
    const wchar_t options[] =
        L"-XX:+IgnoreUnrecognizedVMOptions --enable-native-access=ALL-UNNAMED";
    EXPECT_THAT(Check(CheckJvmOptions, Options(options, L"11")), IsEmpty());
}

TEST(JvmOptionRulesTest, RejectsOptionsThatAreTooNew) {
    const wchar_t option[] = L"--enable-native-access=ALL-UNNAMED";
    EXPECT_THAT(Check(CheckJvmOptions, Options(option)), ElementsAre("2 warning unknown-option"));
    EXPECT_THAT(Check(CheckJvmOptions, Options(option, L"17")), IsEmpty());
    EXPECT_THAT(Check(CheckJvmOptions, Options(option, L"11", L"11")),
                ElementsAre("2 error unknown-option"));
}

TEST(JvmOptionRulesTest, WarnsAboutQuotesTabsAndOverriddenOptions) {
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-Da=\"b")),
                ElementsAre("2 warning unclosed-quote"));
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-Da=b\t-Dc=d")), ElementsAre("2 warning tab"));
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-Djava.class.path=a.jar")),
                ElementsAre("2 warning overrides-launcher"));
}

TEST(JvmOptionRulesTest, IgnoresOtherJvms) {
    EXPECT_THAT(Check(CheckJvmOptions, Options(L"-Xgcpolicy:gencon") + L"\nVM Provider=ibm"),
                IsEmpty());
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+Odd") + L"\nVM Provider=ibm"), IsEmpty());
}

TEST(VmFlagRulesTest, AcceptsFlagsOfEveryVersion) {
    EXPECT_THAT(
        Check(CheckVmFlags, Options(L"-XX:+UseG1GC -XX:-UseCompressedOops -XX:MaxMetaspaceSize=64m "
                                    L"-XX:MaxRAMPercentage=50.5 -XX:OnError=x -XX:Flags=f "
                                    L"-XX:+HeapDumpOnOutOfMemoryError -XX:HeapDumpPath=%TEMP%")),
        IsEmpty());
}

TEST(VmFlagRulesTest, ReportsAnErrorWhenEveryVersionRefusesOtherwiseAWarning) {
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseG1CG")), ElementsAre("2 error vm-flag"));
    EXPECT_EQ(AdviceOf(CheckVmFlags, Options(L"-XX:+UseG1CG")), "did you mean UseG1GC?");
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseConcMarkSweepGC")),
                ElementsAre("2 warning vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseConcMarkSweepGC", L"17")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseConcMarkSweepGC", L"11", L"11")), IsEmpty());
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseConcMarkSweepGC", L"1.8", L"1.8")),
                IsEmpty());
}

TEST(VmFlagRulesTest, WarnsAboutIgnoredFlags) {
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxPermSize=64m", L"11", L"11")),
                ElementsAre("2 warning vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxPermSize=64m", L"17")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(
        Check(CheckVmFlags, Options(L"-XX:+Nonsense -XX:+IgnoreUnrecognizedVMOptions -XX:+Odd")),
        ElementsAre("2 error vm-flag"));
}

TEST(VmFlagRulesTest, ChecksTheFormsOfSwitchesAndValues) {
    for (const wchar_t* option : {L"-XX:UseG1GC", L"-XX:UseG1GC=true", L"-XX:+MaxHeapSize",
                                  L"-XX:MaxHeapSize", L"-XX:MaxHeapSize=1x", L"-XX:MaxHeapSize="}) {
        EXPECT_THAT(Check(CheckVmFlags, Options(option)), ElementsAre("2 error vm-flag")) << option;
    }
}

TEST(VmFlagRulesTest, RejectsValuesThatAreNotNumbers) {
    for (const wchar_t* option :
         {L"-XX:MaxRAMPercentage=50%", L"-XX:MaxRAMPercentage=half", L"-XX:MaxRAMPercentage=",
          L"-XX:MaxMetaspaceSize=64MB", L"-XX:MaxGCPauseMillis=12.5"}) {
        EXPECT_THAT(Check(CheckVmFlags, Options(option)), ElementsAre("2 error vm-flag")) << option;
    }
    EXPECT_EQ(AdviceOf(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=50%")),
              "write -XX:MaxRAMPercentage=50");
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=50 -XX:MaxRAMPercentage=12.5 "
                                            L"-XX:MaxRAMPercentage=%PERCENT% "
                                            L"-XX:MaxMetaspaceSize=64M -XX:MaxGCPauseMillis=12")),
                IsEmpty());
}

TEST(VmFlagRulesTest, RejectsNumbersOutOfRange) {
    for (const wchar_t* option :
         {L"-XX:MaxRAMPercentage=150", L"-XX:MaxRAMPercentage=-1.0", L"-XX:MaxHeapSize=-1",
          L"-XX:InitiatingHeapOccupancyPercent=101", L"-XX:ThreadStackSize=2m"}) {
        EXPECT_THAT(Check(CheckVmFlags, Options(option)), ElementsAre("2 error vm-flag")) << option;
    }
    EXPECT_EQ(AdviceOf(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=150")), "write 0 to 100");
    EXPECT_EQ(AdviceOf(CheckVmFlags, Options(L"-XX:MaxHeapSize=-1")), "write 0 or more");
    EXPECT_THAT(Check(CheckVmFlags,
                      Options(L"-XX:MaxRAMPercentage=0 -XX:MaxRAMPercentage=100 "
                              L"-XX:InitiatingHeapOccupancyPercent=100 -XX:ThreadStackSize=1024")),
                IsEmpty());
}

TEST(VmFlagRulesTest, RejectsDecimalsThatOldVersionsDoNotRead) {
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=.5")),
                ElementsAre("2 warning vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=.5", L"11", L"17")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:MaxRAMPercentage=.5", L"21")), IsEmpty());
}

TEST(VmFlagRulesTest, RejectsTwoCollectors) {
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseG1GC -XX:+UseSerialGC")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseZGC -ea -XX:+UseParallelGC", L"17")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseG1GC -XX:+UseG1GC -XX:-UseParallelGC")),
                IsEmpty());
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseG1GC -XX:-UseG1GC -XX:+UseSerialGC")),
                IsEmpty());
    EXPECT_THAT(
        Check(CheckVmFlags, Options(L"-XX:+UseParallelGC -XX:+UseParallelOldGC", L"11", L"11")),
        IsEmpty());
}

TEST(VmFlagRulesTest, ReportsLockedFlags) {
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+PrintAssembly")),
                ElementsAre("2 error vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UnlockDiagnosticVMOptions -XX:+PrintAssembly")),
                IsEmpty());
    // Experimental in 11 alone.
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseZGC")), ElementsAre("2 warning vm-flag"));
    EXPECT_THAT(Check(CheckVmFlags, Options(L"-XX:+UseZGC", L"17")), IsEmpty());
}

TEST(VmFlagsTest, HaveACompleteTable) {
    EXPECT_GT(VmFlagNames().size(), 1000U);
    const VmFlag* const flag = FindVmFlag("UseConcMarkSweepGC");
    ASSERT_NE(flag, nullptr);
    EXPECT_EQ(flag->kind, FlagKind::Switch);
    EXPECT_EQ(NameVersions(flag->known), "11");
    EXPECT_EQ(FindVmFlag("MaxHeapSize")->kind, FlagKind::Number);
    EXPECT_EQ(FindVmFlag("MaxRAMPercentage")->kind, FlagKind::Decimal);
    EXPECT_EQ(FindVmFlag("HeapDumpPath")->kind, FlagKind::Text);
    EXPECT_EQ(FindVmFlag("useg1gc"), nullptr);
}

}  // namespace
}  // namespace tarn::tools
