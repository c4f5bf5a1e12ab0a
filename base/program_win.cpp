#include "base/program.h"

namespace tarn {
namespace {

const OtherProgram* actedFor = nullptr;

}  // namespace

HMODULE ProgramModule() {
    return actedFor != nullptr ? actedFor->module : GetModuleHandleW(nullptr);
}

const OtherProgram* ProgramActedFor() {
    return actedFor;
}

void OverrideProgram(const OtherProgram* program) {
    actedFor = program;
}

}  // namespace tarn
