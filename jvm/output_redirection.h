#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "jvm/jvm_options.h"

struct JNIEnv_;  // JNIEnv of <jni.h>, which the pure half does without

namespace tarn {

/// Enumerates the folders that contain the file of an absolute name, outermost first, each as the
/// length of the prefix that names it: the first one for `previous` 0, else the one in the folder
/// of `previous` characters; `npos` after the last one. Omits what cannot be created: the drive,
/// the server and the share, and the prefixes "\\?\" and "\\.\". Both "\" and "/" separate.
std::size_t NextFolderLevel(std::wstring_view absoluteName, std::size_t previous);

/// Creates the missing folders of an output file, level by level (`CreateDirectoryW`), when its
/// name is absolute and the file does not exist. Windows creates no folder whose path has 248 or
/// more characters. A failure shows when the file is opened.
void CreateOutputFolders(const std::wstring& fileName);

/// Redirects `System.out` and `System.err` to the files that have a name. Time stamps in both names
/// are those of one instant. A stream that cannot be redirected stays as it is, and the exception
/// is described on the standard error. Called on the thread that created the JVM.
void SetUpRedirection(JNIEnv_* env, const OutputFiles& files);

}  // namespace tarn
