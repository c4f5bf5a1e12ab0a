#pragma once

#include <string>
#include <vector>

#include "jvm/jvm_instance.h"
#include "jvm/output_files.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// Creates the JVM with the options in their order and the two hooks behind them, then sends its
/// standard streams to their files. The calling thread becomes the JVM's main thread and `env` is
/// its alone. Returns false when the JVM cannot be created; the user has then been told.
bool CreateJvm(const ErrorReporter& errors, const std::vector<std::string>& ansiOptions,
               const OutputFiles& outputFiles, JvmInstance& machine, JNIEnv*& env);

}  // namespace tarn
