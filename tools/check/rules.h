// The rules for settings files, one function for each subject. Each adds its findings.
#pragma once

#include "tools/check/checked_settings.h"
#include "tools/check/finding.h"

namespace tarn::tools {

/// Encodings that Windows misreads, null characters, overlong lines.
void CheckEncoding(const CheckedSettings& settings, Findings& findings);

/// Sections and keys that are never read: unknown, misplaced, repeated, outside any section.
void CheckStructure(const CheckedSettings& settings, Findings& findings);

/// "+" sections: their effect on values that are not lists, and precedence.
void CheckAdditiveSections(const CheckedSettings& settings, Findings& findings);

/// Flags and keywords with values that have no effect.
void CheckKeywords(const CheckedSettings& settings, Findings& findings);

/// Quotes that Windows removes, and quotes that become part of a value.
void CheckQuotes(const CheckedSettings& settings, Findings& findings);

/// Version bounds and preferred versions.
void CheckVersions(const CheckedSettings& settings, Findings& findings);

/// "Virtual Machine Parameters": options that no JVM accepts through its interface.
void CheckJvmOptions(const CheckedSettings& settings, Findings& findings);

/// "--add-opens" and its relatives in "Virtual Machine Parameters": values that no JVM accepts.
void CheckModuleOptions(const CheckedSettings& settings, Findings& findings);

/// Agents and module paths in "Virtual Machine Parameters": files that do not exist.
void CheckJvmFiles(const CheckedSettings& settings, Findings& findings);

/// Heap and stack sizes in "Virtual Machine Parameters", including percentages.
void CheckMemorySizes(const CheckedSettings& settings, Findings& findings);

/// "-XX:" options in "Virtual Machine Parameters", for the versions that the settings admit.
void CheckVmFlags(const CheckedSettings& settings, Findings& findings);

/// The entries of the class path, the main class's name, and whether the class exists.
void CheckClassPath(const CheckedSettings& settings, Findings& findings);

/// The current directory on the class path: Java takes the empty element for it.
void CheckCurrentDirectory(const CheckedSettings& settings, Findings& findings);

/// [Application]: the words of "Cmd", and keys that exclude each other.
void CheckApplication(const CheckedSettings& settings, Findings& findings);

/// Splash picture, output files, runtime and library folders.
void CheckFiles(const CheckedSettings& settings, Findings& findings);

/// Archives of classes: "Fast Start", the options for an archive, and the shipped runtime's own.
void CheckFastStart(const CheckedSettings& settings, Findings& findings);

/// Applies all rules.
std::vector<Finding> CheckSettings(const CheckedSettings& settings);

}  // namespace tarn::tools
