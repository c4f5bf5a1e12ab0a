#include "tools/wrap/manifest_options.h"

namespace tarn::tools {
namespace {

constexpr char kIgnoreUnknown[] = "-XX:+IgnoreUnrecognizedVMOptions";

struct Attribute {
    const char* name;
    const char* option;
    int firstJava;       // the first version that knows the option
    bool namesPackages;  // each of its words, otherwise the value is the option's
};

constexpr Attribute kAttributes[] = {
    {"Add-Exports", "--add-exports=", 9, true},
    {"Add-Opens", "--add-opens=", 9, true},
    {"Enable-Native-Access", "--enable-native-access=", 17, false},
};

}  // namespace

std::vector<std::string> ManifestOptions(const Manifest& manifest, const PossibleRuntimes& runtimes,
                                         const std::string& mainModule,
                                         std::vector<std::string>& warnings) {
    const std::string module = mainModule.empty() ? "" : ',' + mainModule;
    std::vector<std::string> options;
    bool mayBeUnknown = false;
    for (const Attribute& attribute : kAttributes) {
        const std::vector<std::string> words = manifest.GetWords(attribute.name);
        if (words.empty()) continue;
        if (runtimes.oldest < attribute.firstJava) {
            if (runtimes.isOnly) {
                warnings.push_back(std::string(attribute.name) +
                                   " of the manifest is omitted: the runtime is Java " +
                                   std::to_string(runtimes.oldest) + ", and Java knows it from " +
                                   std::to_string(attribute.firstJava) + " on");
                continue;
            }
            mayBeUnknown = true;
        }
        for (const std::string& word : words) {
            std::string option = attribute.option + word;
            if (attribute.namesPackages) option += "=ALL-UNNAMED";
            option += module;
            options.push_back(std::move(option));
        }
    }
    if (mayBeUnknown) options.insert(options.begin(), kIgnoreUnknown);
    return options;
}

}  // namespace tarn::tools
