#include "tools/explain/verdict_text.h"

#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

const char* WordFor(RuntimeSource source) {
    switch (source) {
        case RuntimeSource::Configured:
            return "configured";
        case RuntimeSource::Shipped:
            return "shipped";
        case RuntimeSource::Registry:
            return "registry";
        case RuntimeSource::PairedRegistry:
            return "registry-32bit";
        case RuntimeSource::Further:
            return "further";
    }
    return "";
}

const char* WordFor(FurtherSource source) {
    switch (source) {
        case FurtherSource::Vendors:
            return "further-vendors";
        case FurtherSource::User:
            return "further-user";
        case FurtherSource::JavaHome:
            return "further-java-home";
        case FurtherSource::Path:
            return "further-path";
        case FurtherSource::Folders:
            return "further-folders";
    }
    return "";
}

const char* WordFor(SourceVerdict verdict) {
    switch (verdict) {
        case SourceVerdict::Taken:
            return "taken";
        case SourceVerdict::NotConfigured:
            return "not-configured";
        case SourceVerdict::NoModuleFolder:
            return "no-launcher-folder";
        case SourceVerdict::NoJvmLibrary:
            return "no-jvm-library";
        case SourceVerdict::NoCandidate:
            return "no-candidate";
        case SourceVerdict::NoPairProduct:
            return "no-pair-product";
    }
    return "";
}

const char* WordFor(RootVerdict verdict) {
    switch (verdict) {
        case RootVerdict::Searched:
            return "searched";
        case RootVerdict::KindNotWanted:
            return "kind-not-wanted";
        case RootVerdict::ProviderNotAllowed:
            return "provider-not-allowed";
        case RootVerdict::NotOpened:
            return "no-such-key";
    }
    return "";
}

const char* WordFor(SubkeyVerdict verdict) {
    switch (verdict) {
        case SubkeyVerdict::Chosen:
            return "chosen";
        case SubkeyVerdict::RankedBelow:
            return "ranked-below";
        case SubkeyVerdict::AboveMaximum:
            return "above-maximum";
        case SubkeyVerdict::BelowMinimum:
            return "below-minimum";
        case SubkeyVerdict::NotOpened:
            return "no-such-key";
        case SubkeyVerdict::NoJavaHome:
            return "no-java-home";
        case SubkeyVerdict::NoJvmLibrary:
            return "no-jvm-library";
        case SubkeyVerdict::NotOnDrive:
            return "not-on-drive";
        case SubkeyVerdict::KindNotWanted:
            return "kind-excluded";
        case SubkeyVerdict::OtherMachine:
            return "other-machine";
        case SubkeyVerdict::UnknownVersion:
            return "unknown-version";
    }
    return "";
}

const char* WordFor(ChoiceReason reason) {
    switch (reason) {
        case ChoiceReason::PreferredVersion:
            return "preferred-version";
        case ChoiceReason::Favored:
            return "favored";
        case ChoiceReason::Server:
            return "server";
        case ChoiceReason::Version:
            return "version";
        case ChoiceReason::FoundEarlier:
            return "found-earlier";
    }
    return "";
}

struct Sentence {
    std::string_view word;
    std::string_view text;
};

