// Compares the output of `tarn explain` with what the launch does, for random applications.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/support/explained_launch.h"
#include "tests/support/generated_launch.h"
#include "tests/support/text.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {
namespace {

using nlohmann::json;
using testing::ElementsAreArray;

constexpr wchar_t kSplashClass[] = L"SplashScreenWindow";

/// A generated launch, explained and then started.
class ExplainedLaunch {
  public:
    explicit ExplainedLaunch(std::uint32_t seed) : launch_(seed) {}

    void Run() {
        SCOPED_TRACE(launch_.Description());
        const auto report = ExplainLaunch(launch_.app, launch_.argumentText);
        if (!report) return;
        report_ = *report;
        SCOPED_TRACE(report_.dump());
        ExpectNothingDone();
        Start();
        ExpectAgreement();
    }

    std::string kind() const { return report_["outcome"]["kind"]; }

  private:
    static std::string LogText(const json& text) {
        return TextInLog(FromUtf8(text.get<std::string>()));
    }

    /// `tarn explain` creates no JVM and no file, and sends no request to a running instance.
    void ExpectNothingDone() const {
        const FakeJvmLog log(ExplanationLog(launch_.app));
        EXPECT_EQ(log.Count("JNI_CreateJavaVM"), 0U);
        EXPECT_EQ(log.Count("SplashInit"), 0U);
        EXPECT_EQ(GetFileAttributesW(launch_.app.Path(L"logs").c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetFileAttributesW(launch_.app.Path(L"pair.log").c_str()),
                  INVALID_FILE_ATTRIBUTES);
        EXPECT_FALSE(TakeHandOff());
    }

    /// The message of a hand-off to this thread, if there is one.
    std::optional<MSG> TakeHandOff() const {
        MSG message;
        if (PeekMessageW(&message, nullptr, launch_.kHandOff, launch_.kHandOff, PM_REMOVE))
            return message;
        return std::nullopt;
    }

    void Start() {
        const auto process = launch_.app.Launch(launch_.argumentText);
        const std::size_t expected =
            report_["splash"].is_object() && report_["splash"]["kind"] == "own" ? 1 : 0;
        observed_ = ObserveLaunch(*process, [&] {
            if (const auto message = TakeHandOff()) {
                PostThreadMessageW(static_cast<DWORD>(message->wParam), launch_.kHandOff,
                                   static_cast<WPARAM>(launch_.kAnswer), 0);
            }
            if (!launch_.mainRuns.IsSet() || launch_.mainMayEnd.IsSet()) return;
            // The splash has a thread of its own, so it may appear after the start of `main`.
            WaitUntil([&] { return SplashesOf(*process) == expected || process->HasEnded(); });
            EXPECT_EQ(SplashesOf(*process), expected);
            launch_.mainMayEnd.Set();
        });
        // A launch that finds the first instance's process gone ends without waiting for the
        // answer; its message must not meet the next launch.
        TakeHandOff();
    }

    static std::size_t SplashesOf(const LaunchedProcess& process) {
        return WindowsOf(process.id(), kSplashClass).size();
    }

    void ExpectAgreement() const {
        std::vector<std::string> messages;
        for (const json& message : report_["messages"]) messages.push_back(message["text"]);
        EXPECT_THAT(observed_.messages, ElementsAreArray(messages));
        const json& exitCode = report_["outcome"]["exitCode"];
        if (!exitCode.is_null()) {
            EXPECT_EQ(observed_.exitCode, exitCode.get<std::int32_t>());
        }
        EXPECT_EQ(launch_.app.Log().Count("JNI_CreateJavaVM("), kind() == "starts-java" ? 1U : 0U);
        EXPECT_EQ(observed_.askedForRuntime, kind() == "asks-for-runtime");
        ExpectLayers();
        if (kind() == "starts-java") ExpectJava();
        if (kind() == "fails" || kind() == "asks-for-runtime") {
            EXPECT_EQ(observed_.exitCode, -1);
        }
        if (kind() == "hands-over" && exitCode.is_null()) {
            EXPECT_EQ(observed_.exitCode, launch_.kAnswer);
        }
        if (kind() == "starts-paired-program") ExpectPairedProgram();
    }

    void ExpectPairedProgram() const {
        const json& paired = report_["pairedProgram"];
        if (!paired["programExists"]) return;
        EXPECT_TRUE(launch_.PairedProgramWasStarted());
        if (paired["waits"]) {
            EXPECT_EQ(observed_.exitCode, launch_.kPairCode);
        }
    }

    void ExpectLayers() const {
        for (const json& setting : report_["settings"]) {
            const auto place = launch_.layers.find({FromUtf8(setting["section"].get<std::string>()),
                                                    FromUtf8(setting["key"].get<std::string>())});
            if (place == launch_.layers.end() || setting["layer"] == "per-user") continue;
            EXPECT_EQ(setting["layer"], place->second) << setting["key"];
        }
    }

    void ExpectJava() const {
        const FakeJvmLog log = launch_.app.Log();
        const json& jvm = report_["jvm"];
        const json& environment = report_["environment"];
        EXPECT_EQ(observed_.exitCode, launch_.kMainCode);
        EXPECT_THAT(log.Violations(), testing::IsEmpty());

        std::vector<std::string> options;
        for (const json& option : jvm["options"]) {
            options.push_back(AnsiInLog(FromUtf8(option.get<std::string>())));
        }
        EXPECT_THAT(log.Options(), ElementsAreArray(options));
        EXPECT_EQ(log.After("directory "), LogText(environment["directory"]));
        // The first such line was logged when the library was loaded.
        EXPECT_EQ(log.After("environment Path="), LogText(environment["Path"]));
        EXPECT_EQ(log.After("environment TARN_JVM_PATH="), LogText(environment["TARN_JVM_PATH"]));
        EXPECT_EQ(log.After("environment TARN_JVM_HOME="), LogText(environment["TARN_JVM_HOME"]));
        EXPECT_EQ(environment["TARN_JVM_PATH"], report_["runtime"]["jvmLibrary"]);
        ExpectMain(log, jvm);
        ExpectStack(log, jvm);
        ExpectOutputs(log, jvm);
        const bool native = report_["splash"]["kind"] == "native";
        EXPECT_EQ(log.Count("SplashInit("), native ? 1U : 0U);
    }

    static void ExpectMain(const FakeJvmLog& log, const json& jvm) {
        std::string arguments;
        for (const json& argument : jvm["arguments"]) {
            arguments += (arguments.empty() ? "" : ", ") + LogText(argument);
        }
        std::string name = jvm["mainClass"];
        EXPECT_EQ(log.Count("CallStaticVoidMethod(" + name + ".main([Ljava/lang/String;)V, [" +
                            arguments + "])"),
                  1U)
            << log.After("CallStaticVoidMethod(");
    }

    /// A thread's stack has at least the executable's size, in whole megabytes.
    static void ExpectStack(const FakeJvmLog& log, const json& jvm) {
        constexpr unsigned long long kMebibyte = 1024 * 1024;
        const unsigned long long asked = jvm["stackSize"];
        const unsigned long long stack = std::stoull(log.After("stack "));
        EXPECT_GE(stack, std::max(asked, kMebibyte));
        EXPECT_LT(stack, std::max(asked, kMebibyte) + 2 * kMebibyte);
        EXPECT_EQ(log.Count("JNI_GetDefaultJavaVMInitArgs("),
                  jvm["stackSizeFrom"] == "option" ? 0U : 1U);
    }

    static void ExpectOutputs(const FakeJvmLog& log, const json& jvm) {
        const std::string call =
            "NewObject(java/io/FileOutputStream.<init>(Ljava/lang/String;Z)V, ";
        std::vector<std::string> predicted;
        for (const json& output : jvm["outputs"]) {
            const std::string append = output["append"] ? ", true)" : ", false)";
            predicted.push_back(call + LogText(output["file"]) + append);
        }
        std::vector<std::string> opened;
        for (const std::string& text : log.Texts()) {
            if (text.starts_with(call)) opened.push_back(text);
        }
        EXPECT_EQ(opened, predicted);
    }

    GeneratedLaunch launch_;
    json report_;
    ObservedLaunch observed_;
};

class ExplainAgreement : public testing::TestWithParam<unsigned> {
  public:
    static constexpr unsigned kLaunches = 25;
};

/// A different seed for longer runs: TARN_FIRST_SEED.
std::uint32_t FirstSeed() {
    wchar_t text[16] = L"";
    GetEnvironmentVariableW(L"TARN_FIRST_SEED", text, 16);
    return static_cast<std::uint32_t>(std::wcstoul(text, nullptr, 10));
}

TEST_P(ExplainAgreement, HoldsForRandomLaunches) {
    std::map<std::string, int> kinds;
    for (unsigned at = 0; at < kLaunches; ++at) {
        const std::uint32_t seed = FirstSeed() + GetParam() * kLaunches + at;
        SCOPED_TRACE("seed " + std::to_string(seed));
        ExplainedLaunch launch(seed);
        launch.Run();
        if (HasFailure()) return;
        ++kinds[launch.kind()];
    }
    for (const auto& [kind, count] : kinds) RecordProperty(kind, count);
    EXPECT_GE(kinds["starts-java"], static_cast<int>(kLaunches / 6));
}

INSTANTIATE_TEST_SUITE_P(Block, ExplainAgreement, testing::Range(0U, 8U));

}  // namespace
}  // namespace tarn::test
