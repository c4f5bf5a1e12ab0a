#include "tools/setup/association.h"

#include <algorithm>
#include <set>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/setup/product.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kLongestExtension = 32;
constexpr std::size_t kLongestDescription = 128;  // characters of UTF-8
constexpr char kClasses[] = "Software\\Classes";

bool IsLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
}

void CheckDescription(const std::string& option, const std::string& description) {
    if (description.size() > kLongestDescription) {
        throw Failure(option + ": the description is longer than 128 characters");
    }
}

struct NameAndText {
    std::string name;  // lower case
    std::string text;
};

NameAndText Split(const std::string& option) {
    const std::size_t equals = option.find('=');
    if (equals == std::string::npos) return {ToLowerAscii(option), {}};
    return {ToLowerAscii(option.substr(0, equals)), option.substr(equals + 1)};
}

// Values are collected under one key after another.
class ValueList {
  public:
    void Add(std::string key, std::string name, std::string data) {
        values_.push_back({std::move(key), std::move(name), std::move(data), false, {}});
    }
    void AddIfFree(const std::string& classesKey, const std::string& lookedAt, std::string name,
                   std::string data) {
        values_.push_back({std::string(kClasses) + "\\" + classesKey, std::move(name),
                           std::move(data), true, lookedAt});
    }
    std::vector<RegistryValue> Take() { return std::move(values_); }

  private:
    std::vector<RegistryValue> values_;
};

std::string InFolder(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return std::string(1, kInstallFolderMark) + "\\" + path;
}

// A ProgID with its icon and the command that opens a document.
void AddClass(ValueList& list, const Product& product, const std::string& progId,
              const std::string& description, const std::string& icon) {
    const std::string key = std::string(kClasses) + "\\" + progId;
    list.Add(key, "", description);
    list.Add(key + "\\DefaultIcon", "", icon);
    list.Add(key + "\\shell\\open\\command", "", OpenCommandOf(product));
}

// The capabilities by which Windows lists the application under "Default apps".
std::string CapabilitiesOf(const Product& product) {
    return "Software\\" + product.id + "\\Capabilities";
}

void AddApplication(ValueList& list, const Product& product,
                    const std::vector<Association>& associations) {
    const std::string key = std::string(kClasses) + "\\Applications\\" + product.executable;
    list.Add(key, "FriendlyAppName", product.name);
    list.Add(key + "\\shell\\open\\command", "", OpenCommandOf(product));
    for (const Association& association : associations) {
        list.Add(key + "\\SupportedTypes", association.extension, "");
    }
}

}  // namespace

Association ParseAssociation(const std::string& option) {
    const std::string shown = "--associate " + option;
    auto [extension, text] = Split(option);
    const bool isExtension =
        extension.size() > 1 && extension.size() <= kLongestExtension && extension[0] == '.' &&
        std::all_of(extension.begin() + 1, extension.end(), [](char character) {
            return IsLetterOrDigit(character) || character == '_' || character == '-' ||
                   character == '+';
        });
    if (!isExtension) {
        throw Failure(shown +
                      ": an extension is required, such as .ext or .ext=\"Kind of document\"");
    }
    // Windows starts programs, libraries and shortcuts itself.
    for (const char* const ofSystem : {".exe", ".com", ".bat", ".cmd", ".dll", ".lnk", ".msi",
                                       ".reg", ".scr", ".sys", ".url", ".vbs", ".ps1"}) {
        if (extension == ofSystem) {
            throw Failure(shown + ": this extension belongs to Windows");
        }
    }
    Association association{extension, text, {}};
    const std::size_t comma = text.rfind(',');
    if (comma != std::string::npos && ToLowerAscii(text).ends_with(".ico")) {
        association.description = text.substr(0, comma);
        association.icon = text.substr(comma + 1);
        std::replace(association.icon.begin(), association.icon.end(), '\\', '/');
    }
    CheckDescription(shown, association.description);
    return association;
}

