#pragma once

#include <string>
#include <vector>

#include "jvm/jvm_options.h"
#include "jvm/vm_parameters.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// The machine's physical memory and this process's unused address space (`GlobalMemoryStatus`).
MemorySizes ReadMemorySizes();

/// Reads the class path, the JVM's parameters, the output files and the default arguments into
/// `options` and `arguments`. Returns false when the settings file cannot be located or there is
/// no class path; the user has then been told of the latter, and nothing further is read. The
/// launch goes on in any case.
bool BuildOptions(const ErrorReporter& errors, JvmOptions& options,
                  std::vector<std::wstring>& arguments);

}  // namespace tarn
