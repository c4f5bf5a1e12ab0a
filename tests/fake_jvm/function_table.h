#pragma once

#include <jni.h>

namespace fake_jvm {

/// Each puts its functions into the table that an environment points to.
void AddArrayFunctions(JNINativeInterface_& table);
void AddCallFunctions(JNINativeInterface_& table);
void AddClassFunctions(JNINativeInterface_& table);
void AddReferenceFunctions(JNINativeInterface_& table);
void AddStringFunctions(JNINativeInterface_& table);

}  // namespace fake_jvm