Protocol ParseProtocol(const std::string& option) {
    const std::string shown = "--protocol " + option;
    auto [scheme, text] = Split(option);
    const bool isScheme = scheme.size() > 1 && scheme.size() <= kLongestExtension &&
                          scheme[0] >= 'a' && scheme[0] <= 'z' &&
                          std::all_of(scheme.begin(), scheme.end(), [](char character) {
                              return IsLetterOrDigit(character) || character == '+' ||
                                     character == '-' || character == '.';
                          });
    if (!isScheme) {
        throw Failure(shown + ": a scheme is required, such as myapp or myapp=\"My App link\"");
    }
    for (const char* const ofSystem : {"http", "https", "file", "ftp", "mailto", "javascript",
                                       "about", "res", "shell", "search-ms"}) {
        if (scheme == ofSystem) throw Failure(shown + ": this scheme belongs to Windows");
    }
    CheckDescription(shown, text);
    return {scheme, text};
}

std::string ProgIdOf(const Product& product, const std::string& extension) {
    // An extension and a scheme may have the same name.
    return product.id + (extension[0] == '.' ? "" : ".url.") + extension;
}

std::vector<RegistryValue> AssociationValues(const Product& product,
                                             const std::vector<Association>& associations,
                                             const std::vector<Protocol>& protocols) {
    if (associations.empty() && protocols.empty()) return {};
    ValueList list;
    const std::string capabilities = CapabilitiesOf(product);
    const std::string ownIcon = InFolder(product.executable) + ",0";
    AddApplication(list, product, associations);
    for (const Association& association : associations) {
        const std::string progId = ProgIdOf(product, association.extension);
        const std::string key = std::string(kClasses) + "\\" + association.extension;
        AddClass(list, product, progId,
                 association.description.empty() ? product.name : association.description,
                 association.icon.empty() ? ownIcon : InFolder(association.icon));
        list.Add(key + "\\OpenWithProgids", progId, "");
        list.AddIfFree(association.extension, association.extension, "", progId);
        list.Add(capabilities + "\\FileAssociations", association.extension, progId);
    }
    for (const Protocol& protocol : protocols) {
        const std::string progId = ProgIdOf(product, protocol.scheme);
        const std::string text =
            "URL:" + (protocol.description.empty() ? product.name : protocol.description);
        AddClass(list, product, progId, text, ownIcon);
        list.Add(std::string(kClasses) + "\\" + progId, "URL Protocol", "");
        // The command comes last, because its presence says that the scheme is taken.
        const std::string command = protocol.scheme + "\\shell\\open\\command";
        list.AddIfFree(protocol.scheme, command, "", text);
        list.AddIfFree(protocol.scheme, command, "URL Protocol", "");
        list.AddIfFree(protocol.scheme + "\\DefaultIcon", command, "", ownIcon);
        list.AddIfFree(command, command, "", OpenCommandOf(product));
        list.Add(capabilities + "\\UrlAssociations", protocol.scheme, progId);
    }
    list.Add(capabilities, "ApplicationName", product.name);
    list.Add(capabilities, "ApplicationDescription", product.description);
    list.Add("Software\\RegisteredApplications", product.id, capabilities);
    return list.Take();
}

std::vector<std::string> RemovableKeys(const std::vector<RegistryValue>& values) {
    static const std::set<std::string> kOfWindows = {"Software", kClasses,
                                                     std::string(kClasses) + "\\Applications",
                                                     "Software\\RegisteredApplications"};
    std::set<std::string> keys;
    for (const RegistryValue& value : values) {
        std::string key = value.key;
        while (kOfWindows.count(key) == 0 && keys.insert(key).second) {
            const std::size_t backslash = key.rfind('\\');
            if (backslash == std::string::npos) break;
            key.resize(backslash);
        }
    }
    // A key sorts before the keys below it.
    return {keys.rbegin(), keys.rend()};
}

}  // namespace tarn::tools
