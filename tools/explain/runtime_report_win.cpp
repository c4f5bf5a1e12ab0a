#include "tools/explain/runtime_report.h"

#include "base/windows.h"
#include "runtime/pe_header.h"
#include "runtime/jvm_library.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/runtime_facts.h"
#include "tools/explain/verdict_text.h"

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

}  // namespace

RuntimeReport ReportRuntime(const Settings& settings, RuntimeChoice& choice) {
    RuntimeReport report;
    SearchReport search;
    report.isFound = FindRuntime(settings.policy, settings.pairProduct, choice, search);
    report.sources = DescribeSearch(search, settings.policy.preferredVersions);
    if (!report.isFound) return report;

    report.home = Utf8Of(choice.runtimeHome);
    report.jvmLibrary = Utf8Of(choice.jvmLibraryPath);
    const RuntimeSource source = search.sources.back().source;
    if (source == RuntimeSource::Registry || source == RuntimeSource::PairedRegistry) {
        report.registeredVersion = Utf8Of(FormatVersion(choice.version));
    }
    report.releaseVersion = ReleaseVersion(choice.jvmLibraryPath);
    report.libraryVersion = LibraryVersion(choice.jvmLibraryPath);
    report.machine = MachineName(MachineOfFile(choice.jvmLibraryPath));
    report.isForPairedLauncher = choice.pairedLaunch;
    return report;
}

}  // namespace tarn::tools
