#include "instance/single_instance.h"

namespace tarn {

// Every launch is an independent one until two of them can talk to each other.
bool SingleInstance::Setup(const std::vector<std::wstring>&) {
    return true;
}

int SingleInstance::WaitForAnswer() const {
    return 0;
}

void SingleInstance::Stop() {}

}  // namespace tarn
