// Values of "JavaHome" that an installer or a user may have written.

#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

class JavaHomeValue : public RegisteredRuntimesFixture {
  protected:
    JavaHomeValue() {
        app.AddRuntime(L"new");
        home_ = app.Path(L"new");
        // The runtime that is chosen when the newer one is rejected.
        Add(kJdkRoot, L"11", L"old");
    }

    void AddNew(DWORD type, std::size_t size) {
        registered.AddRaw(kJdkRoot, L"17", type, home_.c_str(), size);
    }

    std::wstring home_;
    static constexpr const char* kNew = "new\\bin\\server\\jvm.dll";
    static constexpr const char* kOld = "old\\bin\\server\\jvm.dll";
};

TEST_F(JavaHomeValue, MayEndWithABackslash) {
    home_ += L'\\';
    registered.Add(kJdkRoot, L"17", home_);
    EXPECT_EQ(Chosen(), kNew);
}

TEST_F(JavaHomeValue, NeedsNoTerminator) {
    AddNew(REG_SZ, home_.size() * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), kNew);
}

TEST_F(JavaHomeValue, MayBeOfAnyType) {
    AddNew(REG_BINARY, home_.size() * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), kNew);
    AddNew(REG_MULTI_SZ, (home_.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), kNew);
}

TEST_F(JavaHomeValue, IsNotExpanded) {
    // A valid name of a folder.
    app.AddRuntime(L"%OS%");
    home_ = app.Path(L"%OS%");
    AddNew(REG_EXPAND_SZ, (home_.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), "%OS%\\bin\\server\\jvm.dll");

    app.environment[L"TARN_TEST_HOME"] = app.Path(L"new");
    home_ = L"%TARN_TEST_HOME%";
    AddNew(REG_EXPAND_SZ, (home_.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), kOld);
}

TEST_F(JavaHomeValue, ThatIsInvalidIsSkippedSilently) {
    const DWORD number = 17;
    registered.AddRaw(kJdkRoot, L"12", REG_DWORD, &number, sizeof number);
    registered.AddRaw(kJdkRoot, L"13", REG_SZ, home_.c_str(), 1);
    registered.AddRaw(kJdkRoot, L"14", REG_SZ, home_.c_str(), home_.size() * sizeof(wchar_t) - 1);
    registered.AddRaw(kJdkRoot, L"15", REG_NONE, nullptr, 0);
    registered.Add(kJdkRoot, L"16", L"");
    registered.AddEmpty(kJdkRoot, L"17");
    registered.Add(kJdkRoot, L"18", std::wstring(1000, L'x'));
    registered.Add(kJdkRoot, L"19", app.Path(L"nowhere"));
    registered.Add(kJdkRoot, L"20", L"Q:\\Java");
    registered.Add(kJdkRoot, L"21", std::wstring(30000, L'\\'));
    registered.Add(kJdkRoot, L"22", L"\"" + app.Path(L"new") + L"\"");
    registered.Add(kJdkRoot, L"23", app.Path(L"new\\bin"));
    EXPECT_EQ(Chosen(), kOld);
}

TEST_F(JavaHomeValue, MayBeALongPath) {
    // The maximum length of a path without the long form.
    std::wstring name = L"long";
    while (app.Path(name).size() < 225) name += L"x";
    Add(kJdkRoot, L"17", name);
    EXPECT_EQ(Chosen(), ToUtf8(name) + "\\bin\\server\\jvm.dll");
}

using VersionKey = RegisteredRuntimesFixture;

TEST_F(VersionKey, MayHaveTheLongestName) {
    const std::wstring longest = L"17." + std::wstring(252, L'0');
    Add(kJdkRoot, longest, L"long");
    Add(kJdkRoot, L"11", L"old");
    EXPECT_EQ(Chosen(), "long\\bin\\server\\jvm.dll");
    settings.Runtime(L"Maximum Version", L"16");
    EXPECT_EQ(Chosen(), "old\\bin\\server\\jvm.dll");
}

TEST_F(VersionKey, WithoutDigitsIsTheOldestOfAll) {
    Add(kJdkRoot, L"current", L"nameless");
    EXPECT_EQ(Chosen(), "nameless\\bin\\server\\jvm.dll");
    Add(kJreRoot, L"0.1", L"named");
    EXPECT_EQ(Chosen(), "named\\bin\\server\\jvm.dll");
    settings.Runtime(L"Maximum Version", L"");
    EXPECT_EQ(Chosen(), "nameless\\bin\\server\\jvm.dll");
}

TEST_F(VersionKey, MayBeOneOfTwoHundred) {
    for (int number = 1; number <= 200; ++number) {
        const std::wstring name = L"17.0." + std::to_wstring(number);
        // Only these two have a JVM that can be loaded.
        if (number == 123 || number == 200) {
            Add(kJdkRoot, name, name);
        } else {
            app.AddFile(name + L"\\bin\\server\\jvm.dll");
            registered.Add(kJdkRoot, name, app.Path(name));
        }
    }
    EXPECT_EQ(Chosen(), "17.0.200\\bin\\server\\jvm.dll");
    settings.Runtime(L"Preferred versions", L"17.0.201;17.0.123");
    EXPECT_EQ(Chosen(), "17.0.123\\bin\\server\\jvm.dll");
}

}  // namespace
}  // namespace tarn::test
