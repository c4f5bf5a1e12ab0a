#include "tools/setup/package_manifests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

PublishedSetup Sample() {
    PublishedSetup setup;
    setup.packageId = "Example.Editor";
    setup.name = "Editor";
    setup.version = "1.10";
    setup.vendor = "Example";
    setup.description = "Edits texts";
    setup.url = "https://example.org/get/Editor-1.10-setup.exe";
    setup.sha256 = std::string(64, 'a');
    setup.executable = "Editor.exe";
    setup.folder = "Editor";
    setup.productCode = "Example.Editor";
    return setup;
}

std::string InstallerOf(const PublishedSetup& setup) {
    return WingetManifest(setup)[1].text;
}

std::string MessageOf(const PublishedSetup& setup) {
    try {
        WingetManifest(setup);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

TEST(PackageId, KeepsLettersAndDigitsOfBothNames) {
    EXPECT_EQ(PackageIdOf("M\u00F6ller & Co.", "My Editor 2"), "M\u00F6llerCo.MyEditor2");
    EXPECT_EQ(PackageIdOf(std::string(40, 'v'), "n"), std::string(32, 'v') + ".n");
}

TEST(PackageId, NeedsALetterInBothNames) {
    EXPECT_THROW(PackageIdOf("...", "Editor"), Failure);
    EXPECT_THROW(PackageIdOf("Example", ""), Failure);
}

TEST(WingetManifest, ConsistsOfThreeFilesNamedAfterThePackage) {
    const std::vector<ManifestFile> files = WingetManifest(Sample());
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0].name, "Example.Editor.yaml");
    EXPECT_EQ(files[1].name, "Example.Editor.installer.yaml");
    EXPECT_EQ(files[2].name, "Example.Editor.locale.en-US.yaml");
}

TEST(WingetManifest, QuotesEveryTextThatYamlWouldReadAsSomethingElse) {
    PublishedSetup setup = Sample();
    setup.description = "yes: \"no\" # \\";
    EXPECT_THAT(InstallerOf(setup), HasSubstr("PackageVersion: \"1.10\"\n"));
    EXPECT_THAT(WingetManifest(setup)[2].text,
                HasSubstr(R"(ShortDescription: "yes: \"no\" # \\")"));
}

TEST(WingetManifest, NamesTheUninstallEntryOfASetupProgram) {
    const std::string text = InstallerOf(Sample());
    EXPECT_THAT(text, HasSubstr("InstallerType: \"nullsoft\"\nScope: \"user\"\n"));
    EXPECT_THAT(text, HasSubstr("AppsAndFeaturesEntries:\n- DisplayName: \"Editor\"\n"
                                "  Publisher: \"Example\"\n"));
    EXPECT_THAT(text, Not(HasSubstr("UpgradeCode")));
}

TEST(WingetManifest, NamesTheCodesOfAnMsi) {
    PublishedSetup setup = Sample();
    setup.isMsi = true;
    setup.perMachine = true;
    setup.upgradeCode = "{UPGRADE}";
    const std::string text = InstallerOf(setup);
    EXPECT_THAT(text, HasSubstr("InstallerType: \"msi\"\nScope: \"machine\"\n"));
    EXPECT_THAT(text, HasSubstr("  UpgradeCode: \"{UPGRADE}\"\n"));
}

TEST(WingetManifest, ListsExtensionsAndProtocols) {
    PublishedSetup setup = Sample();
    setup.fileExtensions = {"abc", "def"};
    setup.protocols = {"example"};
    EXPECT_THAT(InstallerOf(setup), HasSubstr("Protocols:\n- \"example\"\n"
                                              "FileExtensions:\n- \"abc\"\n- \"def\"\n"));
}

TEST(WingetManifest, RejectsWhatTheSchemaDoesNotAccept) {
    PublishedSetup setup = Sample();
    setup.description = "ab";
    EXPECT_THAT(MessageOf(setup), HasSubstr("3 to 256"));
    setup = Sample();
    setup.vendor = "X";
    EXPECT_THAT(MessageOf(setup), HasSubstr("the vendor \"X\""));
    setup = Sample();
    setup.version = "1/2";
    EXPECT_THAT(MessageOf(setup), HasSubstr("\"1/2\""));
}

TEST(WingetManifest, RejectsAddressesThatAreNone) {
    for (const char* const url : {"", "ftp://example.org/x", "https://", "https:///x",
                                  "https://example.org/a b", "https://example.org/\xC3\xA4"}) {
        PublishedSetup setup = Sample();
        setup.url = url;
        EXPECT_THAT(MessageOf(setup), HasSubstr("--url")) << url;
    }
}

TEST(ScoopManifest, RunsTheSetupProgramInItsOwnFolder) {
    const ManifestFile file = ScoopManifest(Sample());
    EXPECT_EQ(file.name, "Editor.json");
    const auto manifest = nlohmann::json::parse(file.text);
    EXPECT_EQ(manifest["architecture"]["64bit"]["url"],
              "https://example.org/get/Editor-1.10-setup.exe#/setup.exe");
    EXPECT_EQ(manifest["installer"],
              nlohmann::json::parse(R"({"file": "setup.exe", "args": ["/S", "/D=$dir"]})"));
    EXPECT_EQ(manifest["uninstaller"],
              nlohmann::json::parse(R"({"file": "uninstall.exe", "args": ["/S", "_?=$dir"]})"));
    EXPECT_FALSE(manifest.contains("shortcuts"));
    EXPECT_EQ(manifest["homepage"], "https://example.org");
    EXPECT_EQ(manifest["license"], "Proprietary");
}

TEST(ScoopManifest, TakesTheFolderOutOfAnMsi) {
    PublishedSetup setup = Sample();
    setup.isMsi = true;
    const auto manifest = nlohmann::json::parse(ScoopManifest(setup).text);
    EXPECT_EQ(manifest["architecture"]["64bit"]["extract_dir"], "Programs\\Editor");
    EXPECT_EQ(manifest["architecture"]["64bit"]["url"], setup.url);
    EXPECT_EQ(manifest["shortcuts"], nlohmann::json::parse(R"([["Editor.exe", "Editor"]])"));
}

TEST(ScoopManifest, IsForOneUserAndAPlainVersion) {
    PublishedSetup setup = Sample();
    setup.perMachine = true;
    EXPECT_THROW(ScoopManifest(setup), Failure);
    setup = Sample();
    setup.version = "1 beta";
    EXPECT_THROW(ScoopManifest(setup), Failure);
}

}  // namespace
}  // namespace tarn::tools
