// The choice among several registered runtimes, and the settings that control it.

#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

class RuntimeChoice : public RegisteredRuntimesFixture {
  protected:
    /// The home of the chosen runtime; all runtimes have a server JVM here unless a test says
    /// otherwise.
    std::string ChosenHome() {
        const std::string chosen = Chosen();
        return chosen.substr(0, chosen.find('\\'));
    }
};

TEST_F(RuntimeChoice, IsTheNewestWithinTheBounds) {
    Add(kOldJreRoot, L"1.8", L"a");
    Add(kOldJreRoot, L"1.8.0_231", L"b");
    Add(kOldJdkRoot, L"1.9", L"c\\jre");
    registered.Add(kOldJdkRoot, L"1.9.0", app.Path(L"c"));
    Add(kJdkRoot, L"11.0.2", L"d");
    EXPECT_EQ(ChosenHome(), "d");
    settings.Runtime(L"Maximum Version", L"1.8");
    EXPECT_EQ(ChosenHome(), "b");
    settings.Runtime(L"Maximum Version", L"1.8.0_230");
    EXPECT_EQ(ChosenHome(), "a");
    settings.Runtime(L"Maximum Version", L"1.9").Runtime(L"Minimum Version", L"1.8.0_232");
    EXPECT_EQ(ChosenHome(), "c");
    settings.Runtime(L"Minimum Version", L"17").Runtime(L"Maximum Version", L"any");
    EXPECT_EQ(ChosenHome(), "nothing");
}

TEST_F(RuntimeChoice, WithoutAMaximumFindsNone) {
    Add(kJdkRoot, L"17", L"a");
    settings.Remove(L"Java Runtime Environment", L"Maximum Version");
    EXPECT_EQ(ChosenHome(), "nothing");
    settings.Runtime(L"Maximum Version", L"Any");
    EXPECT_EQ(ChosenHome(), "nothing");
}

TEST_F(RuntimeChoice, IsOfTheFirstPreferredVersionInstalled) {
    Add(kJdkRoot, L"11.0.2", L"a");
    Add(kOldJreRoot, L"1.8.0_231", L"b");
    Add(kOldJreRoot, L"1.7.0_80", L"c");
    settings.Runtime(L"Preferred versions", L"1.7;1.8");
    EXPECT_EQ(ChosenHome(), "c");
    settings.Runtime(L"Preferred versions", L"17;1.8;1.7");
    EXPECT_EQ(ChosenHome(), "b");
    settings.Runtime(L"Preferred versions", L"17;;1.7");
    EXPECT_EQ(ChosenHome(), "a");
}

TEST_F(RuntimeChoice, FollowsTheSource) {
    Add(kJdkRoot, L"11", L"jdk");
    Add(kOldJreRoot, L"1.8", L"jre");
    EXPECT_EQ(ChosenHome(), "jdk");
    settings.Runtime(L"JVM Source", L"favor_JRE");
    EXPECT_EQ(ChosenHome(), "jre");
    settings.Runtime(L"JVM Source", L"favor_JDK");
    EXPECT_EQ(ChosenHome(), "jdk");
    settings.Runtime(L"JVM Source", L"only_JRE");
    EXPECT_EQ(ChosenHome(), "jre");
    settings.Runtime(L"JVM Source", L"only_JDK").Runtime(L"Maximum Version", L"1.8");
    EXPECT_EQ(ChosenHome(), "nothing");
    settings.Runtime(L"JVM Source", L"favor_JDK");
    EXPECT_EQ(ChosenHome(), "jre");
    settings.Runtime(L"JVM Source", L"Favor_JRE");
    EXPECT_EQ(ChosenHome(), "nothing");
}

TEST_F(RuntimeChoice, FollowsTheProvider) {
    Add(kIbmRoot, L"1.6", L"ibm");
    Add(kJrockitJreRoot, L"1.7", L"jrockit");
    Add(kJdkRoot, L"1.5", L"sun");
    EXPECT_EQ(ChosenHome(), "sun");
    settings.Runtime(L"VM Provider", L"sun");
    EXPECT_EQ(ChosenHome(), "sun");
    settings.Runtime(L"VM Provider", L"IBM");
    EXPECT_EQ(ChosenHome(), "ibm");
    settings.Runtime(L"VM Provider", L"jrockit");
    EXPECT_EQ(ChosenHome(), "jrockit");
    settings.Runtime(L"VM Provider", L"any");
    EXPECT_EQ(ChosenHome(), "jrockit");
    settings.Runtime(L"VM Provider", L"favor_sun");
    EXPECT_EQ(ChosenHome(), "sun");
    settings.Runtime(L"VM Provider", L"Favor_IBM");
    EXPECT_EQ(ChosenHome(), "ibm");
}

TEST_F(RuntimeChoice, FollowsTheJvmType) {
    Add(kJreRoot, L"11", L"new", L"bin\\client");
    Add(kJdkRoot, L"1.8", L"old", L"bin\\client");
    app.AddRuntime(L"old");
    EXPECT_EQ(Chosen(), "new\\bin\\client\\jvm.dll");
    settings.Runtime(L"JVM Type", L"favor_server");
    EXPECT_EQ(Chosen(), "old\\bin\\server\\jvm.dll");
    settings.Runtime(L"JVM Type", L"server");
    EXPECT_EQ(Chosen(), "old\\bin\\server\\jvm.dll");
    settings.Runtime(L"JVM Type", L"Server").Runtime(L"Maximum Version", L"1.8");
    EXPECT_EQ(Chosen(), "old\\bin\\client\\jvm.dll");
}

TEST_F(RuntimeChoice, DoesNotCountTheServerJvmOfAnOldRuntimeButLoadsIt) {
    Add(kOldJreRoot, L"1.8", L"old", L"bin\\client");
    app.AddRuntime(L"old");
    Add(kJreRoot, L"1.7", L"older");
    settings.Runtime(L"JVM Type", L"favor_server");
    EXPECT_EQ(Chosen(), "older\\bin\\server\\jvm.dll");
    settings.Runtime(L"Minimum Version", L"1.8");
    EXPECT_EQ(Chosen(), "old\\bin\\server\\jvm.dll");
}

TEST_F(RuntimeChoice, UsesTheOnlyJvm) {
    Add(kJreRoot, L"1.8", L"a", L"bin\\jrockit");
    EXPECT_EQ(Chosen(), "a\\bin\\jrockit\\jvm.dll");
    app.AddRuntime(L"a", kFullJvm, L"bin\\hotspot");
    EXPECT_EQ(Chosen(), "a\\bin\\hotspot\\jvm.dll");
    app.AddRuntime(L"a", kFullJvm, L"bin\\classic");
    EXPECT_EQ(Chosen(), "a\\bin\\classic\\jvm.dll");
}

}  // namespace
}  // namespace tarn::test
