#pragma once

#include <string>
#include <vector>

#include "jvm/java_machine.h"
#include "jvm/output_files.h"
#include "ui/splash.h"

namespace tarn {

/// Creates the JVM with the options in their order and the two hooks behind them, then sends its
/// standard streams to their files. The calling thread becomes the JVM's main thread and `env` is
/// its alone. Returns false when the JVM cannot be created; the user has then been told.
bool CreateJvm(const Splash& splash, const std::vector<std::string>& ansiOptions,
               const OutputFiles& outputFiles, JavaMachine& machine, JNIEnv*& env);

}  // namespace tarn
