#include <memory>
#include <utility>

#include "base/ansi_text.h"
#include "base/environment.h"
#include "base/handles.h"
#include "base/paths.h"
#include "jvm/fast_start.h"
#include "runtime/further_sources.h"
#include "runtime/jvm_library.h"

namespace tarn {
namespace {

// Fixed buffers and `wsprintfW`, because each `std::wstring` that is put together and destroyed
// takes 60 bytes of the launcher. `wsprintfW` writes at most this many characters, the terminator
// included. A longer path is truncated: there is no such file.
constexpr std::size_t kMostFormatted = 1024;
constexpr std::size_t kLongestPath = kMostFormatted - 64;  // with a name or an option added to it

// Of an archive's name: "-", the mark of the installation, "-", the fingerprint, ".jsa".
constexpr wchar_t kNameFormat[] = L"-%08x-%08x%08x.jsa";
constexpr std::size_t kFingerprintLength = 16 + 4;

unsigned HalfOf(const Fingerprint& fingerprint, int half) {
    return static_cast<unsigned>(fingerprint.value() >> (32 * half));
}

// The archive of a launch and what it depends on, read through one buffer. Files are not mapped, so
// that a drive that disappears is no more than a failed read. Too large for the stack.
class Archive {
  public:
    // Adds the runtime's version. Returns false when it writes no archives.
    bool AddRuntime(std::wstring_view jvmLibraryPath) {
        const std::span<const std::byte> release =
            Open(RuntimeHomeOf(jvmLibraryPath), L"\\release");
        fingerprint_.Add(release);
        return WritesArchives({reinterpret_cast<const char*>(release.data()), release.size()});
    }

    void Add(std::wstring_view text) { fingerprint_.Add(text); }

    // Adds jars, separated by ";": the time, which an archive has to match, and the directory of
    // each. The time and the size do not suffice: a reproducible build gives other classes the same
    // ones. Returns false when one of them is not a jar.
    bool AddJars(std::wstring_view jars) {
        fingerprint_.Add(jars);
        while (!jars.empty()) {
            if (!AddJar(TakePiece(jars))) return false;
        }
        return true;
    }

    // Makes the path and the option. The JVM writes the header of an archive last. A file without
    // one, from a run that was killed, would turn the runtime's own archive off, as a missing one
    // does: it is written again.
    const wchar_t* MakeOption(std::wstring_view prefix, std::wstring_view program) {
        Fingerprint mark;
        mark.Add(program);
        wchar_t name[64];
        wsprintfW(name, kNameFormat, HalfOf(mark, 0), HalfOf(fingerprint_, 1),
                  HalfOf(fingerprint_, 0));
        buffer_[0] = std::byte{0};
        Open(prefix, name);
        isComplete_ = buffer_[0] != std::byte{0};
        wsprintfW(text_, L"-XX:%s=%s", isComplete_ ? L"SharedArchiveFile" : L"ArchiveClassesAtExit",
                  path_);
        return text_;
    }

    // Deletes the other archives of the installation that are not in use. Returns false when there
    // is no archive and this process cannot write one. The JVM ends the application with code 1 if
    // it cannot, so the folder is tried; and two processes would mix their bytes, so no other one
    // can until this one has ended. Failures to delete are ignored.
    bool Prepare() {
        const std::wstring_view own = path_;
        const std::size_t folder = FolderOf(own).size();  // 0 for a name without a backslash
        if (folder != 0) {
            path_[folder - 1] = L'\0';
            CreateDirectoryW(path_, nullptr);
            path_[folder - 1] = L'\\';
        }
        wsprintfW(text_, L"%s~", path_);
        const bool isReady =
            isComplete_ || CreateFileW(text_, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                       FILE_FLAG_DELETE_ON_CLOSE, nullptr) != INVALID_HANDLE_VALUE;
        wsprintfW(text_ + own.size() - kFingerprintLength, L"*.jsa");
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(FindFirstFileW(text_, &found));
        for (bool isFound = !!search; isFound; isFound = FindNextFileW(search.get(), &found)) {
            wsprintfW(text_ + folder, L"%s", found.cFileName);
            const std::wstring_view other = text_;
            // The same length: the pattern also matches other names, and short ones.
            if (other.size() != own.size() || other == own) continue;
            // The JVM makes its archives read-only.
            SetFileAttributesW(text_, FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(text_);
        }
        return isReady;
    }

  private:
    // Returns the first bytes of a file; none of a file that cannot be read, such as a folder.
    std::span<const std::byte> Open(std::wstring_view folder, const wchar_t* name = L"") {
        constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        wsprintfW(path_ + folder.copy(path_, kLongestPath), L"%s", name);
        file_.reset(CreateFileW(path_, GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
        return Read();
    }

    // Returns the next bytes; none at the end of the file.
    std::span<const std::byte> Read() {
        DWORD size = 0;
        if (!ReadFile(file_.get(), buffer_, kZipTailSize, &size, nullptr)) size = 0;
        return {buffer_, size};
    }

    bool Seek(std::uint32_t distanceFromEnd) const {
        const LONG offset = static_cast<LONG>(0 - distanceFromEnd);
        return SetFilePointer(file_.get(), offset, nullptr, FILE_END) != INVALID_SET_FILE_POINTER;
    }

    bool AddJar(std::wstring_view jar) {
        std::span<const std::byte> bytes = Open(jar);
        FILETIME time{};
        GetFileTime(file_.get(), nullptr, nullptr, &time);
        fingerprint_.Add(std::as_bytes(std::span(&time, 1)));
        // Fails for a file that has been read completely.
        if (Seek(kZipTailSize)) bytes = Read();
        const std::uint32_t distance = ZipDirectoryDistance(bytes);
        if (distance == 0) return false;
        if (distance > bytes.size() && Seek(distance)) bytes = Read();
        do {
            fingerprint_.Add(bytes);
            bytes = Read();
        } while (!bytes.empty());
        return true;
    }

    Fingerprint fingerprint_;
    UniqueFile file_;
    bool isComplete_;
    wchar_t path_[kMostFormatted];
    wchar_t text_[kMostFormatted + MAX_PATH];  // a path, or a folder and the name of a file in it
    std::byte buffer_[kZipTailSize];
};

}  // namespace

// One return, and one call of `AddJars`: each further one takes some 30 bytes of the launcher.
void AddFastStartOption(const FastStartInputs& inputs, JvmOptions& options) {
    // The JVM reads further options from these variables; a profiler puts its agent there.
    std::wstring written = L"%JAVA_TOOL_OPTIONS% %_JAVA_OPTIONS% ";
    written += inputs.vmParameters;
    bool isPossible = !RulesOutArchive(ToThreadAnsi(ExpandEnvironment(written)));
    std::wstring_view more = inputs.setting;
    const std::wstring_view prefix = TakePiece(more);
    const auto archive = std::make_unique_for_overwrite<Archive>();
    archive->Add(inputs.vmParameters);
    isPossible = isPossible && archive->AddRuntime(inputs.jvmLibraryPath);
    for (const std::wstring_view jars : {inputs.classPath, more}) {
        isPossible = isPossible && archive->AddJars(jars);
    }
    if (isPossible) {
        std::string option = ToThreadAnsi(archive->MakeOption(prefix, inputs.program), BestFit::No);
        if (option.find('?') == std::string::npos &&
            (inputs.kind == LaunchKind::Predicted || archive->Prepare())) {
            options.ansiOptions.push_back(std::move(option));
            options.hasArchive = true;
        }
    }
}

}  // namespace tarn
