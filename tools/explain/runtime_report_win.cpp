#include "tools/explain/runtime_report.h"

#include "base/handles.h"
#include "base/windows.h"
#include "runtime/jvm_library.h"
#include "runtime/pe_header.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/verdict_text.h"
#include "tools/image/version_info.h"
#include "tools/java/java_version.h"

namespace tarn::tools {
namespace {

std::string MachineName(std::uint16_t machine) {
    switch (machine) {
        case IMAGE_FILE_MACHINE_AMD64:
            return "x64";
        case IMAGE_FILE_MACHINE_I386:
            return "x86";
        case 0xAA64:  // IMAGE_FILE_MACHINE_ARM64, which older headers lack
            return "arm64";
        default:
            return "unknown";
    }
}

// `JAVA_VERSION` from the runtime's home or, for a JRE inside a JDK, from the folder above.
std::string ReleaseVersion(const std::wstring& jvmLibraryPath) {
    const std::filesystem::path home(RuntimeHomeOf(jvmLibraryPath));
    const std::string version = ReadJavaVersion(home);
    return version.empty() ? ReadJavaVersion(CutComponents(jvmLibraryPath, 4)) : version;
}

// The file version from the version information of a library, which is mapped but not run.
std::string LibraryVersion(const std::wstring& jvmLibraryPath) {
    const UniqueLibrary library(
        LoadLibraryExW(jvmLibraryPath.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    if (!library) return {};
    const HRSRC found = FindResourceW(library.get(), MAKEINTRESOURCEW(1), RT_VERSION);
    if (found == nullptr) return {};
    const HGLOBAL data = LoadResource(library.get(), found);
    if (data == nullptr) return {};
    const auto* const bytes = static_cast<const std::byte*>(LockResource(data));
    try {
        std::string version;
        const ByteSpan resource(bytes, SizeofResource(library.get(), found));
        for (const std::uint16_t part : ReadVersionInfo(resource).fileVersion) {
            if (!version.empty()) version += '.';
            version += std::to_string(part);
        }
        return version;
    } catch (const Failure&) {
        return {};
    }
}

// Whether the source states the version of a runtime in the registry.
bool IsRegistered(const SourceReport& source) {
    if (source.source == RuntimeSource::Further) {
        return source.further == FurtherSource::Vendors || source.further == FurtherSource::User;
    }
    return source.source == RuntimeSource::Registry ||
           source.source == RuntimeSource::PairedRegistry;
}

}  // namespace

RuntimeReport ReportRuntime(const Settings& settings, RuntimeChoice& choice) {
    RuntimeReport report;
    SearchReport search;
    report.isFound =
        FindRuntime(settings.policy, settings.pairProduct, choice, search) ||
        FindFurtherRuntime(settings.policy, ReadFurtherSources(settings), choice, search);
    report.sources = DescribeSearch(search, settings.policy.preferredVersions);
    if (!report.isFound) return report;

    report.home = Utf8Of(choice.runtimeHome);
    report.jvmLibrary = Utf8Of(choice.jvmLibraryPath);
    if (IsRegistered(search.sources.back())) {
        report.registeredVersion = Utf8Of(FormatVersion(choice.version));
    }
    report.releaseVersion = ReleaseVersion(choice.jvmLibraryPath);
    report.libraryVersion = LibraryVersion(choice.jvmLibraryPath);
    report.machine = MachineName(MachineOfFile(choice.jvmLibraryPath));
    report.isForPairedLauncher = choice.pairedLaunch;
    return report;
}

}  // namespace tarn::tools
