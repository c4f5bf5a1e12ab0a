#include "tools/wrap/module_plan.h"

#include <algorithm>
#include <map>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/wrap/module_graph.h"
#include "tools/wrap/native_libraries.h"

namespace tarn::tools {
namespace {

constexpr char kApplication[] = "javafx/application/Application";
constexpr char kGraphics[] = "javafx.graphics";
constexpr std::string_view kModuleFolder = "modules";
constexpr char kUnnamed[] = "ALL-UNNAMED";

std::string Concat(const std::set<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ",") + word;
    return text;
}

// An option with a path: the launcher splits the options at spaces outside quotes.
std::string WithPath(const std::string& option, const std::string& path) {
    return path.find(' ') == std::string::npos ? option + path : option + '"' + path + '"';
}

bool IsJavaFx(const ApplicationJar& jar) {
    const std::optional<ModuleDeclaration>& declaration = jar.Module();
    return declaration && declaration->name.starts_with("javafx.") &&
           jar.file.placement != Placement::Omitted;
}

bool HasWindowsLibrary(const ApplicationJar& jar) {
    return std::any_of(jar.Names().begin(), jar.Names().end(),
                       [](const std::string& name) { return name.ends_with(".dll"); });
}

// Java's launcher treats such a class specially, even when it has a main method.
bool ExtendsJavaFxApplication(const ApplicationJars& jars, const std::string& mainClass) {
    std::set<std::string> seen;
    std::string name = mainClass;
    std::replace(name.begin(), name.end(), '.', '/');
    while (name != kApplication) {
        if (!seen.insert(name).second) return false;
        const ApplicationJar* const jar = FindClass(jars, name);
        if (jar == nullptr) return false;
        const auto bytes = jar->Read(EntryOfClass(name));
        const std::optional<ClassFile> file = bytes ? ReadClassFile(*bytes) : std::nullopt;
        if (!file) return false;
        name = file->superclass;
    }
    return true;
}

class Planner {
  public:
    Planner(ApplicationJars& jars, const WrapRequest& request, const std::string& mainClass,
            const std::set<std::string>& runtimeModules, std::vector<std::string>& warnings)
        : jars_(jars),
          request_(request),
          mainClass_(mainClass),
          runtimeModules_(runtimeModules),
          warnings_(warnings),
          graph_(jars, runtimeModules) {}

    ModulePlan Plan() {
        OmitOtherSystems();
        CheckJavaFx();
        PlanApplicationModule();
        if (UsesModulePath()) PlanJavaFx();
        if (modules_.empty()) return {};
        Move();
        AddOptions();
        return std::move(plan_);
    }

  private:
    // The path is relative to the current directory, which is the application's folder only then.
    bool UsesModulePath() const {
        return request_.startsAs != StartsAs::ClassPath && !request_.keepsWorkingDirectory;
    }

    // The jars of one JavaFX module for several systems: Java accepts a module once.
    void OmitOtherSystems() {
        std::map<std::string, const ApplicationJar*> forWindows;
        for (const ApplicationJar& jar : jars_) {
            if (IsJavaFx(jar) && SystemOfClassifier(jar.FileName()).empty()) {
                forWindows.emplace(jar.ModuleName(), &jar);
            }
        }
        for (ApplicationJar& jar : jars_) {
            const auto found = forWindows.find(jar.ModuleName());
            if (!IsJavaFx(jar) || found == forWindows.end() || found->second == &jar) continue;
            jar.file.placement = Placement::Omitted;
            warnings_.push_back(jar.FileName() + ": is omitted, because " +
                                found->second->FileName() + " contains the same module");
        }
    }

    void CheckJavaFx() const {
        if (!ExtendsJavaFxApplication(jars_, mainClass_)) return;
        const std::string extends = mainClass_ + " extends javafx.application.Application";
        if (std::any_of(jars_.begin(), jars_.end(), IsJavaFx)) {
            if (UsesModulePath()) return;
            throw Failure(
                extends +
                ", which Java starts only with JavaFX on the module path, relative to "
                "the application's folder; omit " +
                (request_.keepsWorkingDirectory ? "--keep-working-dir" : "--start-as class-path") +
                ", or use a main class that calls Application.launch");
        }
        if (runtimeModules_.count(kGraphics) != 0) return;
        if (FindClass(jars_, kApplication) != nullptr) {
            warnings_.push_back(extends +
                                ", and the jar contains JavaFX itself: Java starts it only if the "
                                "runtime contains JavaFX, too; use a main class that calls "
                                "Application.launch, or JavaFX's own jars with --class-path");
        } else {
            warnings_.push_back(extends +
                                ", but no jar contains JavaFX: only runtimes that contain it start "
                                "the application; add its jars for Windows (classifier win) with "
                                "--class-path, or ship a runtime that contains JavaFX");
        }
    }

    void PlanApplicationModule() {
        const ApplicationJar& jar = jars_.front();
        if (request_.startsAs == StartsAs::ClassPath) return;
        const bool isAsked = request_.startsAs == StartsAs::Module;
        if (!jar.Module() || (!isAsked && jar.Module()->mainClass != mainClass_)) {
            if (isAsked) throw Failure(jar.file.source, "contains no module-info.class");
            return;
        }
        const ModuleGraph::Closure closure = graph_.ClosureOf({0});
        const std::string obstacle = ObstacleFor(closure);
        if (obstacle.empty()) {
            modules_ = closure.jars;
            plan_.mainModule = jar.ModuleName();
            return;
        }
        const std::string message = jar.FileName() + ": the module " + jar.ModuleName() +
                                    " cannot be started as a module: " + obstacle;
        if (isAsked) throw Failure(message);
        warnings_.push_back(message + "; it starts on the class path");
    }

