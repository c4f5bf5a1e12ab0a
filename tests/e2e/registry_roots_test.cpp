// Every registry key that a launch searches for runtimes, in both views.

#include "tests/support/pair_product.h"
#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

struct Root {
    const wchar_t* key;
    const wchar_t* below;  ///< the runtime's folder, relative to the registered one
};

std::ostream& operator<<(std::ostream& out, const Root& root) {
    return out << ToUtf8(root.key);
}

class RegistryRoot : public RegisteredRuntimesFixture, public testing::WithParamInterface<Root> {
  protected:
    void AddToRoot(RegistryView view) {
        const std::wstring home = std::wstring(L"runtime") + GetParam().below;
        app.AddRuntime(home);
        registered.Add(GetParam().key, L"1.8.0_231", app.Path(L"runtime"), view);
        settings.Runtime(L"VM Provider", L"any");
    }
};

TEST_P(RegistryRoot, IsSearched) {
    AddToRoot(RegistryView::k64Bit);
    EXPECT_EQ(Chosen(),
              ToUtf8(std::wstring(L"runtime") + GetParam().below) + "\\bin\\server\\jvm.dll");
}

TEST_P(RegistryRoot, IsSearchedForThePairedLauncherIn32Bits) {
    AddToRoot(RegistryView::k32Bit);
    PairProduct pair(app, settings);
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(pair.WaitUntilStarted());
    EXPECT_THAT(app.Log().Texts(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, RegistryRoot,
                         testing::Values(Root{kJdkRoot, L""}, Root{kJreRoot, L""},
                                         Root{kOldJdkRoot, L"\\jre"}, Root{kOldJreRoot, L""},
                                         Root{kJrockitJreRoot, L""},
                                         Root{kJrockitJdkRoot, L"\\jre"}, Root{kIbmRoot, L""}));

using RegistryViews = RegisteredRuntimesFixture;

TEST_F(RegistryViews, AreReducedToOneWithoutAPairedLauncher) {
    Add(kJdkRoot, L"17", L"narrow", L"bin\\server", RegistryView::k32Bit);
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(RegistryViews, TheLaunchersViewComesFirstWhateverItsVersions) {
    Add(kJdkRoot, L"21", L"narrow", L"bin\\server", RegistryView::k32Bit);
    Add(kOldJreRoot, L"1.4", L"wide", L"bin\\client");
    const PairProduct pair(app, settings);
    EXPECT_EQ(Chosen(), "wide\\bin\\client\\jvm.dll");
    EXPECT_FALSE(pair.WasStarted());
}

TEST_F(RegistryViews, TheOtherViewIsSearchedByTheSameRules) {
    Add(kJdkRoot, L"21", L"wide");
    Add(kJdkRoot, L"17", L"narrow", L"bin\\server", RegistryView::k32Bit);
    settings.Runtime(L"Maximum Version", L"17").Runtime(L"JVM Source", L"only_JDK");
    const PairProduct pair(app, settings);
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(pair.WaitUntilStarted());

    settings.Runtime(L"JVM Source", L"only_JRE");
    EXPECT_EQ(Chosen(), "nothing");
}

}  // namespace
}  // namespace tarn::test
