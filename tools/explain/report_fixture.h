#pragma once

#include "tools/explain/launch_report.h"

namespace tarn::tools {

/// A search that finds nothing before a further source.
inline LaunchReport ReportWithFurtherSources() {
    SourceLine variable;
    variable.source = "further-java-home";
    variable.verdict = "no-candidate";
    variable.candidates = {
        {"JAVA_HOME", "17.0.9", "D:\\jdk\\", false, false, false, 0, "other-machine", ""}};
    SourceLine folders;
    folders.source = "further-folders";
    folders.verdict = "taken";
    folders.home = "C:\\Java\\jdk-21\\";
    folders.candidates = {
        {"C:\\Java\\jdk-17", "17.0", "C:\\Java\\jdk-17\\", true, true, true, 1, "ranked-below",
         "version"},
        {"C:\\Java\\jdk-21", "21.0", "C:\\Java\\jdk-21\\", true, true, true, 0, "chosen", ""}};
    LaunchReport report;
    report.runtime.emplace();
    report.runtime->isFound = true;
    report.runtime->home = folders.home;
    report.runtime->sources = {variable, folders};
    return report;
}

/// A report with every part.
inline LaunchReport FullReport() {
    LaunchReport report;
    report.outcome = {"starts-java", std::nullopt, "Creates the JVM and calls main."};
    report.messages = {{"No class path.\n", true}};
    report.program.path = "C:\\Apps\\sample.exe";
    report.program.settingsFile = "C:\\Apps\\sample.ini";
    report.program.settingsFileExists = true;
    report.program.perUserFile = "C:\\Users\\me\\sample.ini";
    report.program.commandLine = "\"C:\\Apps\\sample.exe\" a";
    report.program.arguments = {"a"};
    report.settings = {{"Application", "Failure Check", "yes", "file", "on"},
                       {"Application", "Cmd", " b", "additive", ""},
                       {"Java Runtime Environment", "JVM Type", "", "none", "any"},
                       {"Java Runtime Environment", "JRE Path", "", "none", ""},
                       {"Application", "Single Instance", "", "none", "off"}};
    report.instance.emplace();
    report.instance->state = "second";
    report.instance->blockName = "C:_Apps_sample.exe";
    report.instance->processId = 77;
    report.runtime.emplace();
    report.runtime->isFound = true;
    report.runtime->home = "C:\\Java\\";
    report.runtime->jvmLibrary = "C:\\Java\\bin\\server\\jvm.dll";
    report.runtime->machine = "x64";
    report.runtime->releaseVersion = "17.0.9";
    SubkeyLine chosen{"17", "17.0", "C:\\Java\\", true, true, true, 0, "chosen", ""};
    SubkeyLine other{"11", "11.0", "C:\\Old\\", true, false, false, 1, "ranked-below", "version"};
    SubkeyLine old{"1.8", "1.8", "", false, false, false, 0, "below-minimum", ""};
    SourceLine registry;
    registry.source = "registry";
    registry.verdict = "taken";
    registry.home = "C:\\Java\\";
    registry.preferred = "17";
    registry.roots = {{"Software\\JavaSoft\\JDK", "searched", {chosen, other, old}},
                      {"Software\\JavaSoft\\JRE", "kind-not-wanted", {}}};
    report.runtime->sources = {{"configured", "not-configured", "", std::nullopt, {}}, registry};
    report.paired = PairedReport{"C:\\pair.exe", false, true};
    report.environment = EnvironmentReport{"C:\\work", "C:\\windows", "C:\\j.dll", "C:\\Java"};
    report.splash = SplashReport{"own", "s.png", false, true, "unusable"};
    report.jvm.emplace();
    report.jvm->mainClass = "com/example/Main";
    report.jvm->classPathDirectory = "C:\\work";
    report.jvm->options = {"-Djava.class.path=a.jar;", "-Xmx1024K"};
    report.jvm->optionVariables = {{"JAVA_TOOL_OPTIONS", "-Xmx1g", "read-first"},
                                   {"_JAVA_OPTIONS", "-Xmx2g", "read-last"},
                                   {"JDK_JAVA_OPTIONS", "-Xmx3g", "ignored"}};
    report.jvm->arguments = {"a", "b"};
    report.jvm->stackSize = 1'048'576;
    report.jvm->stackSizeFrom = "option";
    report.jvm->physicalMemory = 8'589'934'592;
    report.jvm->percentages = {{"-Xmx1p", "-Xmx1024K"}};
    report.jvm->outputs = {{"output", "o_%yyyy%.txt", "o_2026.txt", true, true}};
    report.jvm->staysAfterMain = true;
    return report;
}

}  // namespace tarn::tools
