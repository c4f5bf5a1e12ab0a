#include "bench/window_application.h"

#include <stdexcept>

#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace fs = std::filesystem;

namespace {

// The first Java version that "Fast Start" supports. The archives of older ones are made by hand.
constexpr int kFirstFastStartVersion = 21;

bool IsFast(StartWay way) {
    return way == StartWay::LauncherFast || way == StartWay::JavawFast;
}

// Hard links take no time and no space, but exist only within a volume.
void CopyTree(const fs::path& from, const fs::path& to) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(from)) {
        const fs::path copy = to / entry.path().lexically_relative(from);
        std::error_code failure;
        if (entry.is_directory())
            fs::create_directories(copy);
        else if (fs::create_hard_link(entry.path(), copy, failure); failure)
            fs::copy_file(entry.path(), copy);
    }
}

// The runtime as `tarn wrap --runtime` ships it: with a class-data archive of its own. The
// original is not changed.
fs::path ArchivedRuntime(const Workspace& workspace, const std::wstring& version) {
    fs::path home = workspace.scratch / (L"runtime" + version);
    const fs::path archive = home / L"bin" / L"server" / L"classes.jsa";
    if (fs::exists(archive)) return home;
    fs::create_directories(home);
    CopyTree(workspace.runtimes / version, home);
    const std::wstring java = (home / L"bin" / L"java.exe").wstring();
    RunToEnd(java, Quoted(java) + L" -Xshare:dump");
    if (!fs::exists(archive)) throw std::runtime_error("no " + archive.string());
    return home;
}

}  // namespace

WindowStarts::WindowStarts(const Workspace& workspace, const std::wstring& version,
                           const WindowApplication& application)
    : workspace_(workspace),
      version_(version),
      application_(application),
      folder_(workspace.scratch /
              (L"windows" + version + (application.folder ? application.folder : L"sample"))) {}

CommandLine WindowStarts::Prepare(StartWay way) const {
    fs::create_directories(folder_ / L"archives");
    const bool isLauncher = way == StartWay::Launcher || way == StartWay::LauncherFast;
    return isLauncher ? PrepareLauncher(way) : PrepareJavaw(way);
}

void WindowStarts::ForgetArchives() const {
    RemoveTree(folder_ / L"archives");
}

void WindowStarts::CheckArchive(StartWay way) const {
    if (!IsFast(way)) return;
    const fs::path prefix = ArchivePrefix(way);
    for (const fs::directory_entry& entry : fs::directory_iterator(prefix.parent_path()))
        if (entry.path().wstring().starts_with(prefix.wstring())) return;
    throw std::runtime_error("no archive was written");
}

CommandLine WindowStarts::PrepareLauncher(StartWay way) const {
    const std::wstring name = folder_.filename().wstring() + (IsFast(way) ? L"_fast" : L"_plain");
    // "service": the window stays after main has returned.
    std::wstring settings = L"[Application]\r\nApplication Type=service\r\n";
    if (UsesFastStart(way)) settings += L"Fast Start=" + ArchivePrefix(way).wstring() + L"\r\n";
    settings += L"[Java Runtime Environment]\r\nMain Class=bench.FirstWindow\r\nJRE Path=" +
                RuntimeFor(way).wstring() + L"\r\nVirtual Machine Parameters=" + Options(way) +
                L"\r\n[Class Path]\r\nClass Path=" + ClassPath() + L"\r\n";
    const std::wstring program = InstallApp(workspace_, name, settings).program.wstring();
    return {program,
            Quoted(program) + L" " + application_.mainClass + L" " + application_.arguments};
}

CommandLine WindowStarts::PrepareJavaw(StartWay way) const {
    const std::wstring javaw = (RuntimeFor(way) / L"bin" / L"javaw.exe").wstring();
    return {javaw, Quoted(javaw) + L" " + Options(way) + L" -cp " + Quoted(ClassPath()) +
                       L" bench.FirstWindow " + application_.mainClass + L" " +
                       application_.arguments};
}

std::wstring WindowStarts::Options(StartWay way) const {
    // Wine has no graphics acceleration on a virtual screen, and windows would stay black.
    std::wstring options = L"-Dsun.java2d.d3d=false -Dsun.java2d.noddraw=true " +
                           Quoted(L"-Duser.home=" + workspace_.scratch.wstring());
    if (!IsFast(way) || UsesFastStart(way)) return options;
    const std::wstring archive = ArchivePrefix(way).wstring() + L".jsa";
    const wchar_t* const use =
        fs::exists(archive) ? L"-XX:SharedArchiveFile=" : L"-XX:ArchiveClassesAtExit=";
    return options + L" " + Quoted(use + archive);
}

bool WindowStarts::UsesFastStart(StartWay way) const {
    return way == StartWay::LauncherFast && std::stoi(version_) >= kFirstFastStartVersion;
}

fs::path WindowStarts::ArchivePrefix(StartWay way) const {
    return folder_ / L"archives" / (way == StartWay::LauncherFast ? L"launcher" : L"javaw");
}

fs::path WindowStarts::RuntimeFor(StartWay way) const {
    return IsFast(way) ? ArchivedRuntime(workspace_, version_) : workspace_.runtimes / version_;
}

std::wstring WindowStarts::ClassPath() const {
    std::wstring path = (workspace_.tools / L"bench.jar").wstring();
    if (application_.folder == nullptr)
        return path + L";" + (workspace_.tools / L"notes.jar").wstring();
    for (const fs::directory_entry& entry :
         fs::directory_iterator(workspace_.applications / application_.folder))
        if (entry.path().extension() == L".jar") path += L";" + entry.path().wstring();
    return path;
}

}  // namespace tarn::bench
