#pragma once

#include <filesystem>
#include <string>

namespace tarn::bench {

struct Workspace;

/// The Java version whose runtime the applications with a splash use.
inline constexpr wchar_t kSplashRuntime[] = L"21";

/// Who shows the splash picture.
enum class SplashKind { None, Own, Native };

/// Lays out an application on that runtime whose main opens no window, with splash.png as its
/// splash picture. Returns the path of its program.
std::filesystem::path InstallSplashApp(const Workspace& workspace, const std::wstring& name,
                                       SplashKind kind);

}  // namespace tarn::bench
