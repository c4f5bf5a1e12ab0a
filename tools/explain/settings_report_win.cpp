#include "tools/explain/settings_report.h"

#include "settings/embedded_settings.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings.h"
#include "settings/settings_paths.h"
#include "tools/common/text_encoding.h"
#include "tools/settings/known_keys.h"

namespace tarn::tools {
namespace {

/// The settings of one launch, with access to each layer.
struct Layers {
    explicit Layers(const std::wstring& mainPath)
        : file(mainPath), layered(mainPath), builtIn(LoadEmbeddedText()) {}

    IniFile file;
    LayeredSettings layered;
    EmbeddedSettings builtIn;
};

const char* LayerOf(const Layers& layers, const KnownKey& key) {
    if (!layers.file.GetValue(key.section, key.key).empty()) return "file";
    const std::wstring additive = std::wstring(key.section) + L'+';
    const bool hasAdditive = !layers.file.GetValue(additive.c_str(), key.key).empty();
    const bool hasBuiltIn = !layers.builtIn.Find(key.section, key.key).empty();
    if (hasAdditive) return hasBuiltIn ? "built-in+additive" : "additive";
    return hasBuiltIn ? "built-in" : "none";
}

void ReadLayered(const Layers& layers, const KnownKey& key, std::wstring& value,
                 SettingReport& report) {
    value = layers.layered.GetValue(key.section, key.key);
    report.layer = LayerOf(layers, key);
}

void ReadFrom(const IniFile& file, const char* layer, const KnownKey& key, std::wstring& value,
              SettingReport& report) {
    value = file.GetValue(key.section, key.key);
    report.layer = value.empty() ? "none" : layer;
}

std::string KindsOf(const RuntimeSearchPolicy& policy) {
    if (!policy.jdkWanted && !policy.jreWanted) return "no registered runtime is searched";
    if (policy.jdkWanted && policy.jreWanted) return "JDKs and JREs";
    const std::string wanted = policy.jdkWanted ? "JDKs" : "JREs";
    return policy.sourceFavouring ? wanted + " favoured" : wanted + " only";
}

std::string ProvidersOf(const RuntimeSearchPolicy& policy) {
    std::string text;
    const auto add = [&text](const char* name, bool allowed, bool favored) {
        if (!allowed && !favored) return;
        if (!text.empty()) text += ", ";
        text += name;
        if (favored) text += " (favoured)";
    };
    add("JavaSoft", policy.sunAllowed, policy.sunFavored);
    add("JRockit", policy.jrockitAllowed, policy.jrockitFavored);
    add("IBM", policy.ibmAllowed, policy.ibmFavored);
    return text;
}

std::string TypeOf(JvmType type) {
    switch (type) {
        case JvmType::Server:
            return "the server JVM only";
        case JvmType::FavorServer:
            return "the server JVM where there is one";
        case JvmType::Default:
            break;
    }
    return "any, client before server";
}

std::string MaximumOf(const RuntimeVersion& maximum) {
    if (!IsBlank(maximum)) return Utf8Of(FormatVersion(maximum));
    return maximum.parts[0] == 0 ? "0.0.0.0: no registered runtime of any version passes"
                                 : "no maximum";
}

/// The launcher's interpretation of a setting that is neither a plain text nor a flag.
std::string InterpretationOf(const std::wstring& key, const Settings& settings) {
    const RuntimeSearchPolicy& policy = settings.policy;
    if (key == keys::kMinimumVersion) {
        return IsBlank(policy.minimum) ? "no minimum" : Utf8Of(FormatVersion(policy.minimum));
    }
    if (key == keys::kMaximumVersion) return MaximumOf(policy.maximum);
    if (key == keys::kApplicationType) return settings.serviceMode ? "service" : "no service";
    if (key == keys::kJvmType) return TypeOf(policy.jvmType);
    if (key == keys::kJvmSource) return KindsOf(policy);
    if (key == keys::kVmProvider) return ProvidersOf(policy);
    if (key == keys::kMainClass && !settings.mainClass.empty()) return Utf8Of(settings.mainClass);
    return {};
}

}  // namespace

std::vector<SettingReport> ReportSettings(const std::wstring& programPath,
                                          const Settings& settings) {
    std::vector<SettingReport> reports;
    const std::optional<std::wstring> mainPath = SettingsPathOf(programPath);
    if (!mainPath) return reports;
    const Layers layers(*mainPath);
    for (const KnownKey& key : KnownKeys()) {
        SettingReport report;
        report.section = Utf8Of(key.section);
        report.key = Utf8Of(key.key);
        std::wstring value;
        std::wstring perUser;
        if (key.source == SettingSource::MainFile) {
            ReadFrom(layers.file, "file", key, value, report);
        } else if (key.source == SettingSource::PerUser &&
                   UsesPerUserFile(settings, programPath, perUser)) {
            ReadFrom(IniFile(perUser), "per-user", key, value, report);
        } else {
            ReadLayered(layers, key, value, report);
        }
        report.value = Utf8Of(value);
        const std::optional<bool> flag = FlagValue(key.form, value);
        report.meaning = flag ? (*flag ? "on" : "off") : InterpretationOf(key.key, settings);
        reports.push_back(std::move(report));
    }
    return reports;
}

}  // namespace tarn::tools
