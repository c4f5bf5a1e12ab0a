// The choice among several registered runtimes, and the settings that control it.

#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

/// A value of a setting, and the home of the runtime that is chosen with it.
struct Choice {
    std::wstring_view value;
    std::string_view home;
};

class RuntimeChoice : public RegisteredRuntimesFixture {
  protected:
    /// Sets the key to each value and compares the choice.
    void ExpectHomes(std::wstring_view key, std::initializer_list<Choice> choices) {
        for (const Choice& choice : choices) {
            settings.Runtime(key, choice.value);
            EXPECT_EQ(ChosenHome(), choice.home) << ToUtf8(choice.value);
        }
    }

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
    const struct {
        std::wstring_view minimum;
        std::wstring_view maximum;
        std::string_view home;
    } kBounds[] = {{L"", L"any", "d"},
                   {L"", L"1.8", "b"},
                   {L"", L"1.8.0_230", "a"},
                   {L"1.8.0_232", L"1.9", "c"},
                   {L"17", L"any", "nothing"}};
    for (const auto& bounds : kBounds) {
        settings.Runtime(L"Minimum Version", bounds.minimum);
        settings.Runtime(L"Maximum Version", bounds.maximum);
        EXPECT_EQ(ChosenHome(), bounds.home) << ToUtf8(bounds.maximum);
    }
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
    ExpectHomes(L"Preferred versions",
                {{L"1.7;1.8", "c"}, {L"17;1.8;1.7", "b"}, {L"17;;1.7", "a"}});
}

TEST_F(RuntimeChoice, FollowsTheSource) {
    Add(kJdkRoot, L"11", L"jdk");
    Add(kOldJreRoot, L"1.8", L"jre");
    EXPECT_EQ(ChosenHome(), "jdk");
    ExpectHomes(L"JVM Source",
                {{L"favor_JRE", "jre"}, {L"favor_JDK", "jdk"}, {L"only_JRE", "jre"}});
    settings.Runtime(L"Maximum Version", L"1.8");
    ExpectHomes(L"JVM Source",
                {{L"only_JDK", "nothing"}, {L"favor_JDK", "jre"}, {L"Favor_JRE", "nothing"}});
}

TEST_F(RuntimeChoice, FollowsTheProvider) {
    Add(kIbmRoot, L"1.6", L"ibm");
    Add(kJrockitJreRoot, L"1.7", L"jrockit");
    Add(kJdkRoot, L"1.5", L"sun");
    EXPECT_EQ(ChosenHome(), "sun");
    ExpectHomes(L"VM Provider", {{L"sun", "sun"},
                                 {L"IBM", "ibm"},
                                 {L"jrockit", "jrockit"},
                                 {L"any", "jrockit"},
                                 {L"favor_sun", "sun"},
                                 {L"Favor_IBM", "ibm"}});
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
