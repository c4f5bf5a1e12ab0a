// Real runtimes 11, 17, 21 and 25, all registered: which of them the launch chooses.

#include "tests/support/real_runtime_fixture.h"
#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

class RealRuntimeChoice : public RealRuntimeFixture {
  protected:
    RealRuntimeChoice() {
        settings.Runtime(L"Minimum Version", L"any").Runtime(L"Maximum Version", L"any");
        registered_.Add(kJreRoot, L"11.0.13", RuntimeHome("11"));
        registered_.Add(kJdkRoot, L"17.0.9", RuntimeHome("17") + L'\\');
        registered_.Add(kJdkRoot, L"21.0.8", RuntimeHome("21"));
        registered_.Add(kJdkRoot, L"25.0.2", RuntimeHome("25"));
        registered_.Add(kJrockitJreRoot, L"11.0.2", RuntimeHome("11-other"));
    }

    /// Runs the application. Returns the home of its runtime, relative to the folder of all
    /// runtimes, and whether it has a client or a server JVM.
    std::wstring Chosen() {
        EXPECT_EQ(Run(L"do:facts do:exit:9"), 9);
        std::wstring chosen = Report().One("javaHome");
        chosen.erase(0, chosen.rfind(L'\\') + 1);
        EXPECT_EQ(Report().One("environment:TARN_JVM_HOME"), RuntimeHome(ToUtf8(chosen)));
        const bool client = Report().One("vmName").find(L"Client") != std::wstring::npos;
        return chosen + (client ? L" client" : L" server");
    }

    RegisteredRuntimes registered_;
};

TEST_F(RealRuntimeChoice, IsTheNewestWithinTheBounds) {
    EXPECT_EQ(Chosen(), L"25 server");
    settings.Runtime(L"Maximum Version", L"21");
    EXPECT_EQ(Chosen(), L"21 server");
    settings.Runtime(L"Maximum Version", L"21.0.7").Runtime(L"Minimum Version", L"12");
    EXPECT_EQ(Chosen(), L"17 server");
}

TEST_F(RealRuntimeChoice, FollowsThePreferredVersions) {
    settings.Runtime(L"Preferred versions", L"18;17;25");
    EXPECT_EQ(Chosen(), L"17 server");
}

TEST_F(RealRuntimeChoice, FollowsSourceAndType) {
    settings.Runtime(L"JVM Source", L"favor_JRE");
    EXPECT_EQ(Chosen(), L"11 client");
    settings.Runtime(L"JVM Type", L"favor_server");
    EXPECT_EQ(Chosen(), L"11 server");
    settings.Runtime(L"JVM Source", L"only_JDK");
    EXPECT_EQ(Chosen(), L"25 server");
}

TEST_F(RealRuntimeChoice, FollowsTheProvider) {
    settings.Runtime(L"VM Provider", L"jrockit");
    EXPECT_EQ(Chosen(), L"11-other server");
}

}  // namespace
}  // namespace tarn::test
