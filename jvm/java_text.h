#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// A Java string of the UTF-16 units as they stand; null on any failure, with Java's exception
/// pending if it threw one. A local reference, the caller's.
jstring MakeJavaString(JNIEnv* env, std::wstring_view text);

/// A `String[]` of the texts; null on any failure, as above.
jobjectArray MakeStringArray(JNIEnv* env, const std::vector<std::wstring>& texts);

}  // namespace tarn
