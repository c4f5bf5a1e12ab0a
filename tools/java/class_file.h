#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

/// A module as its module-info.class declares it. Package names are dotted.
struct ModuleDeclaration {
    struct Requirement {
        std::string module;
        bool isOptional = false;  // "requires static"
    };

    std::string name;
    std::string mainClass;  // attribute ModuleMainClass, dotted; empty when absent
    std::vector<Requirement> requirements;
    std::set<std::string> exports;  // packages exported to all modules
};

/// What a class file says about its class. Names have slashes: "java/lang/Object".
struct ClassFile {
    std::string name;
    std::string superclass;            // empty for java/lang/Object and module-info
    std::set<std::string> references;  // all classes that the constant pool names, itself included
    std::optional<ModuleDeclaration> module;  // of a module-info.class
};

/// Reads a class file of any version; nothing when the bytes are not a well-formed one.
std::optional<ClassFile> ReadClassFile(std::span<const std::byte> bytes);

/// "a.b.C" for "a/b/C".
std::string DottedName(std::string_view name);

/// "a/b" for "a/b/C" and for "a/b/C.class"; empty for the unnamed package.
std::string_view PackageOf(std::string_view name);

}  // namespace tarn::tools