constexpr Sentence kSentences[] = {
    {"configured", "\"JRE Path\""},
    {"shipped", "Runtime shipped with the program"},
    {"registry", "Registry"},
    {"registry-32bit", "Registry as 32-bit programs see it"},
    {"further-vendors", "Further sources: the makers' keys of the machine (vendors)"},
    {"further-user", "Further sources: the makers' keys of the user (user)"},
    {"further-java-home", "Further sources: the variable JAVA_HOME (java_home)"},
    {"further-path", "Further sources: the first java.exe in Path (path)"},
    {"further-folders", "Further sources: the makers' folders (folders)"},
    {"taken", "taken"},
    {"not-configured", "not set"},
    {"no-launcher-folder", "the program's own folder is unknown"},
    {"no-jvm-library", "no jvm.dll of the required type"},
    {"no-candidate", "no registered runtime qualifies"},
    {"no-pair-product", "not searched: \"Pair Product\" is not set"},
    {"searched", "searched"},
    {"kind-not-wanted", "not searched: excluded by \"JVM Source\""},
    {"provider-not-allowed", "not searched: excluded by \"VM Provider\""},
    {"no-such-key", "key not found or not readable"},
    {"chosen", "chosen"},
    {"ranked-below", "qualifies, but another one is preferred"},
    {"above-maximum", "newer than \"Maximum Version\""},
    {"below-minimum", "older than \"Minimum Version\""},
    {"not-on-drive", "not an absolute path on a drive"},
    {"kind-excluded", "excluded by \"JVM Source\""},
    {"other-machine", "its jvm.dll is for another processor or damaged"},
    {"unknown-version", "its version is unknown, and a bound is set"},
    {"no-java-home", "\"JavaHome\" is missing or empty"},
    {"preferred-version", "the other has a preferred version"},
    {"favored", "the other is of the favoured kind and provider"},
    {"server", "the other has a server JVM"},
    {"version", "the other is newer"},
    {"found-earlier", "the other was found first"},
};

// What "no-candidate" means for a source, without and with a list of rejected runtimes.
struct NoCandidateSentences {
    std::string_view source;
    std::string_view nothingFound;
    std::string_view allRejected;
};

constexpr NoCandidateSentences kNoCandidate[] = {
    {"further-vendors", "no runtime is registered in them", "no registered runtime qualifies"},
    {"further-user", "no runtime is registered in them", "no registered runtime qualifies"},
    {"further-java-home", "it cannot be used", "its runtime does not qualify"},
    {"further-path", "none found", "its runtime does not qualify"},
    {"further-folders", "no folder found in them", "no runtime in them qualifies"},
};

SubkeyLine Describe(const SubkeyReport& subkey) {
    SubkeyLine line;
    line.name = Utf8Of(subkey.name);
    line.version = Utf8Of(FormatVersion(subkey.runtime.version));
    line.home = Utf8Of(subkey.runtime.home);
    line.verdict = WordFor(subkey.verdict);
    line.isCandidate =
        subkey.verdict == SubkeyVerdict::Chosen || subkey.verdict == SubkeyVerdict::RankedBelow;
    if (line.isCandidate) {
        line.server = subkey.runtime.server;
        line.favored = subkey.runtime.favored;
        line.rank = subkey.rank;
    }
    if (subkey.verdict == SubkeyVerdict::RankedBelow) line.reason = WordFor(subkey.reason);
    return line;
}

}  // namespace

std::vector<SourceLine> DescribeSearch(const SearchReport& search,
                                       const std::vector<std::wstring>& preferredVersions) {
    std::vector<SourceLine> lines;
    for (const SourceReport& source : search.sources) {
        SourceLine line;
        const bool isFurther = source.source == RuntimeSource::Further;
        line.source = isFurther ? WordFor(source.further) : WordFor(source.source);
        line.verdict = WordFor(source.verdict);
        line.home = Utf8Of(source.home);
        if (source.preferred) line.preferred = Utf8Of(preferredVersions.at(*source.preferred));
        for (const RootReport& root : source.roots) {
            RootLine& rootLine = line.roots.emplace_back();
            rootLine.key = Utf8Of(root.root->key);
            rootLine.verdict = WordFor(root.verdict);
            for (const SubkeyReport& subkey : root.subkeys) {
                rootLine.subkeys.push_back(Describe(subkey));
            }
        }
        for (const SubkeyReport& candidate : source.candidates) {
            line.candidates.push_back(Describe(candidate));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string_view SentenceFor(std::string_view word) {
    for (const Sentence& sentence : kSentences) {
        if (sentence.word == word) return sentence.text;
    }
    return word;
}

std::string_view VerdictSentence(const SourceLine& source) {
    if (source.verdict == "no-candidate") {
        for (const NoCandidateSentences& each : kNoCandidate) {
            if (each.source != source.source) continue;
            return source.candidates.empty() ? each.nothingFound : each.allRejected;
        }
    }
    return SentenceFor(source.verdict);
}

}  // namespace tarn::tools
