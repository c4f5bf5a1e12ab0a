#include "tools/check/vm_flags.h"

#include <algorithm>

#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// NAME KIND KNOWN, then pairs of a letter (i, d, e) and a set of versions; written by
// scripts/list_vm_flags.py from what the runtimes themselves print.
constexpr std::string_view kFlags =
#include "tools/check/vm_flags.inc"
    ;

struct Successor {
    std::string_view name;
    std::string_view advice;
};

constexpr char kG1[] = "remove it; G1 is the default, -XX:+UseZGC has the shortest pauses";
constexpr char kLog[] = "write -Xlog:gc* (Java 9 and later)";

constexpr Successor kSuccessors[] = {
    {"MaxPermSize",
     "remove it: there is no permanent generation since Java 8; "
     "-XX:MaxMetaspaceSize bounds its successor"},
    {"PermSize", "remove it: there is no permanent generation since Java 8"},
    {"UseConcMarkSweepGC", kG1},
    {"UseParNewGC", kG1},
    {"CMSClassUnloadingEnabled", kG1},
    {"UseParallelOldGC", "write -XX:+UseParallelGC"},
    {"PrintGCTimeStamps", kLog},
    {"PrintGCDateStamps", kLog},
    {"PrintHeapAtGC", kLog},
    {"UseGCLogFileRotation", "write -Xlog:gc*:file=gc.log::filecount=5,filesize=10m"},
    {"NumberOfGCLogFiles", "write -Xlog:gc*:file=gc.log::filecount=5,filesize=10m"},
    {"GCLogFileSize", "write -Xlog:gc*:file=gc.log::filecount=5,filesize=10m"},
    {"TraceClassLoading", "write -Xlog:class+load"},
    {"TraceClassUnloading", "write -Xlog:class+unload"},
    {"AggressiveOpts", "remove it: it has done nothing since Java 11"},
    {"UseBiasedLocking", "remove it: locks are no longer biased"},
    {"UnlockCommercialFeatures", "remove it: nothing has to be unlocked any more"},
    {"FlightRecorder", "remove it: -XX:StartFlightRecording is enough"},
    {"UseSharedSpaces", "write -Xshare:auto, -Xshare:on or -Xshare:off"},
    {"RequireSharedSpaces", "write -Xshare:on"},
    {"ZGenerational", "remove it: ZGC has generations by default"},
    {"UseCGroupMemoryLimitForHeap", "remove it"},
};

VersionSet DigitOf(char letter) {
    return static_cast<VersionSet>(letter <= '9' ? letter - '0' : letter - 'a' + 10);
}

FlagKind KindOf(char letter) {
    return letter == 's'   ? FlagKind::Switch
           : letter == 'n' ? FlagKind::Number
           : letter == 'd' ? FlagKind::Decimal
                           : FlagKind::Text;
}

VmFlag ParseFlag(std::string_view row) {
    const std::size_t blank = row.find(' ');
    VmFlag flag{row.substr(0, blank), KindOf(row[blank + 1]), DigitOf(row[blank + 2])};
    for (std::size_t at = blank + 3; at + 1 < row.size(); at += 2) {
        VersionSet& set = row[at] == 'i'   ? flag.ignored
                          : row[at] == 'd' ? flag.diagnostic
                                           : flag.experimental;
        set = DigitOf(row[at + 1]);
    }
    return flag;
}

const std::vector<VmFlag>& AllFlags() {
    static const std::vector<VmFlag> flags = [] {
        std::vector<VmFlag> all;
        std::size_t at = 0;
        while ((at = kFlags.find_first_not_of(", \n", at)) != std::string_view::npos) {
            const std::size_t end = std::min(kFlags.find(',', at), kFlags.size());
            all.push_back(ParseFlag(kFlags.substr(at, end - at)));
            at = end;
        }
        return all;
    }();
    return flags;
}

}  // namespace

const VmFlag* FindVmFlag(std::string_view name) {
    for (const VmFlag& flag : AllFlags()) {
        if (flag.name == name) return &flag;
    }
    return nullptr;
}

std::vector<std::wstring> VmFlagNames() {
    std::vector<std::wstring> names;
    for (const VmFlag& flag : AllFlags()) names.push_back(WideOf(flag.name));
    return names;
}

std::string_view SuccessorOf(std::string_view name) {
    for (const Successor& successor : kSuccessors) {
        if (successor.name == name) return successor.advice;
    }
    return {};
}

}  // namespace tarn::tools
