// Registry keys of other makers that are damaged, locked or lead to no usable runtime: they are
// skipped without a message.

#include "tests/support/further_sources_fixture.h"
#include "tests/support/jvm_files.h"

namespace tarn::test {
namespace {

using SkippedFurtherSources = FurtherSourcesFixture;

TEST_F(SkippedFurtherSources, HaveALibraryForAnotherMachine) {
    AddMsi(L"Eclipse Adoptium\\JDK\\25.0.1.8", L"arm64");
    AddMsi(L"Microsoft\\JDK\\24.0.1.8", L"narrow");
    AddMsi(L"Semeru\\JDK\\23.0.1.8", L"damaged");
    AddMsi(L"AdoptOpenJDK\\JDK\\11.0.1.8", L"good");
    const std::string narrow = As32Bit(ReadFileBytes(app.Path(L"good\\bin\\server\\jvm.dll")));
    std::string arm64 = narrow;
    // In place of the machine, behind the signature of the headers.
    const auto* const header = reinterpret_cast<const IMAGE_DOS_HEADER*>(narrow.data());
    const auto machine = static_cast<std::size_t>(header->e_lfanew) + sizeof(DWORD);
    arm64.replace(machine, 2, "\x64\xAA");
    app.AddFile(L"arm64\\bin\\server\\jvm.dll", arm64);
    app.AddFile(L"narrow\\bin\\server\\jvm.dll", narrow);
    app.AddFile(L"damaged\\bin\\server\\jvm.dll", "MZ");
    EXPECT_EQ(Chosen(), In("good"));
}

TEST_F(SkippedFurtherSources, HaveUselessValues) {
    app.AddRuntime(L"runtime");
    const std::wstring home = app.Path(L"runtime");
    const auto add = [&](const wchar_t* version, DWORD type, const void* data, std::size_t size) {
        AddKey(L"Eclipse Adoptium\\JDK\\" + std::wstring(version) + L"\\hotspot\\MSI")
            .Set(kMsiHome, type, data, size);
    };
    const auto addText = [&](const wchar_t* version, const std::wstring& text) {
        add(version, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    };
    const DWORD number = 17;
    add(L"12", REG_DWORD, &number, sizeof number);
    add(L"13", REG_NONE, nullptr, 0);
    add(L"14", REG_SZ, home.c_str(), 1);
    addText(L"15", std::wstring(30000, L'x'));
    addText(L"16", L"Q:\\Java");
    addText(L"18", L"jre");
    addText(L"19", L"\\\\tarn-no-such-server\\share\\jdk");
    addText(L"20", std::wstring(1023, L'"'));
    addText(L"21", L"C:");
    addText(L"22", L"C:\\" + std::wstring(1020, L'y'));
    AddKey(L"Eclipse Adoptium\\JDK\\23\\hotspot");
    AddKey(L"Eclipse Adoptium\\JDK\\24");
    EXPECT_EQ(Chosen(), "nothing");
    // Without a terminator, of another type, in quotes.
    add(L"11", REG_BINARY, home.c_str(), home.size() * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), In("runtime"));
    addText(L"11", L"\"" + home + L"\"");
    EXPECT_EQ(Chosen(), In("runtime"));
}

TEST_F(SkippedFurtherSources, AreInKeysWithoutPermission) {
    TemporaryKey& root = AddKey(L"Semeru\\JDK");
    AddMsi(L"Semeru\\JDK\\23.0.1.8", L"semeru");
    EXPECT_EQ(Chosen(), In("semeru"));
    root.Lock();
    EXPECT_EQ(Chosen(), "nothing");
    app.AddRuntime(L"microsoft");
    TemporaryKey& runtime = AddKey(L"Microsoft\\JDK\\21.0.1.12\\hotspot\\MSI");
    runtime.Set(kMsiHome, app.Path(L"microsoft"));
    AddMsi(L"Microsoft\\JDK\\17.0.9.8", L"readable");
    EXPECT_EQ(Chosen(), In("microsoft"));
    runtime.Lock();
    EXPECT_EQ(Chosen(), In("readable"));
}

}  // namespace
}  // namespace tarn::test
