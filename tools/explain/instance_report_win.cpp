#include "tools/explain/instance_report.h"

#include "base/handles.h"
#include "base/thread.h"
#include "instance/shared_block.h"
#include "instance/single_instance.h"
#include "settings/layered_settings.h"
#include "settings/settings_paths.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

void MarkUnusable(InstanceReport& report, const char* reason) {
    report.state = "unusable";
    report.reason = reason;
}

bool IsSwitchedOn(const std::wstring& programPath, const Settings& settings,
                  InstanceReport& report) {
    if (settings.serviceMode) {
        report.reason = "the application is a service";
        return false;
    }
    const std::optional<std::wstring> file = SettingsPathOf(programPath);
    if (file && IsSingleInstanceOn(LayeredSettings(*file))) return true;
    report.reason = "\"Single Instance\" is not exactly \"yes\"";
    return false;
}

bool Runs(DWORD threadId) {
    const UniqueHandle thread(OpenThread(SYNCHRONIZE | THREAD_QUERY_INFORMATION, FALSE, threadId));
    return thread && !HasEnded(thread.get(), 0);
}

void ReadBlock(const SharedBlock& block, const std::vector<std::wstring>& arguments,
               InstanceReport& report) {
    report.state = "second";
    report.processId = block.processId;
    report.listenerThreadId = block.listenerThreadId;
    if (ArgumentUnits(arguments) > kArgumentUnits) {
        report.reason = "the arguments are too long to hand over";
    } else if (!Runs(block.listenerThreadId)) {
        report.reason = "its listener has ended";
    }
}

}  // namespace

InstanceReport ReportInstance(const std::wstring& programPath, const Settings& settings,
                              const std::vector<std::wstring>& arguments) {
    InstanceReport report;
    if (!IsSwitchedOn(programPath, settings, report)) return report;
    const std::wstring name = InstanceName(programPath);
    report.blockName = report.messageName = Utf8Of(name);
    report.eventName = Utf8Of(ReadyEventName(name));
    report.argumentRoom = kArgumentUnits * sizeof(char16_t);
    report.argumentBytes = ArgumentUnits(arguments) * sizeof(char16_t);

    const UniqueHandle mapping(OpenFileMappingW(FILE_MAP_WRITE, FALSE, name.c_str()));
    if (!mapping) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND) {
            report.state = "first";
        } else {
            MarkUnusable(report, "another object has the name of the shared block");
        }
        return report;
    }
    const UniqueFileView view(
        MapViewOfFile(mapping.get(), FILE_MAP_WRITE, 0, 0, sizeof(SharedBlock)));
    if (!view) {
        MarkUnusable(report, "the shared block is too small");
        return report;
    }
    if (!IsCommitted(view.get())) {
        MarkUnusable(report, "the shared block is not committed");
        return report;
    }
    ReadBlock(*static_cast<const SharedBlock*>(view.get()), arguments, report);
    return report;
}

OutcomeReport OutcomeOfSecond(const InstanceReport& instance) {
    if (!instance.reason.empty()) {
        return {"fails", -1,
                "Another instance is running, but " + instance.reason + "; nothing is shown."};
    }
    OutcomeReport outcome;
    outcome.kind = "hands-over";
    const std::string process = "process " + std::to_string(instance.processId);
    if (UniqueHandle(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, instance.processId))) {
        outcome.summary = "Hands its arguments to the running instance (" + process +
                          ") and exits with its answer.";
    } else {
        outcome.exitCode = 0;
        outcome.summary = "Hands its arguments to an instance whose process (" + process +
                          ") cannot be opened, and exits.";
    }
    return outcome;
}

}  // namespace tarn::tools
