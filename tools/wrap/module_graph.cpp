#include "tools/wrap/module_graph.h"

#include <map>

namespace tarn::tools {
namespace {

// Packages of the runtime's own modules that libraries are known to contain, too.
constexpr std::string_view kRuntimePackages[] = {
    "java/", "javax/xml/", "javax/xml", "org/w3c/dom", "org/xml/sax", "javax/transaction/xa"};

bool IsPackageOfRuntime(std::string_view package) {
    for (const std::string_view known : kRuntimePackages) {
        if (known.ends_with('/') ? package.starts_with(known) : package == known) return true;
    }
    return false;
}

}  // namespace

bool ModuleGraph::IsInRuntime(const std::string& module) const {
    if (!runtimeModules_.empty()) return runtimeModules_.count(module) != 0;
    return module.starts_with("java.") || module.starts_with("jdk.");
}

std::optional<std::size_t> ModuleGraph::JarOf(const std::string& module) const {
    for (std::size_t at = 0; at < jars_.size(); ++at) {
        const bool isModule =
            !jars_[at].file.isFolder && jars_[at].file.placement != Placement::Omitted;
        if (isModule && jars_[at].ModuleName() == module) return at;
    }
    return std::nullopt;
}

ModuleGraph::Closure ModuleGraph::ClosureOf(const std::set<std::size_t>& roots) const {
    Closure closure{roots, {}};
    std::vector<std::size_t> open(roots.begin(), roots.end());
    while (!open.empty()) {
        const ApplicationJar& jar = jars_[open.back()];
        open.pop_back();
        // A jar without a declaration reads everything on the class path as well.
        const std::optional<ModuleDeclaration>& declaration = jar.Module();
        if (!declaration) continue;
        for (const ModuleDeclaration::Requirement& requirement : declaration->requirements) {
            if (const std::optional<std::size_t> at = JarOf(requirement.module)) {
                if (closure.jars.insert(*at).second) open.push_back(*at);
            } else if (!requirement.isOptional && !IsInRuntime(requirement.module)) {
                closure.missing.push_back(jar.ModuleName() + " requires the module " +
                                          requirement.module);
            }
        }
    }
    return closure;
}

std::optional<std::string> ModuleGraph::SplitPackage(const std::set<std::size_t>& modules) const {
    std::map<std::string, std::size_t> owners;
    for (const std::size_t at : modules) {
        for (const std::string& package : jars_[at].Packages()) {
            const bool isNew = owners.emplace(package, at).second;
            if (!isNew || IsPackageOfRuntime(package)) return DottedName(package);
        }
    }
    for (std::size_t at = 0; at < jars_.size(); ++at) {
        if (modules.count(at) != 0 || jars_[at].file.placement == Placement::Omitted) continue;
        for (const std::string& package : jars_[at].Packages()) {
            if (owners.count(package) != 0) return DottedName(package);
        }
    }
    return std::nullopt;
}

}  // namespace tarn::tools
