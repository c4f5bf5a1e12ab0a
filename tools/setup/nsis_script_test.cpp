#include "tools/setup/nsis_script.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tools/common/failure.h"
#include "tools/setup/nsis_setup.h"

namespace tarn::tools {
namespace {

class NsisScriptTest : public testing::Test {
  protected:
    void SetUp() override {
        request_.folder = "app";
        product_.name = "A & \"B\" $C";
        product_.fileName = "A & _B_ $C";
        product_.version = "2.1-beta";
        product_.number = {2, 1, 0, 0};
        product_.id = "Acme.A";
        product_.executable = "a.exe";
        Add("a.exe");
        Add("a.ini");
        Add("lib/x${y}.jar");
        content_.folders = {"lib"};
        content_.size = 2049;
    }
    void Add(const char* path) {
        PackageFile file;
        file.path = path;
        content_.files.push_back(file);
    }
    std::string Script(const std::string& signedExecutable = {}) const {
        const bool isSigned = !signedExecutable.empty();
        return NsisScript({request_,
                           product_,
                           content_,
                           AssociationValues(product_, request_.associations, {}),
                           signedExecutable,
                           {},
                           isSigned ? "sign \"%1\"" : ""});
    }
    static bool Has(const std::string& script, const std::string& part) {
        return script.find(part) != std::string::npos;
    }

