#include "tools/explain/report_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tools/explain/report_fixture.h"

namespace tarn::tools {
namespace {

using nlohmann::json;

TEST(ReportJsonTest, BeginsWithFormatAndSchema) {
    const std::string text = ReportJson(FullReport());
    EXPECT_EQ(text.find("{\n  \"format\": \"tarn-explain\",\n  \"schema\": 1,\n"), 0U);
    EXPECT_EQ(text.back(), '\n');
}

TEST(ReportJsonTest, HasNullForPartsThatAreNotReached) {
    const json report = json::parse(ReportJson(LaunchReport()));
    for (const char* const part :
         {"singleInstance", "runtime", "pairedProgram", "environment", "splash", "jvm"}) {
        EXPECT_TRUE(report.at(part).is_null()) << part;
    }
    EXPECT_EQ(report.at("messages"), json::array());
    EXPECT_EQ(report.at("settings"), json::array());
}

TEST(ReportJsonTest, HasEveryPartOfALaunchThatStarts) {
    const json report = json::parse(ReportJson(FullReport()));
    EXPECT_EQ(report["outcome"], json({{"kind", "starts-java"},
                                       {"exitCode", nullptr},
                                       {"summary", "Creates the JVM and calls main."}}));
    EXPECT_EQ(report["messages"][0]["launchGoesOn"], true);
    EXPECT_EQ(report["program"]["arguments"], json({"a"}));
    EXPECT_EQ(report["settings"][0]["meaning"], "on");
    EXPECT_EQ(report["settings"][1]["meaning"], nullptr);
    EXPECT_EQ(report["singleInstance"]["processId"], 77);
    EXPECT_EQ(report["pairedProgram"]["waits"], true);
    EXPECT_EQ(report["environment"]["TARN_JVM_HOME"], "C:\\Java");
    EXPECT_EQ(report["splash"]["nativeFailure"], "unusable");
    EXPECT_EQ(report["jvm"]["options"], json({"-Djava.class.path=a.jar;", "-Xmx1024K"}));
    EXPECT_EQ(report["jvm"]["optionVariables"].size(), 3U);
    EXPECT_EQ(report["jvm"]["optionVariables"][0],
              json({{"name", "JAVA_TOOL_OPTIONS"}, {"value", "-Xmx1g"}, {"effect", "read-first"}}));
    EXPECT_EQ(report["jvm"]["classPathDirectory"], "C:\\work");
    EXPECT_EQ(report["jvm"]["classPathDirectoryIsOwn"], false);
    EXPECT_EQ(report["jvm"]["memory"]["physical"], 8'589'934'592);
    EXPECT_EQ(report["jvm"]["memory"]["percentages"][0]["written"], "-Xmx1p");
    EXPECT_EQ(report["jvm"]["outputs"][0]["file"], "o_2026.txt");
    EXPECT_EQ(report["jvm"]["afterMain"]["staysUntilExit"], true);
}

TEST(ReportJsonTest, HasRanksForCandidatesOnly) {
    const json report = json::parse(ReportJson(FullReport()));
    const json& sources = report["runtime"]["sources"];
    EXPECT_EQ(sources[0]["preferredVersion"], nullptr);
    EXPECT_EQ(sources[1]["preferredVersion"], "17");
    const json& subkeys = sources[1]["roots"][0]["subkeys"];
    EXPECT_EQ(subkeys[0]["reason"], nullptr);
    EXPECT_EQ(subkeys[1]["reason"], "version");
    EXPECT_EQ(subkeys[1]["rank"], 1);
    EXPECT_FALSE(subkeys[2].contains("rank"));
    EXPECT_EQ(subkeys[2]["home"], nullptr);
}

TEST(ReportJsonTest, HasTheRuntimesOfFurtherSources) {
    const json report = json::parse(ReportJson(ReportWithFurtherSources()));
    const json& sources = report["runtime"]["sources"];
    ASSERT_EQ(sources.size(), 2U);
    EXPECT_EQ(sources[0]["source"], "further-java-home");
    EXPECT_EQ(sources[0]["verdict"], "no-candidate");
    EXPECT_EQ(sources[0]["roots"], json::array());
    EXPECT_EQ(sources[0]["candidates"], json::array({{{"name", "JAVA_HOME"},
                                                      {"version", "17.0.9"},
                                                      {"verdict", "other-machine"},
                                                      {"home", "D:\\jdk\\"}}}));
    const json& candidates = sources[1]["candidates"];
    ASSERT_EQ(candidates.size(), 2U);
    EXPECT_EQ(candidates[0]["reason"], "version");
    EXPECT_EQ(candidates[0]["rank"], 1);
    EXPECT_EQ(candidates[1]["verdict"], "chosen");
    EXPECT_EQ(candidates[1]["reason"], nullptr);
}

TEST(ReportJsonTest, OmitsTheNamesOfADisabledInstance) {
    LaunchReport report;
    report.instance.emplace();
    report.instance->reason = "not set";
    const json instance = json::parse(ReportJson(report))["singleInstance"];
    EXPECT_EQ(instance, json({{"state", "off"}, {"reason", "not set"}}));
}

}  // namespace
}  // namespace tarn::tools
