#pragma once

#include <jni.h>

namespace fake_jvm {

/// Each operation sets its functions in the table of an environment.
void AddArrayFunctions(JNINativeInterface_& table);
void AddCallFunctions(JNINativeInterface_& table);
void AddClassFunctions(JNINativeInterface_& table);
void AddReferenceFunctions(JNINativeInterface_& table);
void AddStringFunctions(JNINativeInterface_& table);

}  // namespace fake_jvm
