#pragma once

#include <filesystem>
#include <string>

namespace tarn::bench {

struct Workspace;

/// A Java application that opens a window.
struct WindowApplication {
    const char* name;
    const wchar_t* mainClass;
    const wchar_t* arguments;  ///< of its main
    /// Folder of `Workspace::applications` with its jars; null for the sample application.
    const wchar_t* folder;
};

/// The sample application of examples/, and two of Maven Central.
inline constexpr WindowApplication kSample = {"the sample application", L"notes.Main", L"",
                                              nullptr};
inline constexpr WindowApplication kDatabaseManager = {
    "a database manager (hsqldb)", L"org.hsqldb.util.DatabaseManagerSwing",
    L"--url jdbc:hsqldb:mem:demo --user SA", L"hsqldb"};
inline constexpr WindowApplication kDocumentTool = {
    "a document tool (pdfbox)", L"org.apache.pdfbox.tools.PDFBox", L"debug", L"pdfbox"};

/// The ways of starting an application that are compared. The fast starts use a copy of the runtime
/// with a class-data archive of its own, and an archive of the application's classes. The launcher
/// makes that by the key "Fast Start", as `tarn wrap --fast-start` writes it, on Java 21 and newer;
/// otherwise the options are given by hand, as docs/user/packaging.md describes.
enum class StartWay { Launcher, LauncherFast, Javaw, JavawFast };

struct CommandLine {
    std::wstring program;
    std::wstring text;  ///< with the program
};

/// An application on one runtime, started in each of the ways. bench.FirstWindow ends it when its
/// first window is open.
class WindowStarts {
  public:
    WindowStarts(const Workspace& workspace, const std::wstring& version,
                 const WindowApplication& application);

    /// Lays out what the way needs, unless that is done, and returns how to start it. Throws
    /// std::runtime_error on failure.
    CommandLine Prepare(StartWay way) const;

    /// Deletes the archives of the application's classes, so that the next fast start is the first.
    void ForgetArchives() const;

    /// Throws std::runtime_error when a fast start has left no archive.
    void CheckArchive(StartWay way) const;

  private:
    CommandLine PrepareLauncher(StartWay way) const;
    CommandLine PrepareJavaw(StartWay way) const;
    /// Whether the launcher itself adds the options for the archive (key "Fast Start").
    bool UsesFastStart(StartWay way) const;
    /// The options of the JVM without those, the same for the launcher and for javaw.exe.
    std::wstring Options(StartWay way) const;
    /// The beginning of the path of the way's archives.
    std::filesystem::path ArchivePrefix(StartWay way) const;
    std::filesystem::path RuntimeFor(StartWay way) const;
    std::wstring ClassPath() const;

    const Workspace& workspace_;
    std::wstring version_;
    const WindowApplication& application_;
    std::filesystem::path folder_;
};

}  // namespace tarn::bench
