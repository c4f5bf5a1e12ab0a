#pragma once

#include <jni.h>

#include "jvm/output_files.h"

namespace tarn {

/// Sends `System.out` and `System.err` to the files that are named. A stream that cannot be
/// redirected is described on the standard error and stays as it is. On the JVM's creating thread.
void SetUpRedirection(JNIEnv* env, const OutputFiles& files);

}  // namespace tarn
