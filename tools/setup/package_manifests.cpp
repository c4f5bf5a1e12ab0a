#include "tools/setup/package_manifests.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

using Json = nlohmann::ordered_json;

constexpr char kWingetVersion[] = "1.6.0";
constexpr char kLocale[] = "en-US";
// What both package managers take for software without a published licence.
constexpr char kNoLicense[] = "Proprietary";

// Limits of the schemas, in characters.
constexpr std::size_t kLongestIdPart = 32;
constexpr std::size_t kLongestVersion = 128;
constexpr std::size_t kLongestName = 256;
constexpr std::size_t kLongestText = 512;
constexpr std::size_t kLongestUrl = 2048;

bool IsWordCharacter(wchar_t character) {
    const bool isAsciiWord = (character >= '0' && character <= '9') ||
                             (character >= 'A' && character <= 'Z') ||
                             (character >= 'a' && character <= 'z');
    return isAsciiWord || character >= 0xC0;  // letters of other scripts start there
}

std::string WordCharactersOf(std::string_view text, std::size_t limit) {
    std::wstring kept;
    for (const wchar_t character : WideOf(text)) {
        if (IsWordCharacter(character) && kept.size() < limit) kept += character;
    }
    return Utf8Of(kept);
}

// Throws unless the text has a length between the limits.
void CheckLength(const char* what, const std::string& text, std::size_t least, std::size_t most) {
    const std::size_t length = WideOf(text).size();
    if (length >= least && length <= most) return;
    throw Failure(std::string(what) + " \"" + text + "\" has " + std::to_string(length) +
                  " characters; a package manifest takes " + std::to_string(least) + " to " +
                  std::to_string(most));
}

void CheckUrl(const char* what, const std::string& url) {
    const std::string lower = ToLowerAscii(url);
    const std::size_t start = lower.starts_with("https://")  ? 8
                              : lower.starts_with("http://") ? 7
                                                             : std::string::npos;
    const bool isPlain = std::none_of(url.begin(), url.end(), [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte <= ' ' || byte >= 0x7F ||
               std::string_view("\"<>\\^`{|}").find(character) != std::string_view::npos;
    });
    if (start == std::string::npos || start >= url.size() || url[start] == '/' || !isPlain ||
        url.size() > kLongestUrl) {
        throw Failure(std::string(what) + " \"" + url +
                      "\" is not an address that a package manifest takes: http or https, with "
                      "other characters than those of ASCII as %XX");
    }
}

// The scheme and the host of an address that has been checked.
std::string SiteOf(const std::string& url) {
    const std::size_t host = url.find("://") + 3;
    return url.substr(0, std::min(url.find_first_of("/?#", host), url.size()));
}

std::string HomepageOf(const PublishedSetup& setup) {
    return setup.homepage.empty() ? SiteOf(setup.url) : setup.homepage;
}

std::string LicenseOf(const PublishedSetup& setup) {
    return setup.license.empty() ? kNoLicense : setup.license;
}

void Check(const PublishedSetup& setup) {
    CheckUrl("--url", setup.url);
    if (!setup.homepage.empty()) CheckUrl("--homepage", setup.homepage);
    CheckLength("the name", setup.name, 2, kLongestName);
    CheckLength("the vendor", setup.vendor, 2, kLongestName);
    CheckLength("the version", setup.version, 1, kLongestVersion);
    CheckLength("the description", setup.description, 3, kLongestName);
    CheckLength("the license", LicenseOf(setup), 3, kLongestText);
    if (!setup.copyright.empty()) CheckLength("the copyright", setup.copyright, 3, kLongestText);
}

