#include "tests/import_hook/call_counts.h"

#include <cstdio>
#include <cstring>

#include "base/windows.h"
#include "tests/import_hook/call_subject.h"
#include "tests/import_hook/call_times.h"
#include "tests/import_hook/failure_plan.h"
#include "tests/import_hook/failure_results.h"
#include "tests/import_hook/hook_log.h"
#include "tests/import_hook/thread_roles.h"

namespace import_hook {

namespace {

FailurePlan plan;

std::string Line(const HookedFunction& function, unsigned role, unsigned number,
                 const std::uint64_t* arguments, const std::string& subject,
                 const FailurePlan::Failure* failure) {
    // Relative to the program, so that it is the same in every run.
    const std::uint64_t place =
        arguments[-1] - reinterpret_cast<std::uintptr_t>(GetModuleHandleW(nullptr));
    char rest[64];
    std::snprintf(rest, sizeof rest, " %u 0x%llx", number, static_cast<unsigned long long>(place));
    std::string line = std::to_string(role) + ' ' + function.library + '!' + function.name + rest;
    if (failure != nullptr) line += " failed " + std::to_string(failure->error);
    if (!subject.empty()) line += '\t' + subject;
    return line + '\n';
}

}  // namespace

void ReadFailurePlan() {
    std::wstring value(32768, L'\0');  // the maximum length of a variable's value
    value.resize(GetEnvironmentVariableW(L"HOOK_FAIL", value.data(), 32768));
    plan.Read(Utf8(value));
}

bool IsLogged(const char* name) {
    constexpr const char* kSilent[] = {
        "EnterCriticalSection",
        "LeaveCriticalSection",
        "GetLastError",
        "SetLastError",
        "TlsGetValue",
        "iswspace",
        "memchr",
        "memcmp",
        "memcpy",
        "memmove",
        "memset",
        "strlen",
        "strncmp",
        "strcmp",
        "wcslen",
        "wcscmp",
        "wcsncmp",
        "wmemcmp",
        "wmemcpy",
        "__C_specific_handler",
    };
    for (const char* each : kSilent) {
        if (std::strcmp(each, name) == 0) return false;
    }
    return true;
}

void* DecideCall(HookedFunction* function, const std::uint64_t* arguments, std::uint64_t* result) {
    const DWORD error = GetLastError();
    const unsigned role = ThreadRole();
    const unsigned number = ++function->calls[role];
    if (function->isLogged) RecordCallTime(*function, role);
    const std::string subject =
        function->isLogged ? CallSubject(function->name, arguments) : std::string();
    const FailurePlan::Failure* const failure =
        plan.Find({function->name, role, number, subject, function->canFail});
    if (function->isLogged) LogLine(Line(*function, role, number, arguments, subject, failure));
    if (failure == nullptr) {
        SetLastError(error);
        return function->target;
    }
    *result = failure->result.value_or(FailureResult(function->name, failure->error));
    SetLastError(failure->error);
    return nullptr;
}

}  // namespace import_hook
