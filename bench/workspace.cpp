#include "bench/workspace.h"

#include <fstream>
#include <stdexcept>

namespace tarn::bench {

InstalledApp InstallApp(const Workspace& workspace, const std::wstring& name,
                        const std::wstring& iniText) {
    InstalledApp app;
    app.folder = workspace.scratch / name;
    app.program = app.folder / (name + L".exe");
    std::filesystem::create_directories(app.folder);
    std::filesystem::copy_file(workspace.launcher, app.program,
                               std::filesystem::copy_options::overwrite_existing);
    std::ofstream ini(app.folder / (name + L".ini"), std::ios::binary);
    const std::wstring marked = L'\xFEFF' + iniText;
    ini.write(reinterpret_cast<const char*>(marked.data()),
              static_cast<std::streamsize>(marked.size() * sizeof(wchar_t)));
    if (!ini) throw std::runtime_error("cannot write the settings of " + app.program.string());
    return app;
}

std::filesystem::path ScriptedRuntime(const Workspace& workspace) {
    std::filesystem::path home = workspace.scratch / L"scripted_jre";
    const std::filesystem::path library = home / L"bin" / L"server" / L"jvm.dll";
    std::filesystem::create_directories(library.parent_path());
    std::filesystem::copy_file(workspace.tools / L"stamp_jvm.dll", library,
                               std::filesystem::copy_options::skip_existing);
    return home;
}

InstalledApp InstallScriptedApp(const Workspace& workspace, const std::wstring& name,
                                const std::wstring& classPath, const std::wstring& moreSettings) {
    return InstallApp(workspace, name,
                      L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nJRE Path=" +
                          ScriptedRuntime(workspace).wstring() +
                          L"\r\n[Class Path]\r\nClass Path=" + classPath + L"\r\n" + moreSettings);
}

std::filesystem::path JvmLibrary(const std::filesystem::path& runtimeHome) {
    std::filesystem::path library = runtimeHome / L"bin" / L"server" / L"jvm.dll";
    if (!std::filesystem::exists(library)) throw std::runtime_error("no " + library.string());
    return library;
}

void RemoveTree(const std::filesystem::path& path) {
    if (!std::filesystem::exists(path)) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
    std::filesystem::remove_all(path);
}

std::wstring Quoted(const std::wstring& word) {
    return L"\"" + word + L"\"";
}

}  // namespace tarn::bench
