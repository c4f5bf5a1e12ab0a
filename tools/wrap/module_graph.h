#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/wrap/application_jars.h"

namespace tarn::tools {

/// The modules of an application's jars and of the runtime.
class ModuleGraph {
  public:
    /// `runtimeModules` are those of the runtime, empty when unknown: then every name below "java."
    /// and "jdk." is taken for one of its modules.
    ModuleGraph(const ApplicationJars& jars, const std::set<std::string>& runtimeModules)
        : jars_(jars), runtimeModules_(runtimeModules) {}

    /// The jars of a module and of all that it requires, as indices.
    struct Closure {
        std::set<std::size_t> jars;
        std::vector<std::string> missing;  // "X requires the module Y"
    };

    /// `roots` are indices of jars.
    Closure ClosureOf(const std::set<std::size_t>& roots) const;

    /// A package that two of the application's jars, or such a jar and the runtime, both contain,
    /// although one of them is to be a module, which Java does not allow or does not find.
    std::optional<std::string> SplitPackage(const std::set<std::size_t>& modules) const;

  private:
    bool IsInRuntime(const std::string& module) const;
    std::optional<std::size_t> JarOf(const std::string& module) const;

    const ApplicationJars& jars_;
    const std::set<std::string>& runtimeModules_;
};

}  // namespace tarn::tools
