#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/java/class_file.h"
#include "tools/java/jar_file.h"
#include "tools/wrap/class_path_files.h"

namespace tarn::tools {

/// A jar or a folder of classes of the application, opened to see what it contains.
class ApplicationJar {
  public:
    /// Opens the file. Throws Failure when it cannot be read or is corrupt.
    explicit ApplicationJar(ClassPathFile classPathFile);

    /// What the result has of it; the analysis decides about target and placement.
    ClassPathFile file;

    /// The names of the entries, with "/".
    const std::vector<std::string>& Names() const { return jar_ ? jar_->Names() : names_; }

    bool Has(const std::string& entry) const;
    std::optional<Bytes> Read(const std::string& entry) const;

    /// The first `size` bytes of an entry, or all of a shorter one.
    Bytes ReadStart(const std::string& entry, std::size_t size) const;

    /// The jar's file name, in UTF-8.
    std::string FileName() const;

    /// The module that a module-info.class declares; nothing for other jars and for folders.
    const std::optional<ModuleDeclaration>& Module() const { return module_; }

    /// The module's name on a module path, declared or derived as Java does; empty for a folder.
    const std::string& ModuleName() const { return moduleName_; }

    /// The packages of its classes, with "/". Classes for newer versions of Java only are ignored.
    std::set<std::string> Packages() const;

    /// The oldest Java version that runs all its classes (such as 17), apart from module-info.class
    /// and classes that only newer versions of Java load; 0 without classes.
    int OldestJava() const;

  private:
    std::vector<std::string> ClassEntries() const;
    void FindModule();

    Bytes content_;
    std::unique_ptr<JarFile> jar_;    // null for a folder
    std::vector<std::string> names_;  // of a folder
    std::optional<ModuleDeclaration> module_;
    std::string moduleName_;
};

/// The jars and folders of an application, in the order of its class path.
using ApplicationJars = std::vector<ApplicationJar>;

/// Opens all files. Throws Failure.
ApplicationJars OpenJars(std::vector<ClassPathFile> files);

/// The first jar that contains the class, with slashes in its name; or null.
const ApplicationJar* FindClass(const ApplicationJars& jars, std::string_view className);

/// The oldest Java version that runs every class of the jars; 0 without classes.
int OldestJavaOf(const ApplicationJars& jars);

}  // namespace tarn::tools
