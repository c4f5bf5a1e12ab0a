#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jvm/output_files.h"

namespace tarn {

/// What the settings make of this launch's Java side.
struct JvmOptions {
    /// The options for the JVM in their order, in the code page of the thread's locale. One may be
    /// empty.
    std::vector<std::string> ansiOptions;
    /// Bytes of stack for the thread that runs `main`, from "-Xss"; 0 leaves it to the JVM.
    std::uint64_t threadStackSize = 0;
    OutputFiles outputFiles;
};

}  // namespace tarn
