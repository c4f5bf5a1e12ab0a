#include "ui/splash/window_thunk.h"

#include <cstdint>
#include <cstring>

namespace tarn {
namespace {

// A jump, not a call: it needs no stack frame and so no unwind data, and the procedure returns
// straight to Windows.
#pragma pack(push, 1)
struct ThunkCode {
    std::uint16_t loadFirstArgument = 0xB948;  // mov rcx, object
    void* object;
    std::uint16_t loadTarget = 0xB848;  // mov rax, target
    ObjectProcedure target;
    std::uint16_t jump = 0xE0FF;  // jmp rax
};
#pragma pack(pop)
static_assert(sizeof(ThunkCode) == 22);

}  // namespace

bool WindowThunk::Make(void* object, ObjectProcedure target) {
    if (code_) return true;
    Pages pages(VirtualAlloc(nullptr, sizeof(ThunkCode), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    if (!pages) return false;
    ThunkCode code;
    code.object = object;
    code.target = target;
    std::memcpy(pages.get(), &code, sizeof(code));
    // Never writable and executable at the same time.
    DWORD previous = 0;
    if (!VirtualProtect(pages.get(), sizeof(code), PAGE_EXECUTE_READ, &previous)) return false;
    FlushInstructionCache(GetCurrentProcess(), pages.get(), sizeof(code));
    code_ = std::move(pages);
    return true;
}

}  // namespace tarn
