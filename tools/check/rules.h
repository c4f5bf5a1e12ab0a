// What a settings file is checked for, one function a subject. Each adds what it finds.
#pragma once

#include "tools/check/checked_settings.h"
#include "tools/check/finding.h"

namespace tarn::tools {

/// Encodings that Windows reads otherwise than they are meant, zero characters, endless lines.
void CheckEncoding(const CheckedSettings& settings, Findings& findings);

/// Sections and keys that nobody reads: unknown, misplaced, repeated, outside any section.
void CheckStructure(const CheckedSettings& settings, Findings& findings);

/// Sections with "+": what they do to values that are no lists, and what takes precedence.
void CheckAdditiveSections(const CheckedSettings& settings, Findings& findings);

/// Flags and words in a form that does not count.
void CheckKeywords(const CheckedSettings& settings, Findings& findings);

/// Quotes that Windows removes, or that stay where none are wanted.
void CheckQuotes(const CheckedSettings& settings, Findings& findings);

/// Version bounds and preferred versions.
void CheckVersions(const CheckedSettings& settings, Findings& findings);

/// The tokens of "Virtual Machine Parameters": options that no JVM takes through its interface.
void CheckJvmOptions(const CheckedSettings& settings, Findings& findings);

/// Heap and stack sizes among them, percentages included.
void CheckMemorySizes(const CheckedSettings& settings, Findings& findings);

/// "-XX:" options among them, for the versions that the settings admit.
void CheckVmFlags(const CheckedSettings& settings, Findings& findings);

/// The main class's name, the class path's entries, and whether the one is in the others.
void CheckClassPath(const CheckedSettings& settings, Findings& findings);

/// The current directory on the class path: Java takes the empty element for it.
void CheckCurrentDirectory(const CheckedSettings& settings, Findings& findings);

/// Splash picture, output files, runtime and library folders.
void CheckFiles(const CheckedSettings& settings, Findings& findings);

/// All of them.
std::vector<Finding> CheckSettings(const CheckedSettings& settings);

}  // namespace tarn::tools
