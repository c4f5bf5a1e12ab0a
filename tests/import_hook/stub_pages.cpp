#include "tests/import_hook/stub_pages.h"

#include <cstring>
#include <mutex>

#include "base/windows.h"

// Entered by a jump from a stub, with the function's record in r11, the decision in r10 and the
// stack of a call. Stores the register arguments in the caller's home space, so that all arguments
// are one array, calls the decision, and jumps to the function or returns.
extern "C" void ImportHookCommon();
asm(R"(
    .text
    .globl ImportHookCommon
ImportHookCommon:
    movq %rcx, 0x08(%rsp)
    movq %rdx, 0x10(%rsp)
    movq %r8, 0x18(%rsp)
    movq %r9, 0x20(%rsp)
    leaq 0x08(%rsp), %rdx
    subq $0x78, %rsp
    movups %xmm0, 0x20(%rsp)
    movups %xmm1, 0x30(%rsp)
    movups %xmm2, 0x40(%rsp)
    movups %xmm3, 0x50(%rsp)
    movq %r11, %rcx
    leaq 0x60(%rsp), %r8
    callq *%r10
    movq 0x60(%rsp), %r11
    movups 0x20(%rsp), %xmm0
    movups 0x30(%rsp), %xmm1
    movups 0x40(%rsp), %xmm2
    movups 0x50(%rsp), %xmm3
    addq $0x78, %rsp
    movq 0x08(%rsp), %rcx
    movq 0x10(%rsp), %rdx
    movq 0x18(%rsp), %r8
    movq 0x20(%rsp), %r9
    testq %rax, %rax
    jz 1f
    jmpq *%rax
1:
    movq %r11, %rax
    retq
)");

namespace import_hook {

namespace {

#pragma pack(push, 1)
struct StubCode {
    std::uint16_t loadFunction = 0xBB49;  // mov r11, function
    HookedFunction* function = nullptr;
    std::uint16_t loadDecision = 0xBA49;  // mov r10, decision
    Decision decision = nullptr;
    std::uint16_t loadCommon = 0xB848;  // mov rax, common
    void (*common)() = ImportHookCommon;
    std::uint16_t jump = 0xE0FF;  // jmp rax
};
#pragma pack(pop)
static_assert(sizeof(StubCode) == 32);

constexpr std::size_t kPageSize = 65536;

std::mutex mutex;
char* page = nullptr;
std::size_t used = kPageSize;

}  // namespace

void* CreateStub(HookedFunction* function, Decision decision) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (used + sizeof(StubCode) > kPageSize) {
        page = static_cast<char*>(
            VirtualAlloc(nullptr, kPageSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
        if (page == nullptr) return nullptr;
        used = 0;
    }
    StubCode code;
    code.function = function;
    code.decision = decision;
    char* const stub = page + used;
    std::memcpy(stub, &code, sizeof code);
    used += sizeof code;
    FlushInstructionCache(GetCurrentProcess(), stub, sizeof code);
    return stub;
}

}  // namespace import_hook
