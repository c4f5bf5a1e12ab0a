// The Windows half of the JDK's jni.h, so that the headers of any platform's JDK serve the build.
#pragma once

#define JNIEXPORT __declspec(dllexport)
#define JNIIMPORT __declspec(dllimport)
#define JNICALL __stdcall

// A jint is a 32-bit integer on every platform; Windows' own header says long, which is the same
// size, and the function table's layout does not depend on it.
typedef int jint;
typedef long long jlong;
typedef signed char jbyte;
