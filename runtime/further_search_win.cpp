#include "runtime/further_search.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/handles.h"
#include "base/text.h"
#include "runtime/jvm_library.h"
#include "runtime/pe_header.h"
#include "runtime/registry_search.h"

namespace tarn {

namespace {

// Fixed buffers and `wsprintfW`, because the code that assembles and destroys a `std::wstring`
// would make the launcher larger at each place. `wsprintfW` writes at most this many characters,
// the terminator included. Longer texts are truncated: no runtime can be loaded from such a path.
constexpr DWORD kMostFormatted = 1024;
// Two more: values may have as many characters and no terminator, and `MakeDriveFolder` adds a
// backslash.
using Buffer = wchar_t[kMostFormatted + 2];

// The longest value of an environment variable, in characters.
constexpr DWORD kMostPath = 32768;

// A file is read up to here.
constexpr DWORD kMostRead = 64 * 1024;

/// Opens a key in the 64-bit view of the registry. None when that fails.
UniqueRegistryKey OpenKey(HKEY parent, const wchar_t* name) {
    UniqueRegistryKey key;
    RegOpenKeyExW(parent, name, 0, KEY_READ | KEY_WOW64_64KEY, key.put());
    return key;
}

/// Reads a value of any type as text: up to the first null character, or to its end. Returns false,
/// with an empty text, when it is missing, empty or too long, or when there is no key.
bool ReadText(const UniqueRegistryKey& key, const wchar_t* name, Buffer& text) {
    DWORD size = kMostFormatted * sizeof *text;
    if (RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) !=
        ERROR_SUCCESS) {
        size = 0;
    }
    text[size / sizeof *text] = L'\0';
    return *text != L'\0';
}

void Join(wchar_t* path, const wchar_t* folder, const char* below) {
    wsprintfW(path, L"%s%S", folder, below);
}

UniqueFile OpenFile(const wchar_t* path, DWORD access) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return UniqueFile(CreateFileW(path, access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

template <bool kWithReport>
class FurtherSearch {
  public:
    FurtherSearch(const RuntimeSearchPolicy& policy, SourceReport* report)
        : policy_(policy), report_(report) {}

    void Collect(FurtherSource source) {
        if (source == FurtherSource::JavaHome) {
            if (ExpandEnvironmentStringsW(L"%JAVA_HOME%", home_, kMostFormatted) <=
                kMostFormatted) {
                Examine(L"JAVA_HOME");
            }
        } else if (source == FurtherSource::Path) {
            CollectPath();
        } else {
            hive_ = source == FurtherSource::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
            for (const MakerPlace& place : MakerPlaces()) {
                if (source == FurtherSource::Folders) {
                    CollectFolder("%ProgramFiles%\\", place.folder);
                    if (place.perUser) CollectFolder("%LOCALAPPDATA%\\Programs\\", place.folder);
                } else if (place.layout == KeyLayout::Msi) {
                    kind_ = RuntimeKind::Jre;
                    CollectKeys(place.key, "\\JRE");
                    kind_ = RuntimeKind::Jdk;
                    CollectKeys(place.key, "\\JDK");
                } else if (place.layout == KeyLayout::Named) {
                    kind_.reset();
                    CollectKeys(place.key, "");
                }
            }
        }
    }

    bool Choose(RuntimeCandidate& found) {
        const CandidateChoice choice = ChooseCandidate(candidates_, policy_);
        if constexpr (kWithReport) {
            report_->preferred = choice.preferred;
            auto candidate = candidates_.begin();
            for (SubkeyReport& each : report_->candidates) {
                if (each.verdict != SubkeyVerdict::RankedBelow) continue;
                ReportRank(&*candidate++, choice, policy_, each);
            }
        }
        if (choice.candidate == nullptr) return false;
        found = *choice.candidate;
        return true;
    }

  private:
    void CollectKeys(const char* maker, const char* kind) {
        wsprintfW(root_, L"SOFTWARE\\%S%S", maker, kind);
        const UniqueRegistryKey root = OpenKey(hive_, root_);
        wchar_t name[256];  // names of keys have 255 characters at most
        for (DWORD index = 0; index < kMostFurtherRuntimes; ++index) {
            DWORD length = 256;
            // Fails after the last key, and without a root.
            if (RegEnumKeyExW(root.get(), index, name, &length, nullptr, nullptr, nullptr,
                              nullptr) != ERROR_SUCCESS) {
                break;
            }
            if (!kind_) {
                ExamineKey(root.get(), name, L"InstallationPath");
                continue;
            }
            for (const char* const jvm : {"hotspot", "openj9"}) {
                wsprintfW(version_, L"%s", name);
                wsprintfW(text_, L"%s\\%S\\MSI", name, jvm);
                ExamineKey(root.get(), text_, L"Path");
            }
        }
    }

    void ExamineKey(HKEY root, const wchar_t* name, const wchar_t* homeValue) {
        const UniqueRegistryKey key = OpenKey(root, name);
        if (!kind_ && !ReadText(key, L"CurrentVersion", version_)) {
            ReadText(key, L"Version", version_);
        }
        if (ReadText(key, homeValue, home_)) Examine(root_, L"\\", name);
    }

    void CollectFolder(const char* base, const char* folder) {
        if (*folder == '\0') return;
        wsprintfW(text_, L"%S%S", base, folder);
        if (ExpandEnvironmentStringsW(text_, root_, kMostFormatted) > kMostFormatted ||
            !MakeDriveFolder(root_)) {
            return;
        }
        Join(text_, root_, "*");
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(FindFirstFileW(text_, &found));
        if (!search) return;
        do {
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) continue;
            const std::wstring_view name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            wsprintfW(home_, L"%s%s", root_, found.cFileName);
            Examine(root_, found.cFileName);
        } while (FindNextFileW(search.get(), &found));
    }

    /// Only the first java.exe counts, the one that runs when a user types "java".
    void CollectPath() {
        if (ExpandEnvironmentStringsW(L"%Path%", path_, kMostPath) > kMostPath) return;
        for (std::wstring_view rest = path_; !rest.empty();) {
            const std::wstring_view piece = TakePiece(rest);
            home_[piece.copy(home_, kMostFormatted)] = L'\0';
            if (!MakeDriveFolder(home_)) continue;
            Join(root_, home_, "java.exe");
            const UniqueFile java = OpenFile(root_, 0);
            if (!java) continue;
            // Links are followed: the folder "javapath" of an installer contains nothing else. The
            // path begins with "\\?\". When it cannot be determined, the buffer is unchanged.
            text_[5] = L'\0';
            GetFinalPathNameByHandleW(java.get(), text_, kMostFormatted, 0);
            const wchar_t* const program = text_[5] == L':' ? text_ + 4 : root_;
            home_[CutComponents(program, 2).copy(home_, kMostFormatted)] = L'\0';
            return Examine(root_);
        }
    }

    /// Examines the runtime in `home_` and forgets its version. The arguments together name it in a
    /// report.
    void Examine([[maybe_unused]] const wchar_t* name, [[maybe_unused]] const wchar_t* more = L"",
                 [[maybe_unused]] const wchar_t* evenMore = L"") {
        if (++examined_ > kMostFurtherRuntimes) return;
        std::wstring text;
        if constexpr (kWithReport) {
            text = name;
            text += more;
            text += evenMore;
        }
        RuntimeCandidate& candidate = candidates_.emplace_back();
        const std::optional<SubkeyVerdict> rejected = Reject(candidate);
        if constexpr (kWithReport) {
            report_->candidates.push_back(
                {text, rejected.value_or(SubkeyVerdict::RankedBelow), candidate});
        }
        if (rejected) candidates_.pop_back();
        *version_ = L'\0';
    }

    /// Fills `candidate` until a test fails, and returns the failed test.
    std::optional<SubkeyVerdict> Reject(RuntimeCandidate& candidate) {
        if (!MakeDriveFolder(home_)) return SubkeyVerdict::NotOnDrive;
        for (const wchar_t* const below : {L"", L"jre\\"}) {  // below "jre": in a JDK 8
            candidate.home = home_;
            candidate.home += below;
            const std::wstring library =
                SelectJvmLibrary(candidate.home, policy_.jvmType, candidate.server);
            if (!library.empty()) return RejectLibrary(library.c_str(), candidate);
        }
        return SubkeyVerdict::NoJvmLibrary;
    }

    std::optional<SubkeyVerdict> RejectLibrary(const wchar_t* library,
                                               RuntimeCandidate& candidate) {
        if (*version_ == L'\0') ReadVersion();
        if (!ParseVersion(version_, 0, candidate.version) && !HasNoBounds(policy_)) {
            return SubkeyVerdict::UnknownVersion;
        }
        if (const auto rejected = RejectVersion(candidate.version, policy_)) return rejected;
        candidate.favored = IsKindWanted();
        if (!candidate.favored && !policy_.sourceFavouring) return SubkeyVerdict::KindNotWanted;
        if (MachineIn(ReadStart(library)) != kOwnMachine) {
            return SubkeyVerdict::OtherMachine;
        }
        return std::nullopt;
    }

    /// Reads the version in the file `release` of the home.
    void ReadVersion() {
        Join(file_, home_, "release");
        const std::span<const std::byte> release = ReadStart(file_);
        const std::string_view version =
            JavaVersionIn({reinterpret_cast<const char*>(release.data()), release.size()});
        const std::size_t length = std::min<std::size_t>(version.size(), kMostFormatted);
        *std::copy_n(version.begin(), length, version_) = L'\0';
    }

    bool IsKindWanted() {
        // The compiler is searched only if the kind matters.
        if (policy_.jdkWanted == policy_.jreWanted) return policy_.jdkWanted;
        Join(file_, home_, "bin\\javac.exe");
        const bool isJdk = kind_ ? *kind_ == RuntimeKind::Jdk : !!OpenFile(file_, 0);
        return isJdk ? policy_.jdkWanted : policy_.jreWanted;
    }

    /// Returns the first bytes of a file, 64 KiB at most; none when it cannot be read. Valid until
    /// the next call. The file is not mapped, so that a drive that disappears is no more than a
    /// failed read.
    std::span<const std::byte> ReadStart(const wchar_t* path) {
        const UniqueFile file = OpenFile(path, GENERIC_READ);
        DWORD size = 0;
        if (!ReadFile(file.get(), start_, kMostRead, &size, nullptr)) size = 0;
        return {start_, size};
    }

    const RuntimeSearchPolicy& policy_;
    [[maybe_unused]] SourceReport* const report_;
    std::vector<RuntimeCandidate> candidates_;
    int examined_ = 0;
    HKEY hive_ = nullptr;
    // The runtime that is examined next: its home, its version (empty: the file `release` states
    // it) and its kind (empty: a JDK is recognised by its compiler).
    Buffer home_;
    Buffer version_ = {};
    std::optional<RuntimeKind> kind_;
    Buffer root_;  // the key or folder that is enumerated
    Buffer text_;
    Buffer file_;
    wchar_t path_[kMostPath];
    std::byte start_[kMostRead];
};

}  // namespace

template <bool kWithReport>
bool SearchFurther(const RuntimeSearchPolicy& policy, FurtherSource source, RuntimeCandidate& found,
                   SourceReport* report) {
    // Too large for the stack.
    const auto search = std::make_unique<FurtherSearch<kWithReport>>(policy, report);
    search->Collect(source);
    return search->Choose(found);
}

template bool SearchFurther<false>(const RuntimeSearchPolicy&, FurtherSource, RuntimeCandidate&,
                                   SourceReport*);
template bool SearchFurther<true>(const RuntimeSearchPolicy&, FurtherSource, RuntimeCandidate&,
                                  SourceReport*);

}  // namespace tarn
