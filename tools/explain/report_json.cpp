#include "tools/explain/report_json.h"

#include <nlohmann/json.hpp>

namespace tarn::tools {
namespace {

using Json = nlohmann::ordered_json;

Json OrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

template <typename Value>
Json OrNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

template <typename Record>
Json Array(const std::vector<Record>& records) {
    Json array = Json::array();
    for (const Record& record : records) array.push_back(ToJson(record));
    return array;
}

}  // namespace

// Not in the unnamed namespace, where the template above would not find them.
static Json ToJson(const MessageReport& message) {
    return {{"text", message.text}, {"launchGoesOn", message.launchGoesOn}};
}

static Json ToJson(const OutcomeReport& outcome) {
    return {{"kind", outcome.kind},
            {"exitCode", OrNull(outcome.exitCode)},
            {"summary", outcome.summary}};
}

static Json ToJson(const ProgramReport& program) {
    return {{"path", program.path},
            {"settingsFile", OrNull(program.settingsFile)},
            {"settingsFileExists", program.settingsFileExists},
            {"perUserFile", OrNull(program.perUserFile)},
            {"perUserFileExists", program.perUserFileExists},
            {"hasBuiltInSettings", program.hasBuiltInSettings},
            {"commandLine", program.commandLine},
            {"arguments", program.arguments}};
}

static Json ToJson(const SettingReport& setting) {
    return {{"section", setting.section},
            {"key", setting.key},
            {"value", setting.value},
            {"layer", setting.layer},
            {"meaning", OrNull(setting.meaning)}};
}

static Json ToJson(const InstanceReport& instance) {
    Json json = {{"state", instance.state}, {"reason", OrNull(instance.reason)}};
    if (instance.state == "off") return json;
    json["blockName"] = instance.blockName;
    json["messageName"] = instance.messageName;
    json["eventName"] = instance.eventName;
    json["processId"] = instance.processId;
    json["listenerThreadId"] = instance.listenerThreadId;
    json["argumentBytes"] = instance.argumentBytes;
    json["argumentRoom"] = instance.argumentRoom;
    return json;
}

static Json ToJson(const SubkeyLine& subkey) {
    Json json = {{"name", subkey.name},
                 {"version", subkey.version},
                 {"verdict", subkey.verdict},
                 {"home", OrNull(subkey.home)}};
    if (!subkey.isCandidate) return json;
    json["server"] = subkey.server;
    json["favored"] = subkey.favored;
    json["rank"] = subkey.rank;
    json["reason"] = OrNull(subkey.reason);
    return json;
}

static Json ToJson(const RootLine& root) {
    return {{"key", root.key}, {"verdict", root.verdict}, {"subkeys", Array(root.subkeys)}};
}

static Json ToJson(const SourceLine& source) {
    return {{"source", source.source},      {"verdict", source.verdict},
            {"home", source.home},          {"preferredVersion", OrNull(source.preferred)},
            {"roots", Array(source.roots)}, {"candidates", Array(source.candidates)}};
}

static Json ToJson(const RuntimeReport& runtime) {
    Json json = {{"found", runtime.isFound}, {"sources", Array(runtime.sources)}};
    if (!runtime.isFound) return json;
    json["home"] = runtime.home;
    json["jvmLibrary"] = runtime.jvmLibrary;
    json["machine"] = runtime.machine;
    json["registeredVersion"] = OrNull(runtime.registeredVersion);
    json["releaseVersion"] = OrNull(runtime.releaseVersion);
    json["libraryVersion"] = OrNull(runtime.libraryVersion);
    json["pairedLauncher"] = runtime.isForPairedLauncher;
    return json;
}

static Json ToJson(const PairedReport& paired) {
    return {{"program", paired.program},
            {"programExists", paired.programExists},
            {"waits", paired.waits}};
}

static Json ToJson(const EnvironmentReport& environment) {
    return {{"directory", environment.directory},
            {"Path", environment.path},
            {"TARN_JVM_PATH", environment.jvmPath},
            {"TARN_JVM_HOME", environment.jvmHome}};
}

static Json ToJson(const SplashReport& splash) {
    return {{"kind", splash.kind},
            {"image", OrNull(splash.image)},
            {"imageExists", splash.imageExists},
            {"shadow", splash.shadow},
            {"nativeFailure", OrNull(splash.nativeFailure)}};
}

static Json ToJson(const OptionVariableReport& variable) {
    return {{"name", variable.name}, {"value", variable.value}, {"effect", variable.effect}};
}

static Json ToJson(const PercentageReport& percentage) {
    return {{"written", percentage.written}, {"option", percentage.option}};
}

static Json ToJson(const OutputReport& output) {
    return {{"stream", output.stream},
            {"name", output.name},
            {"file", output.file},
            {"hasPicture", output.hasPicture},
            {"append", output.append}};
}

static Json ToJson(const JvmReport& jvm) {
    return {{"mainClass", jvm.mainClass},
            {"classPathDirectory", OrNull(jvm.classPathDirectory)},
            {"classPathDirectoryIsOwn", jvm.classPathDirectoryIsOwn},
            {"options", jvm.options},
            {"optionVariables", Array(jvm.optionVariables)},
            {"arguments", jvm.arguments},
            {"stackSize", jvm.stackSize},
            {"stackSizeFrom", jvm.stackSizeFrom},
            {"memory",
             {{"physical", jvm.physicalMemory},
              {"availableAddressSpace", jvm.availableAddressSpace},
              {"percentages", Array(jvm.percentages)}}},
            {"outputs", Array(jvm.outputs)},
            {"archive", OrNull(jvm.archive)},
            {"readsArchive", jvm.readsArchive},
            {"afterMain",
             {{"showsUncaughtException", jvm.showsUncaughtException},
              {"destroysJvm", jvm.destroysJvm},
              {"staysUntilExit", jvm.staysAfterMain}}}};
}

template <typename Record>
static Json ToJson(const std::optional<Record>& record) {
    return record ? ToJson(*record) : Json();
}

std::string ReportJson(const LaunchReport& report) {
    const Json json = {{"format", "tarn-explain"},
                       {"schema", kReportSchema},
                       {"outcome", ToJson(report.outcome)},
                       {"messages", Array(report.messages)},
                       {"program", ToJson(report.program)},
                       {"settings", Array(report.settings)},
                       {"singleInstance", ToJson(report.instance)},
                       {"runtime", ToJson(report.runtime)},
                       {"pairedProgram", ToJson(report.paired)},
                       {"environment", ToJson(report.environment)},
                       {"splash", ToJson(report.splash)},
                       {"jvm", ToJson(report.jvm)}};
    return json.dump(2) + '\n';
}

}  // namespace tarn::tools