// A JSON string is a YAML string, too. Plain YAML strings would need rules of their own: "1.10" is
// a number, "no" a truth value.
std::string YamlText(const std::string& text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Lines of a YAML file.
class Yaml {
  public:
    explicit Yaml(const char* kind)
        : text_(std::string("# yaml-language-server: $schema=https://aka.ms/winget-manifest.") +
                kind + '.' + kWingetVersion + ".schema.json\n") {}
    Yaml& Pair(int depth, const char* key, const std::string& value) {
        if (!value.empty()) Line(depth, std::string(key) + ": " + YamlText(value));
        return *this;
    }
    Yaml& Line(int depth, const std::string& line) {
        text_.append(static_cast<std::size_t>(depth) * 2, ' ').append(line).push_back('\n');
        return *this;
    }
    Yaml& List(const char* key, const std::vector<std::string>& values) {
        if (!values.empty()) Line(0, std::string(key) + ':');
        for (const std::string& value : values) Line(0, "- " + YamlText(value));
        return *this;
    }
    Yaml& End(const char* kind) {
        return Pair(0, "ManifestType", kind).Pair(0, "ManifestVersion", kWingetVersion);
    }
    std::string Take() { return std::move(text_); }

  private:
    std::string text_;
};

std::string VersionText(const PublishedSetup& setup) {
    return Yaml("version")
        .Pair(0, "PackageIdentifier", setup.packageId)
        .Pair(0, "PackageVersion", setup.version)
        .Pair(0, "DefaultLocale", kLocale)
        .End("version")
        .Take();
}

std::string InstallerText(const PublishedSetup& setup) {
    const char* const type = setup.isMsi ? "msi" : "nullsoft";
    return Yaml("installer")
        .Pair(0, "PackageIdentifier", setup.packageId)
        .Pair(0, "PackageVersion", setup.version)
        .Pair(0, "InstallerType", type)
        .Pair(0, "Scope", setup.perMachine ? "machine" : "user")
        .Pair(0, "UpgradeBehavior", "install")
        .List("InstallModes", {"interactive", "silent", "silentWithProgress"})
        .List("Protocols", setup.protocols)
        .List("FileExtensions", setup.fileExtensions)
        .Pair(0, "ProductCode", setup.productCode)
        .Line(0, "AppsAndFeaturesEntries:")
        .Line(0, "- DisplayName: " + YamlText(setup.name))
        .Pair(1, "Publisher", setup.vendor)
        .Pair(1, "DisplayVersion",
              setup.displayVersion.empty() ? setup.version : setup.displayVersion)
        .Pair(1, "ProductCode", setup.productCode)
        .Pair(1, "UpgradeCode", setup.upgradeCode)
        .Pair(1, "InstallerType", type)
        .Line(0, "Installers:")
        .Line(0, "- Architecture: x64")
        .Pair(1, "InstallerUrl", setup.url)
        .Pair(1, "InstallerSha256", setup.sha256)
        .End("installer")
        .Take();
}

std::string LocaleText(const PublishedSetup& setup) {
    return Yaml("defaultLocale")
        .Pair(0, "PackageIdentifier", setup.packageId)
        .Pair(0, "PackageVersion", setup.version)
        .Pair(0, "PackageLocale", kLocale)
        .Pair(0, "Publisher", setup.vendor)
        .Pair(0, "PackageName", setup.name)
        .Pair(0, "PackageUrl", HomepageOf(setup))
        .Pair(0, "License", LicenseOf(setup))
        .Pair(0, "Copyright", setup.copyright)
        .Pair(0, "ShortDescription", setup.description)
        .End("defaultLocale")
        .Take();
}

}  // namespace

std::string PackageIdOf(std::string_view vendor, std::string_view name) {
    const std::string vendorPart = WordCharactersOf(vendor, kLongestIdPart);
    const std::string namePart = WordCharactersOf(name, kLongestIdPart);
    if (vendorPart.empty() || namePart.empty()) {
        throw Failure("a package identifier needs letters or digits in the vendor and the name");
    }
    return vendorPart + '.' + namePart;
}

std::vector<ManifestFile> WingetManifest(const PublishedSetup& setup) {
    Check(setup);
    if (setup.version.find_first_of("\\/:*?\"<>|") != std::string::npos) {
        throw Failure("the version \"" + setup.version +
                      "\" has a character that a winget manifest does not take (\\ / : * ? \" < > "
                      "|)");
    }
    return {{setup.packageId + ".yaml", VersionText(setup)},
            {setup.packageId + ".installer.yaml", InstallerText(setup)},
            {setup.packageId + ".locale." + kLocale + ".yaml", LocaleText(setup)}};
}

ManifestFile ScoopManifest(const PublishedSetup& setup) {
    Check(setup);
    if (setup.perMachine) {
        throw Failure("scoop installs for one user; make its setup program without --per-machine");
    }
    const auto isAllowed = [](char character) {
        return IsAscii(std::string_view(&character, 1)) &&
               (IsWordCharacter(static_cast<wchar_t>(static_cast<unsigned char>(character))) ||
                std::string_view("_.-+").find(character) != std::string_view::npos);
    };
    if (!std::all_of(setup.version.begin(), setup.version.end(), isAllowed)) {
        throw Failure("the version \"" + setup.version +
                      "\" has a character that a scoop manifest does not take: ASCII letters, "
                      "digits, and . - + _ are possible");
    }
    Json manifest;
    manifest["version"] = setup.version;
    manifest["description"] = setup.description;
    manifest["homepage"] = HomepageOf(setup);
    manifest["license"] = LicenseOf(setup);
    Json& files = manifest["architecture"]["64bit"];
    if (setup.isMsi) {
        files["url"] = setup.url;
        files["hash"] = setup.sha256;
        files["extract_dir"] = "Programs\\" + setup.folder;
        manifest["shortcuts"] = Json::array({Json::array({setup.executable, setup.name})});
    } else {
        // The part after "#/" is the name under which scoop keeps the file.
        files["url"] = setup.url + "#/setup.exe";
        files["hash"] = setup.sha256;
        manifest["installer"] = {{"file", "setup.exe"}, {"args", {"/S", "/D=$dir"}}};
        // With "_?=" the uninstaller runs where it is, so that scoop waits for it.
        manifest["uninstaller"] = {{"file", "uninstall.exe"}, {"args", {"/S", "_?=$dir"}}};
    }
    return {WordCharactersOf(setup.name, kLongestIdPart) + ".json",
            manifest.dump(4, ' ', false, Json::error_handler_t::replace) + '\n'};
}

}  // namespace tarn::tools
