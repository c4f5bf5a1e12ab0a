#include "tools/setup/installed_list.h"

#include <algorithm>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

std::string WithBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

}  // namespace

std::string SettingsFileOf(const Product& product, const PackageContent& content) {
    const std::string stem = product.executable.substr(0, product.executable.rfind('.'));
    const PackageFile* const file = content.Find(stem + ".ini");
    return file != nullptr ? file->path : std::string();
}

std::string InstalledList(const SetupRequest& request, const Product& product,
                          const PackageContent& content, const std::vector<RegistryValue>& values) {
    std::string list;
    const auto add = [&](char kind, const std::string& text) {
        list += kind;
        list += ' ';
        list += text;
        list += "\r\n";
    };
    for (const PackageFile& file : content.files) add('F', WithBackslashes(file.path));
    for (auto folder = content.folders.rbegin(); folder != content.folders.rend(); ++folder) {
        add('D', WithBackslashes(*folder));
    }
    add('S', product.fileName + ".lnk");
    if (request.desktopShortcut) add('L', product.fileName + ".lnk");
    if (!product.archivePrefix.empty()) add('A', product.archivePrefix);
    for (const RegistryValue& value : values) {
        add('K', value.key);
        add('N', value.name);
        add('V', value.data);
    }
    for (const std::string& key : RemovableKeys(values)) add('E', key);
    return list;
}

void CheckReservedNames(const PackageContent& content) {
    for (const char* const name : {kUninstaller, kInstalledList, kOriginalSettings}) {
        if (const PackageFile* const file = content.Find(name)) {
            throw Failure(file->source,
                          "has a name that the setup program needs for itself; rename it");
        }
    }
}

}  // namespace tarn::tools
