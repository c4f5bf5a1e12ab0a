#include "tools/check/main_class_search.h"

#include <algorithm>
#include <set>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/java/jar_file.h"
#include "tools/java/java_version.h"
#include "tools/java/manifest.h"

namespace tarn::tools {
namespace {

constexpr std::string_view kExtension = ".class";
constexpr std::size_t kMostSimilar = 3;

std::string_view SimpleName(std::string_view className) {
    return className.substr(className.rfind('/') + 1);
}

class Search {
  public:
    explicit Search(const std::string& className)
        : name_(className), entry_(className + std::string(kExtension)) {}

    void SearchIn(const std::filesystem::path& file, bool isOptional) {
        std::error_code error;
        if (result.isFound ||
            !seen_.insert(std::filesystem::weakly_canonical(file, error)).second) {
            return;
        }
        if (std::filesystem::is_directory(file, error)) {
            SearchFolder(file);
            return;
        }
        if (!std::filesystem::exists(file, error)) return;
        try {
            SearchJar(file);
        } catch (const Failure& failure) {
            if (!isOptional) result.badJars.push_back({file, failure.what()});
        }
    }

    ClassSearch result;

  private:
    void SearchFolder(const std::filesystem::path& folder) {
        const std::filesystem::path file = folder / PathOf(entry_);
        std::error_code error;
        if (!std::filesystem::is_regular_file(file, error)) return;
        result.isFound = true;
        result.javaVersion = JavaFeatureOfClass(ReadWholeFile(file));
    }

    void SearchJar(const std::filesystem::path& file) {
        const Bytes content = ReadWholeFile(file);
        const JarFile jar(content, file);
        if (const std::optional<Bytes> classFile = jar.Read(entry_)) {
            result.isFound = true;
            result.javaVersion = JavaFeatureOfClass(*classFile);
            return;
        }
        for (const std::string& name : jar.Names()) NoteSimilar(name);
        const std::optional<Bytes> text = jar.Read(kManifestEntry);
        if (!text) return;
        const Manifest manifest = Manifest::Parse(AsText(*text));
        for (const std::string& word : manifest.GetWords("Class-Path")) {
            SearchIn(file.parent_path() / PathOf(word), true);
        }
    }

    void NoteSimilar(std::string_view entry) {
        if (!entry.ends_with(kExtension) || result.similar.size() >= kMostSimilar) return;
        entry.remove_suffix(kExtension.size());
        const bool isSimilar = ToLowerAscii(entry) == ToLowerAscii(std::string_view(name_)) ||
                               SimpleName(entry) == SimpleName(name_);
        if (!isSimilar) return;
        std::string dotted(entry);
        std::replace(dotted.begin(), dotted.end(), '/', '.');
        result.similar.push_back(std::move(dotted));
    }

    std::string name_;
    std::string entry_;
    std::set<std::filesystem::path> seen_;
};

}  // namespace

ClassSearch FindClass(const std::string& className, const std::vector<std::filesystem::path>& files,
                      const std::optional<std::filesystem::path>& executable) {
    Search search(className);
    if (executable) search.SearchIn(*executable, true);
    for (const std::filesystem::path& file : files) search.SearchIn(file, false);
    return std::move(search.result);
}

}  // namespace tarn::tools
