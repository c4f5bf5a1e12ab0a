// The function table of an environment. Functions that the launcher does not need end the process
// and log their name.

#include "tests/fake_jvm/function_table.h"

#include <cstddef>
#include <utility>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

constexpr std::size_t kSlots = sizeof(JNINativeInterface_) / sizeof(void*);

template <std::size_t kSlot>
void Unscripted() {
    LogViolation("function " + std::to_string(kSlot) + " of the table is not scripted");
    TerminateProcess(GetCurrentProcess(), 0xFA4EU);
}

template <std::size_t... kIndices>
void FillUnscripted(void** slots, std::index_sequence<kIndices...>) {
    ((slots[kIndices] = reinterpret_cast<void*>(&Unscripted<kIndices>)), ...);
}

JNINativeInterface_ MakeTable() {
    JNINativeInterface_ table{};
    FillUnscripted(reinterpret_cast<void**>(&table), std::make_index_sequence<kSlots>());
    AddArrayFunctions(table);
    AddCallFunctions(table);
    AddClassFunctions(table);
    AddReferenceFunctions(table);
    AddStringFunctions(table);
    return table;
}

}  // namespace

const JNINativeInterface_* Functions() {
    static const JNINativeInterface_ table = MakeTable();
    return &table;
}

}  // namespace fake_jvm
