#include "tools/setup/package_content.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/wrap/output_folder.h"
#include "tools/wrap/result_names.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

// Windows limits the names of local users to 20 characters.
constexpr std::u16string_view kLongestUserFolder =
    u"C:\\Users\\12345678901234567890\\AppData\\Local\\Programs\\";

// Room for the folder into which setup extracts before it replaces files.
constexpr std::size_t kStagingName = 16;

std::string PathInPackage(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

std::size_t LengthOf(const std::string& path) {
    return Utf16Of(path).size();
}

void CheckLength(const PackageFile& file, const std::string& installFolderName) {
    const std::size_t used =
        kLongestUserFolder.size() + LengthOf(installFolderName) + 1 + kStagingName;
    const std::size_t limit = kLongestInstalledPath - std::min(used, kLongestInstalledPath);
    if (LengthOf(file.path) <= limit) return;
    throw Failure(file.source, "the path below the folder has " +
                                   std::to_string(LengthOf(file.path)) + " characters; at most " +
                                   std::to_string(limit) +
                                   " fit into Windows' limit of 260 for an installed file");
}

}  // namespace

const PackageFile* PackageContent::Find(const std::string& path) const {
    const std::wstring wanted = ToUpperAsWindows(WideOf(path));
    const auto found = std::find_if(files.begin(), files.end(), [&](const PackageFile& file) {
        return ToUpperAsWindows(WideOf(file.path)) == wanted;
    });
    return found == files.end() ? nullptr : &*found;
}

std::size_t PackageContent::LongestPath() const {
    std::size_t longest = 0;
    for (const PackageFile& file : files) longest = std::max(longest, LengthOf(file.path));
    return longest;
}

PackageContent ListPackage(const fs::path& folder, const std::string& installFolderName) {
    const fs::path root = fs::absolute(folder);
    PackageContent content;
    ResultNames names;
    for (const TreeEntry& entry : ListTree(root)) {
        std::string path = PathInPackage(entry.path);
        const fs::path source = root / entry.path;
        const std::string origin = Utf8OfPath(folder / entry.path);
        if (entry.isFolder) {
            names.AddFolder(path, origin);
            content.folders.push_back(std::move(path));
            continue;
        }
        names.AddFile(path, origin);
        std::error_code error;
        if (!fs::is_regular_file(source, error)) {
            throw Failure(source, "is neither a file nor a folder");
        }
        PackageFile file;
        file.path = std::move(path);
        file.source = source;
        file.size = fs::file_size(source, error);
        if (!error) file.time = fs::last_write_time(source, error);
        if (error) throw Failure(source, "cannot be read (" + error.message() + ")");
        CheckLength(file, installFolderName);
        content.size += file.size;
        content.files.push_back(std::move(file));
        if (content.files.size() > kMostFiles) {
            throw Failure(folder, "contains more than " + std::to_string(kMostFiles) + " files");
        }
    }
    return content;
}

}  // namespace tarn::tools
