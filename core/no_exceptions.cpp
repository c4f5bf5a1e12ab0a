// Replaces the functions through which the standard library throws. The launcher is built without
// exceptions and does not recover from a lack of memory or an index outside a string; both end the
// process with an exit code of their own. Only launcher.exe links this file.

#include <cstdlib>
#include <new>
#include <string>

#include "base/windows.h"

namespace {

// E_FAIL and E_INVALIDARG, visible as the exit code.
constexpr DWORD kOutOfMemory = 0x80004005;
constexpr DWORD kBadIndex = 0x80070057;

[[noreturn]] void Fatal(DWORD code) {
    RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    // Reached only when a debugger continues the exception.
    for (;;) __builtin_trap();
}

}  // namespace

// The standard library's own versions of these bring the whole of C++ exception handling into the
// program, some 170 KB of it.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): these names are its
namespace std {
void __throw_length_error(const char*) {
    Fatal(kOutOfMemory);
}
void __throw_bad_alloc() {
    Fatal(kOutOfMemory);
}
void __throw_bad_array_new_length() {
    Fatal(kOutOfMemory);
}
void __throw_logic_error(const char*) {
    Fatal(kBadIndex);
}
void __throw_invalid_argument(const char*) {
    Fatal(kBadIndex);
}
void __throw_out_of_range(const char*) {
    Fatal(kBadIndex);
}
void __throw_out_of_range_fmt(const char*, ...) {
    Fatal(kBadIndex);
}
}  // namespace std

#if defined(_GLIBCXX_RELEASE) && _GLIBCXX_RELEASE >= 13
// From version 13 on the library declares this one member of its strings as instantiated elsewhere,
// and the object of its archive that has it brings exception handling in too. Not std::wstring::,
// which clang warns about.
template void std::basic_string<char>::_M_replace_cold(char*, size_type, const char*, size_type,
                                                       size_type);
template void std::basic_string<wchar_t>::_M_replace_cold(wchar_t*, size_type, const wchar_t*,
                                                          size_type, size_type);
#endif
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

// The library's own comes with its new-handler.
const std::nothrow_t std::nothrow{};

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) Fatal(kOutOfMemory);
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size != 0 ? size : 1);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

// Reached by nothing; without it the linker brings the library's verbose one.
// NOLINTNEXTLINE(bugprone-reserved-identifier, readability-identifier-naming): the ABI's name
extern "C" void __cxa_pure_virtual() {
    Fatal(kBadIndex);
}
