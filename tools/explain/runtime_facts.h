#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tarn::tools {

/// The version that the text of a runtime's file `release` names (`JAVA_VERSION="17.0.9"`); empty
/// when it names none.
std::string JavaVersionIn(std::string_view releaseFile);

/// The file version in the data of a version resource, "17.0.9.0"; empty when there is none.
std::string FileVersionIn(std::span<const std::byte> versionResource);

/// The same for the runtime that a `jvm.dll` belongs to, from the file in its home or, for a JRE
/// inside a JDK, in the folder above. Empty when there is none.
std::string ReleaseVersion(const std::wstring& jvmLibraryPath);

/// The version in the version information of a library, which is not loaded for running.
std::string LibraryVersion(const std::wstring& jvmLibraryPath);

}  // namespace tarn::tools
