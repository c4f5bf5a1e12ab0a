#include "base/program.h"

namespace tarn {
namespace {

const OtherProgram* overridingProgram = nullptr;

}  // namespace

HMODULE ProgramModule() {
    return overridingProgram != nullptr ? overridingProgram->module : GetModuleHandleW(nullptr);
}

const OtherProgram* OverridingProgram() {
    return overridingProgram;
}

void OverrideProgram(const OtherProgram* program) {
    overridingProgram = program;
}

}  // namespace tarn
