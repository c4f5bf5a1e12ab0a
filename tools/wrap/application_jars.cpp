#include "tools/wrap/application_jars.h"

#include <algorithm>
#include <charconv>

#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"
#include "tools/java/java_version.h"
#include "tools/java/manifest.h"
#include "tools/java/module_name.h"
#include "tools/wrap/output_folder.h"

namespace tarn::tools {
namespace {

constexpr std::string_view kClass = ".class";
constexpr std::string_view kModuleInfo = "module-info.class";
constexpr std::string_view kVersions = "META-INF/versions/";
constexpr std::size_t kClassHeader = 8;  // bytes up to and including the version

// The N of "META-INF/versions/N/module-info.class"; 0 for other entries.
int VersionOfModuleInfo(std::string_view entry) {
    if (!entry.starts_with(kVersions)) return 0;
    entry.remove_prefix(kVersions.size());
    int version = 0;
    const auto [end, error] = std::from_chars(entry.data(), entry.data() + entry.size(), version);
    if (error != std::errc()) return 0;
    entry.remove_prefix(static_cast<std::size_t>(end - entry.data()));
    return entry.starts_with('/') && entry.substr(1) == kModuleInfo ? version : 0;
}

}  // namespace

ApplicationJar::ApplicationJar(ClassPathFile classPathFile) : file(std::move(classPathFile)) {
    if (file.isFolder) {
        for (const TreeEntry& entry : ListTree(file.source)) {
            if (!entry.isFolder) names_.push_back(Utf8OfPath(entry.path.generic_string()));
        }
        return;
    }
    content_ = ReadWholeFile(file.source);
    jar_ = std::make_unique<JarFile>(content_, file.source);
    FindModule();
}

bool ApplicationJar::Has(const std::string& entry) const {
    if (jar_) return jar_->Has(entry);
    return std::find(names_.begin(), names_.end(), entry) != names_.end();
}

std::optional<Bytes> ApplicationJar::Read(const std::string& entry) const {
    if (jar_) return jar_->Read(entry);
    if (!Has(entry)) return std::nullopt;
    return ReadWholeFile(file.source / PathOf(entry));
}

Bytes ApplicationJar::ReadStart(const std::string& entry, std::size_t size) const {
    Bytes bytes = (jar_ ? jar_->ReadStart(entry, size) : Read(entry)).value_or(Bytes());
    bytes.resize(std::min(bytes.size(), size));
    return bytes;
}

std::string ApplicationJar::FileName() const {
    return Utf8OfPath(file.source.filename());
}

std::vector<std::string> ApplicationJar::ClassEntries() const {
    std::vector<std::string> entries;
    for (const std::string& name : Names()) {
        const bool isClass = name.ends_with(kClass) && !name.starts_with("META-INF/") &&
                             name.substr(name.rfind('/') + 1) != kModuleInfo;
        if (isClass) entries.push_back(name);
    }
    return entries;
}

std::set<std::string> ApplicationJar::Packages() const {
    std::set<std::string> packages;
    for (const std::string& entry : ClassEntries()) packages.emplace(PackageOf(entry));
    return packages;
}

int ApplicationJar::OldestJava() const {
    int oldest = 0;
    for (const std::string& entry : ClassEntries()) {
        oldest = std::max(oldest, JavaFeatureOfClass(ReadStart(entry, kClassHeader)));
    }
    return oldest;
}

void ApplicationJar::FindModule() {
    const Manifest manifest = jar_->Has(kManifestEntry) ? Manifest::Of(*jar_) : Manifest();
    std::string entry(kModuleInfo);
    if (!Has(entry) && ToLowerAscii(manifest.Get("Multi-Release")) == "true") {
        int oldest = 0;
        for (const std::string& name : Names()) {
            const int version = VersionOfModuleInfo(name);
            if (version == 0 || (oldest != 0 && version > oldest)) continue;
            oldest = version;
            entry = name;
        }
    }
    if (const std::optional<Bytes> bytes = Read(entry)) {
        if (const std::optional<ClassFile> classFile = ReadClassFile(*bytes)) {
            module_ = classFile->module;
        }
    }
    moduleName_ = manifest.Get("Automatic-Module-Name");
    if (moduleName_.empty()) moduleName_ = AutomaticModuleName(FileName());
    if (module_) moduleName_ = module_->name;
}

ApplicationJars OpenJars(std::vector<ClassPathFile> files) {
    ApplicationJars jars;
    jars.reserve(files.size());
    for (ClassPathFile& file : files) jars.emplace_back(std::move(file));
    return jars;
}

const ApplicationJar* FindClass(const ApplicationJars& jars, std::string_view className) {
    const std::string entry = EntryOfClass(className);
    const auto found = std::find_if(jars.begin(), jars.end(),
                                    [&](const ApplicationJar& jar) { return jar.Has(entry); });
    return found == jars.end() ? nullptr : &*found;
}

int OldestJavaOf(const ApplicationJars& jars) {
    int oldest = 0;
    for (const ApplicationJar& jar : jars) oldest = std::max(oldest, jar.OldestJava());
    return oldest;
}

}  // namespace tarn::tools
