#include "tools/explain/runtime_text.h"

#include "tools/explain/verdict_text.h"

namespace tarn::tools {
namespace {

std::string Styled(const TextPage& page, std::string_view verdict) {
    const bool good = verdict == "taken" || verdict == "chosen";
    return page.Styled(good ? Style::kGood : Style::kPlain, SentenceFor(verdict));
}

void PrintSubkey(const SubkeyLine& subkey, TextPage& page) {
    std::string line = subkey.name + " (" + subkey.version + "): " + Styled(page, subkey.verdict);
    if (!subkey.reason.empty()) line += "; " + std::string(SentenceFor(subkey.reason));
    page.Line(line, 3);
    if (!subkey.home.empty()) page.Line(page.Styled(Style::kDim, subkey.home), 4);
    if (!subkey.isCandidate) return;
    std::string about = "place " + std::to_string(subkey.rank + 1);
    if (subkey.server) about += ", server JVM";
    if (subkey.favored) about += ", of the favoured kind and provider";
    page.Line(page.Styled(Style::kDim, about), 4);
}

void PrintSource(const SourceLine& source, TextPage& page) {
    page.Line(std::string(SentenceFor(source.source)) + ": " + Styled(page, source.verdict));
    if (!source.home.empty()) {
        page.Line(page.Styled(Style::kDim, source.home), 2);
    } else if (source.source == "shipped" && source.verdict != "no-launcher-folder") {
        page.Line(page.Styled(Style::kDim, "none there; looked below the current directory"), 2);
    }
    if (source.preferred) page.Line("by the preferred version \"" + *source.preferred + '"', 2);
    for (const RootLine& root : source.roots) {
        page.Line(root.key + ": " + std::string(SentenceFor(root.verdict)), 2);
        for (const SubkeyLine& subkey : root.subkeys) PrintSubkey(subkey, page);
    }
}

}  // namespace

void PrintRuntime(const RuntimeReport& runtime, TextPage& page) {
    page.Heading("Search for a Java runtime");
    for (const SourceLine& source : runtime.sources) PrintSource(source, page);
    page.Heading("Java runtime");
    if (!runtime.isFound) {
        page.Line("none found");
        return;
    }
    page.Value("jvm.dll", runtime.jvmLibrary);
    page.Value("home", runtime.home.empty() ? "(the current directory)" : runtime.home);
    page.Value("machine",
               runtime.machine + (runtime.isForPairedLauncher ? ", for the paired program" : ""));
    const auto version = [&page](const char* from, const std::string& text) {
        if (!text.empty()) page.Value("version", text + " (" + from + ')');
    };
    version("registry", runtime.registeredVersion);
    version("file \"release\"", runtime.releaseVersion);
    version("jvm.dll", runtime.libraryVersion);
}

}  // namespace tarn::tools