    // Why the application's jar cannot be a module; empty if it can.
    std::string ObstacleFor(const ModuleGraph::Closure& closure) const {
        if (request_.singleFile) return "it is part of the executable (--single-file)";
        if (request_.keepsWorkingDirectory) {
            return "the module path is relative to the application's folder (--keep-working-dir)";
        }
        if (!jars_.front().Has(EntryOfClass(mainClass_))) {
            return "it does not contain the class " + mainClass_;
        }
        if (!closure.missing.empty()) return closure.missing.front() + ", which no jar contains";
        if (const auto package = graph_.SplitPackage(closure.jars)) {
            return "the package " + *package + " is in more than one jar or in the runtime";
        }
        return {};
    }

    void PlanJavaFx() {
        std::set<std::size_t> found;
        for (std::size_t at = 0; at < jars_.size(); ++at) {
            if (!IsJavaFx(jars_[at])) continue;
            found.insert(at);
            added_.insert(jars_[at].ModuleName());
            if (HasWindowsLibrary(jars_[at])) plan_.nativeModules.insert(jars_[at].ModuleName());
        }
        const ModuleGraph::Closure closure = graph_.ClosureOf(found);
        for (const std::string& missing : closure.missing) {
            warnings_.push_back(missing + ", which no jar contains: Java does not start");
        }
        modules_.insert(closure.jars.begin(), closure.jars.end());
    }

    void Move() {
        for (const std::size_t at : modules_) {
            ClassPathFile& file = jars_[at].file;
            if (at == 0) {
                // The launcher requires a class path. Java prefers the module.
                file.placement = Placement::Both;
                continue;
            }
            file.placement = Placement::ModulePath;
            file.target = std::string(kModuleFolder) + '/' + jars_[at].FileName();
        }
    }

    void AddOptions() {
        std::string path;
        if (!plan_.mainModule.empty()) {
            added_.insert(plan_.mainModule);
            path = jars_.front().file.target;
        }
        if (modules_.size() > modules_.count(0)) {
            if (!path.empty()) path += ';';
            path += kModuleFolder;
        }
        plan_.vmParameters.push_back(WithPath("--module-path=", path));
        plan_.vmParameters.push_back("--add-modules=" + Concat(added_));
        AddExports();
    }

    // Libraries use internal packages of JavaFX, which are open to them on a class path only.
    void AddExports() {
        std::map<std::string, std::string> modulesOf;  // by package, with slashes
        for (const std::size_t at : modules_) {
            if (!IsJavaFx(jars_[at])) continue;
            const std::optional<ModuleDeclaration>& declaration = jars_[at].Module();
            for (const std::string& package : jars_[at].Packages()) {
                if (declaration && declaration->exports.count(DottedName(package)) == 0) {
                    modulesOf[package] = jars_[at].ModuleName();
                }
            }
        }
        if (modulesOf.empty()) return;
        std::map<std::string, std::set<std::string>> users;  // by "module/package"
        for (std::size_t at = 0; at < jars_.size(); ++at) {
            if (IsJavaFx(jars_[at]) || jars_[at].file.placement == Placement::Omitted) continue;
            const std::string user = modules_.count(at) != 0 ? jars_[at].ModuleName() : kUnnamed;
            for (const std::string& package : PackagesUsedBy(jars_[at])) {
                const auto found = modulesOf.find(package);
                if (found == modulesOf.end()) continue;
                users[found->second + '/' + DottedName(package)].insert(user);
            }
        }
        for (const auto& [package, names] : users) {
            plan_.vmParameters.push_back("--add-exports=" + package + '=' + Concat(names));
        }
    }

    static std::set<std::string> PackagesUsedBy(const ApplicationJar& jar) {
        std::set<std::string> packages;
        for (const std::string& entry : jar.Names()) {
            if (!entry.ends_with(".class")) continue;
            const auto bytes = jar.Read(entry);
            const std::optional<ClassFile> file = bytes ? ReadClassFile(*bytes) : std::nullopt;
            if (!file) continue;
            for (const std::string& name : file->references) packages.emplace(PackageOf(name));
        }
        return packages;
    }

    ApplicationJars& jars_;
    const WrapRequest& request_;
    const std::string& mainClass_;
    const std::set<std::string>& runtimeModules_;
    std::vector<std::string>& warnings_;
    ModuleGraph graph_;
    std::set<std::size_t> modules_;  // indices of the jars on the module path
    std::set<std::string> added_;    // names of the modules to start with
    ModulePlan plan_;
};

}  // namespace

ModulePlan PlanModules(ApplicationJars& jars, const WrapRequest& request,
                       const std::string& mainClass, const std::set<std::string>& runtimeModules,
                       std::vector<std::string>& warnings) {
    return Planner(jars, request, mainClass, runtimeModules, warnings).Plan();
}

}  // namespace tarn::tools
