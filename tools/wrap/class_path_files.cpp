#include "tools/wrap/class_path_files.h"

#include <algorithm>
#include <set>

#include "tools/common/ascii.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/java/manifest.h"
#include "tools/wrap/result_names.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kLibraries[] = "lib/";

int HexDigit(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    return -1;
}

// The path below the application's folder; empty when the URL leads out of it.
std::string TargetBelow(const fs::path& base, const std::string& url) {
    const fs::path joined = (base / PathOf(url)).lexically_normal();
    std::string target = Utf8OfPath(fs::path(joined.generic_string()));
    while (!target.empty() && target.back() == '/') target.pop_back();
    const bool isOutside =
        joined.is_absolute() || target.empty() || target == "." || target.compare(0, 2, "..") == 0;
    return isOutside ? std::string() : target;
}

// In the form that "." and "./" have below it.
fs::path OwnFolder(const fs::path& folder) {
    return (folder / ".").lexically_normal();
}

class Collector {
  public:
    explicit Collector(std::vector<std::string>& warnings) : warnings_(warnings) {}

    void AddFirst(const JarFile& jar) {
        Add({jar.Path(), Utf8OfPath(jar.Path().filename()), false});
        AddNamedBy(jar, jar.Path().parent_path(), fs::path());
    }

    void AddMore(const fs::path& path) {
        std::vector<fs::path> jars = {path};
        std::error_code error;
        if (fs::is_directory(path, error)) {
            jars.clear();
            fs::directory_iterator entry(path, error);
            for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
                const std::string extension = Utf8OfPath(entry->path().extension());
                if (ToLowerAscii(extension) == ".jar") jars.push_back(entry->path());
            }
            if (error) throw Failure(path, "cannot be read (" + error.message() + ")");
            if (jars.empty()) throw Failure(path, "contains no jars");
            std::sort(jars.begin(), jars.end());
        } else if (!fs::exists(path, error)) {
            throw Failure(path, "was not found; --class-path takes a jar or a folder of jars");
        }
        for (const fs::path& jar : jars) {
            AddJar({jar, kLibraries + Utf8OfPath(jar.filename()), false});
        }
    }

    std::vector<ClassPathFile> Take() { return std::move(files_); }

  private:
    // False when the file is on the class path already.
    bool Add(ClassPathFile file) {
        std::error_code error;
        const fs::path canonical = fs::weakly_canonical(file.source, error);
        if (!sources_.insert(error ? file.source : canonical).second) return false;
        CheckClassPathName(file.target, Utf8OfPath(file.source));
        files_.push_back(std::move(file));
        return true;
    }

    void AddJar(const ClassPathFile& file) {
        if (!Add(file)) return;
        const Bytes content = ReadWholeFile(file.source);
        const JarFile jar(content, file.source);
        AddNamedBy(jar, file.source.parent_path(), PathOf(file.target).parent_path());
    }

    void AddNamedBy(const JarFile& jar, const fs::path& folder, const fs::path& targetFolder) {
        if (!jar.Has(kManifestEntry)) return;
        for (const std::string& url : Manifest::Of(jar).GetWords("Class-Path")) {
            AddUrl(jar, DecodedUrl(url), folder, targetFolder);
        }
    }

    void AddUrl(const JarFile& jar, const std::string& url, const fs::path& folder,
                const fs::path& targetFolder) {
        const std::string from = Utf8OfPath(jar.Path()) + ": Class-Path names " + url;
        if (url.find(':') != std::string::npos) {
            warnings_.push_back(from + ", which is not a relative file name; it is omitted");
            return;
        }
        ClassPathFile file;
        file.source = folder / PathOf(url);
        file.target = TargetBelow(targetFolder, url);
        std::error_code error;
        const fs::file_type type = fs::status(file.source, error).type();
        // A file that exists but cannot be reached must not be omitted like a missing one.
        if (type == fs::file_type::none) {
            throw Failure(file.source, "cannot be read (" + error.message() + ")");
        }
        file.isFolder = type == fs::file_type::directory;
        if (file.target.empty()) {
            file.target = kLibraries + Utf8OfPath(file.source.lexically_normal().filename());
            // The jar's own folder or one above it would copy everything there.
            if (file.isFolder && (folder / PathOf(url)).lexically_normal() == OwnFolder(folder)) {
                warnings_.push_back(
                    from +
                    ", the jar's own folder: classes and resources beside the jar. The "
                    "application's folder is searched as well, because it is the current "
                    "directory; add the files that the application requires with --add");
                return;
            }
            if (file.isFolder) {
                warnings_.push_back(from + ", a folder that is not below the jar's; it is omitted");
                return;
            }
        }
        if (type == fs::file_type::not_found) {
            warnings_.push_back(from + ", which does not exist; it is omitted");
        } else if (file.isFolder) {
            Add(file);
        } else {
            AddJar(file);
        }
    }

    std::vector<std::string>& warnings_;
    std::vector<ClassPathFile> files_;
    std::set<fs::path> sources_;
};

}  // namespace

std::vector<ClassPathFile> CollectClassPath(const JarFile& jar, const std::vector<fs::path>& more,
                                            std::vector<std::string>& warnings) {
    Collector collector(warnings);
    collector.AddFirst(jar);
    for (const fs::path& path : more) collector.AddMore(path);
    return collector.Take();
}

std::string DecodedUrl(std::string_view url) {
    std::string text;
    for (std::size_t at = 0; at < url.size(); ++at) {
        const bool isCode = url[at] == '%' && at + 2 < url.size() && HexDigit(url[at + 1]) >= 0 &&
                            HexDigit(url[at + 2]) >= 0;
        if (isCode) {
            text += static_cast<char>(HexDigit(url[at + 1]) * 16 + HexDigit(url[at + 2]));
            at += 2;
        } else {
            text += url[at];
        }
    }
    return text;
}

void CheckClassPathName(const std::string& target, const std::string& origin) {
    CheckWindowsPath(target, origin);
    const std::size_t found = target.find_first_of(";%");
    if (found == std::string::npos) return;
    throw Failure(origin + ": the name contains \"" + target[found] +
                  "\", which a class path cannot contain; rename it");
}

}  // namespace tarn::tools
