// Sections and keys of the settings files, each written once, and the two forms of a flag. The
// spelling "Preffer" is part of the format: docs/developer/compatibility.md.
#pragma once

#include <string_view>

namespace tarn::keys {

inline constexpr wchar_t kProductInformation[] = L"Product Information";
inline constexpr wchar_t kProductCode[] = L"Product Code";
inline constexpr wchar_t kProductName[] = L"Product Name";

inline constexpr wchar_t kApplication[] = L"Application";
inline constexpr wchar_t kApplicationType[] = L"Application Type";
inline constexpr wchar_t kOmitServiceName[] = L"Omit Service Name";
inline constexpr wchar_t kSingleInstance[] = L"Single Instance";
inline constexpr wchar_t kFailureCheck[] = L"Failure Check";
inline constexpr wchar_t kOverrideWorkingDir[] = L"Override WorkingDir";
inline constexpr wchar_t kPairProduct[] = L"Pair Product";
inline constexpr wchar_t kPairReturnCode[] = L"Pair Return Code";
inline constexpr wchar_t kEmbeddedJar[] = L"Embedded Jar";
inline constexpr wchar_t kOutputFile[] = L"Output File";
inline constexpr wchar_t kOutputAppend[] = L"Output Append";
inline constexpr wchar_t kErrorFile[] = L"Error File";
inline constexpr wchar_t kErrorAppend[] = L"Error Append";
inline constexpr wchar_t kCmd[] = L"Cmd";
inline constexpr wchar_t kFastStart[] = L"Fast Start";

inline constexpr wchar_t kJavaRuntimeEnvironment[] = L"Java Runtime Environment";
inline constexpr wchar_t kMinimumVersion[] = L"Minimum Version";
inline constexpr wchar_t kMaximumVersion[] = L"Maximum Version";
inline constexpr wchar_t kPreferredVersions[] = L"Preferred versions";
inline constexpr wchar_t kJrePath[] = L"JRE Path";
inline constexpr wchar_t kJvmType[] = L"JVM Type";
inline constexpr wchar_t kJvmSource[] = L"JVM Source";
inline constexpr wchar_t kVmProvider[] = L"VM Provider";
inline constexpr wchar_t kFurtherSources[] = L"Further Sources";
inline constexpr wchar_t kMainClass[] = L"Main Class";
inline constexpr wchar_t kSystemPath[] = L"System Path";
inline constexpr wchar_t kLibraryPath[] = L"Library Path";
inline constexpr wchar_t kVirtualMachineParameters[] = L"Virtual Machine Parameters";

inline constexpr wchar_t kClassPath[] = L"Class Path";

inline constexpr wchar_t kDisplay[] = L"Display";
inline constexpr wchar_t kSplashScreen[] = L"Splash Screen";
inline constexpr wchar_t kSplashScreenShadow[] = L"Splash Screen Shadow";
inline constexpr wchar_t kPreferNativeSplashScreen[] = L"Preffer Native Splash Screen";

}  // namespace tarn::keys

namespace tarn {

// A flag key has one of two forms, which differ on purpose: docs/developer/compatibility.md.

/// Returns whether a flag of the "Yes" form is on: the value is "Yes" in any case.
bool IsYes(std::wstring_view value);

/// Returns whether a flag of the "yes" form is on: the value is exactly "yes".
bool IsExactlyYes(std::wstring_view value);

}  // namespace tarn
