#include "tests/import_hook/thread_roles.h"

#include <atomic>
#include <new>

#include "tests/import_hook/hooked_function.h"

namespace import_hook {

namespace {

struct NewThread {
    LPTHREAD_START_ROUTINE start;
    void* parameter;
    unsigned role;
};

DWORD slot = TLS_OUT_OF_INDEXES;
std::atomic<unsigned> lastRole{1};

DWORD WINAPI Begin(void* parameter) {
    auto* const made = static_cast<NewThread*>(parameter);
    const NewThread thread = *made;
    delete made;
    TlsSetValue(slot, reinterpret_cast<void*>(static_cast<std::uintptr_t>(thread.role)));
    return thread.start(thread.parameter);
}

}  // namespace

void PrepareThreadRoles() {
    slot = TlsAlloc();
}

unsigned ThreadRole() {
    const auto role = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(TlsGetValue(slot)));
    return role != 0 ? role : 1;
}

HANDLE WINAPI CreateThreadWithRole(SECURITY_ATTRIBUTES* security, SIZE_T stackSize,
                                   LPTHREAD_START_ROUTINE start, void* parameter, DWORD flags,
                                   DWORD* threadId) {
    unsigned role = ++lastRole;
    // Short-lived workers share the last number.
    if (role >= kMostRoles) role = kMostRoles - 1;
    auto* const made = new NewThread{start, parameter, role};
    const HANDLE thread = CreateThread(security, stackSize, Begin, made, flags, threadId);
    if (thread == nullptr) delete made;
    return thread;
}

}  // namespace import_hook
