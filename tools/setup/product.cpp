#include "tools/setup/product.h"

#include <algorithm>
#include <vector>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/image/executable.h"
#include "tools/image/icon_export.h"
#include "tools/image/version_info.h"
#include "tools/stamp/launcher_file.h"
#include "tools/wrap/result_names.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestText = 128;  // UTF-16 units
constexpr std::size_t kLongestId = 64;     // the registry allows 255, including an appended ".ext"
constexpr std::uint16_t kVersionNumber = 1;

bool IsAlphanumeric(char character) {
    const char lower = ToLowerAscii(character);
    return (lower >= 'a' && lower <= 'z') || (lower >= '0' && lower <= '9');
}

std::vector<fs::path> LaunchersIn(const fs::path& folder) {
    std::vector<fs::path> found;
    try {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const bool isExe = ToLowerAscii(Utf8OfPath(entry.path().extension())) == ".exe";
            if (isExe && entry.is_regular_file() && IsLauncher(ReadWholeFile(entry.path()))) {
                found.push_back(entry.path());
            }
        }
    } catch (const fs::filesystem_error& error) {
        throw Failure(folder, "cannot be read (" + error.code().message() + ")");
    }
    std::sort(found.begin(), found.end());
    return found;
}

fs::path ExecutableOf(const SetupRequest& request) {
    if (!request.executable.empty()) {
        fs::path file = request.folder / PathOf(request.executable);
        if (!IsLauncher(ReadWholeFile(file))) {
            throw Failure(file, "is not an executable created by tarn wrap");
        }
        return file;
    }
    const std::vector<fs::path> found = LaunchersIn(request.folder);
    if (found.empty()) {
        throw Failure(request.folder,
                      "contains no executable created by tarn wrap; specify the folder that it "
                      "created");
    }
    if (found.size() > 1) {
        throw Failure(request.folder,
                      "contains several applications (" + Utf8OfPath(found[0].filename()) + ", " +
                          Utf8OfPath(found[1].filename()) + "); specify one with --executable");
    }
    return found[0];
}

void CheckText(const char* option, const std::string& text) {
    if (Utf16Of(text).size() > kLongestText) {
        throw Failure(std::string(option) + " " + text + ": is longer than 128 characters");
    }
    const bool hasControl = std::any_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ';
    });
    if (hasControl) throw Failure(std::string(option) + ": the text contains a control character");
}

void CheckId(const std::string& id) {
    const bool isValid = !id.empty() && id.size() <= kLongestId && IsAlphanumeric(id.front()) &&
                         IsAlphanumeric(id.back()) && id.find("..") == std::string::npos &&
                         std::all_of(id.begin(), id.end(), [](char character) {
                             return IsAlphanumeric(character) || character == '.' ||
                                    character == '-' || character == '_';
                         });
    if (!isValid) {
        throw Failure("--id " + id +
                      ": at most 64 letters, digits, dots, hyphens and underscores are required, "
                      "beginning and ending with a letter or digit");
    }
}

// FNV-1a, 32 bits.
std::uint32_t HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261U;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    }
    return hash;
}

std::string Alphanumeric(std::string_view text) {
    constexpr std::size_t kLongest = 24;
    std::string kept;
    for (const char character : text) {
        if (IsAlphanumeric(character) && kept.size() < kLongest) kept += character;
    }
    return kept;
}

}  // namespace

Product ReadProduct(const SetupRequest& request) {
    const fs::path file = ExecutableOf(request);
    return WithFileName(file, [&] {
        const Bytes content = ReadWholeFile(file);
        const ResourceTree tree = Executable(content).Resources();
        const Bytes* const resource = FindResource(tree, kResourceVersion, kVersionNumber);
        const VersionInfo info = resource != nullptr ? ReadVersionInfo(*resource) : VersionInfo();
        const auto textOr = [&](const std::string& text, const char* name) {
            return text.empty() ? info.Text(name) : text;
        };
        Product product;
        product.executable = Utf8OfPath(file.filename());
        product.name = textOr(request.name, "ProductName");
        if (product.name.empty()) product.name = Utf8OfPath(file.stem());
        product.fileName = FileNameOf(product.name);
        product.version = textOr(request.version, "ProductVersion");
        if (product.version.empty()) product.version = "0.0.0";
        product.number = ComparableVersion(product.version);
        product.vendor = textOr(request.vendor, "CompanyName");
        product.description = textOr(request.description, "FileDescription");
        if (product.description.empty()) product.description = product.name;
        product.copyright = info.Text("LegalCopyright");
        product.id = request.id.empty() ? DerivedId(product.vendor, product.name) : request.id;
        product.icon = IconFileOf(tree);
        CheckText("--name", product.name);
        CheckText("--version", product.version);
        CheckText("--vendor", product.vendor);
        CheckText("--description", product.description);
        CheckText("copyright", product.copyright);
        CheckId(product.id);
        return product;
    });
}

std::array<std::uint16_t, 4> ComparableVersion(std::string_view version) {
    std::array<std::uint16_t, 4> number = {};
    std::size_t at = 0;
    for (std::uint16_t& part : number) {
        const std::size_t begin = at;
        std::uint32_t value = 0;
        for (; at < version.size() && version[at] >= '0' && version[at] <= '9'; ++at) {
            value = std::min<std::uint32_t>(
                value * 10 + static_cast<std::uint32_t>(version[at] - '0'), UINT16_MAX);
        }
        part = static_cast<std::uint16_t>(value);
        if (at == begin || at == version.size() || version[at] != '.') break;
        ++at;
    }
    return number;
}

std::string VersionText(const std::array<std::uint16_t, 4>& number) {
    std::string text;
    for (const std::uint16_t part : number) {
        if (!text.empty()) text += '.';
        text += std::to_string(part);
    }
    return text;
}

std::string DerivedId(std::string_view vendor, std::string_view name) {
    const std::string shortVendor = Alphanumeric(vendor);
    const std::string shortName = Alphanumeric(name);
    std::string id = shortVendor;
    if (!id.empty() && !shortName.empty()) id += '.';
    id += shortName;
    if (shortVendor == vendor && shortName == name) return id;
    char suffix[16];
    std::snprintf(suffix, sizeof suffix, "%s%08x", id.empty() ? "" : "-",
                  HashOf(std::string(vendor) + '\n' + std::string(name)));
    return id + suffix;
}

std::string FileNameOf(std::string_view text) {
    std::string name(text);
    for (char& character : name) {
        const bool isForbidden =
            static_cast<unsigned char>(character) < ' ' ||
            std::string_view("<>:\"/\\|?*").find(character) != std::string_view::npos;
        if (isForbidden) character = '_';
    }
    while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.pop_back();
    while (!name.empty() && name.front() == ' ') name.erase(0, 1);
    try {
        CheckWindowsPath(name, "--name");
    } catch (const Failure&) {
        // The name of a device, or nothing is left.
        name = "_" + name;
    }
    return name;
}

std::string OpenCommandOf(const Product& product) {
    return std::string("\"") + kInstallFolderMark + "\\" + product.executable + "\" \"%1\"";
}

}  // namespace tarn::tools
