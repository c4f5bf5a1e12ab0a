#pragma once

#include <jni.h>

#include <string>

#include "jvm/jvm_instance.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// Finds the application's main class, named with '/' between its parts. Asks the runtime's own
/// launch helper first, which also knows the class path of modular runtimes; without it, or
/// without an answer, `FindClass`. Returns null when there is no such class; the user has then
/// been told, or Java's exception described on the standard error.
jclass FindMainClass(JNIEnv* env, const JvmEntryPoints& entryPoints, const std::wstring& mainClass,
                     const ErrorReporter& errors);

}  // namespace tarn