    SetupRequest request_;
    Product product_;
    PackageContent content_;
};

TEST_F(NsisScriptTest, InstallsPerUserUnlessAskedOtherwise) {
    const std::string user = Script();
    EXPECT_TRUE(Has(user, "RequestExecutionLevel user\n"));
    EXPECT_TRUE(Has(user, "InstallDir \"$LOCALAPPDATA\\Programs\\A & _B_ ${U+24}${U+24}C\"\n"));
    EXPECT_TRUE(Has(user, "WriteRegStr HKCU "));
    EXPECT_FALSE(Has(user, "HKLM"));
    EXPECT_TRUE(Has(user, "Exec \"$\\\"$INSTDIR\\a.exe$\\\"\""));
    request_.perMachine = true;
    const std::string machine = Script();
    EXPECT_TRUE(Has(machine, "RequestExecutionLevel admin\n"));
    EXPECT_TRUE(Has(machine, "InstallDir \"$PROGRAMFILES64\\"));
    EXPECT_TRUE(Has(machine, "WriteRegStr HKLM "));
    EXPECT_FALSE(Has(machine, "HKCU"));
    EXPECT_TRUE(Has(machine, "Exec \"$\\\"$WINDIR\\explorer.exe$\\\" $\\\"$INSTDIR\\a.exe$\\\"\""));
}

TEST_F(NsisScriptTest, EscapesNamesAndDoublesAmpersandsInWindows) {
    EXPECT_TRUE(Has(Script(),
                    "Name \"A & $\\\"B$\\\" ${U+24}${U+24}C\" "
                    "\"A && $\\\"B$\\\" ${U+24}${U+24}C\"\n"));
}

TEST_F(NsisScriptTest, ExtractsEachFileBelowTheStagingFolder) {
    const std::string script = Script();
    EXPECT_TRUE(Has(script, "  SetOutPath \"$Staging\"\n  File \"/oname=a.exe\" \""));
    EXPECT_TRUE(Has(script, "app/a.exe\"\n"));
    EXPECT_TRUE(Has(script,
                    "  SetOutPath \"$Staging\\lib\"\n"
                    "  File \"/oname=x${U+24}${U+24}{y}.jar\" \""));
    EXPECT_TRUE(Has(script, "app/lib/x${U+24}{y}.jar\"\n"));
    EXPECT_TRUE(Has(script, "  StrCpy $Line \"lib\"\n  Call MakeFolder\n"));
}

TEST_F(NsisScriptTest, SetsTheTimeOfEachFileInStepsOf100Nanoseconds) {
    const auto time = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22) +
                      std::chrono::nanoseconds(1'234'567'800);
    content_.files[0].time = std::chrono::file_clock::from_sys(time);
    EXPECT_TRUE(
        Has(Script(),
            "  StrCpy $0 \"$OUTDIR\\a.exe\"\n  StrCpy $1 134397792012345678\n  Call SetTime\n"));
}

TEST_F(NsisScriptTest, PacksTheSignedExecutableAndSignsTheUninstaller) {
    EXPECT_FALSE(Has(Script(), "!uninstfinalize"));
    const std::string script = Script("a.exe");
    EXPECT_TRUE(Has(script, "File \"/oname=a.exe\" \"a.exe\"\n"));
    EXPECT_TRUE(Has(script, "!uninstfinalize 'sign \"%1\"' = 0\n"));
}

TEST_F(NsisScriptTest, WritesADefaultOnlyWhereThereIsNone) {
    request_.associations = {{".demo", "Demo \"x\"", ""}};
    const std::string script = Script();
    EXPECT_TRUE(Has(script, R"(  ReadRegStr $0 HKCR ".demo" ""
  ${If} $0 == ""
    WriteRegStr HKCU "Software\Classes\.demo" "" "Acme.A.demo"
  ${EndIf}
)"));
    EXPECT_TRUE(Has(script, R"(  WriteRegStr HKCU "Software\Classes\Acme.A.demo" "" "Demo $\"x$\""
)"));
    EXPECT_TRUE(Has(script, R"("$\"$INSTDIR\a.exe$\" $\"%1$\""
)"));
}

TEST_F(NsisScriptTest, GivesVersionAndSizeInKib) {
    EXPECT_TRUE(Has(Script(), "\"DisplayVersion\" \"2.1-beta\"\n"));
    EXPECT_TRUE(Has(Script(), "VIProductVersion \"2.1.0.0\"\n"));
    EXPECT_TRUE(Has(Script(), "\"EstimatedSize\" 3\n"));
}

TEST_F(NsisScriptTest, CompressesLargeFoldersByTheFasterMethod) {
    content_.size = kLargestSolidContent;
    EXPECT_TRUE(Has(Script(), "SetCompressor /SOLID lzma\n"));
    ++content_.size;
    EXPECT_TRUE(Has(Script(), "SetCompressor zlib\n"));
}

TEST_F(NsisScriptTest, RemovesNoTreesButItsTemporaryFolders) {
    const std::string script = Script();
    for (std::size_t at = script.find("RMDir /r"); at != std::string::npos;
         at = script.find("RMDir /r", at + 1)) {
        const std::string statement = script.substr(at, script.find('\n', at) - at);
        EXPECT_TRUE(statement == "RMDir /r \"$Staging\"" || statement == "RMDir /r \"$Backup\"");
    }
}

TEST(NsisLicense, BecomesUtf16WithWindowsLines) {
    const auto text = AsBytes(
        "\xEF\xBB\xBF"
        "a\n\xC3\xA4\r\n");
    const Bytes license = NsisLicense(Bytes(text.begin(), text.end()));
    const std::string_view expected(
        "\xFF\xFE"
        "a\0\r\0\n\0\xE4\0\r\0\n\0",
        14);
    EXPECT_EQ(AsText(license), expected);
}

TEST(NsisLicense, StaysAsItIsWhenItIsRtf) {
    const auto text = AsBytes("{\\rtf1 a\n}");
    EXPECT_EQ(AsText(NsisLicense(Bytes(text.begin(), text.end()))), "{\\rtf1 a\n}");
}

TEST(NsisLicense, IsRefusedWhenItIsNoUtf8) {
    const auto text = AsBytes("\xE4 ");
    EXPECT_THROW(NsisLicense(Bytes(text.begin(), text.end())), Failure);
}

}  // namespace
}  // namespace tarn::tools
