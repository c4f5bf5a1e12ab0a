// start_bench LAUNCHER RUNTIMES APPLICATIONS [--rounds N] [TEXT...]: runs the cases whose name
// contains one of the texts; without a text, all cases.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "base/windows.h"
#include "bench/bench_case.h"
#include "bench/executable_report.h"
#include "bench/workspace.h"

namespace tarn::bench {

std::vector<Case> AllCases(const Workspace& workspace) {
    std::vector<Case> all;
    for (auto* cases :
         {JavaStartCases, MemoryCases, ScriptedRuntimeCases, StageCases, RegistryCases, GrowthCases,
          HandOffCases, SplashCases, SplashStageCases, WindowCases})
        for (Case& one : cases(workspace)) all.push_back(std::move(one));
    return all;
}

namespace {

constexpr int kDefaultRounds = 30;

bool IsWanted(const Case& benchCase, const std::vector<std::string>& texts) {
    bool wanted = texts.empty();
    for (const std::string& text : texts)
        wanted = wanted || benchCase.name.find(text) != std::string::npos;
    return wanted;
}

std::filesystem::path OwnFolder() {
    std::wstring path(32768, L'\0');  // the longest path that Windows supports
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}

int Run(const std::vector<std::wstring>& words) {
    Workspace workspace;
    workspace.launcher = std::filesystem::absolute(words.at(1));
    workspace.runtimes = std::filesystem::absolute(words.at(2));
    workspace.applications = std::filesystem::absolute(words.at(3));
    workspace.tools = OwnFolder();
    workspace.importHook =
        workspace.tools.parent_path() / L"tests" / L"import_hook" / L"import_hook.dll";
    workspace.scratch = std::filesystem::temp_directory_path() / L"tarn bench";
    RemoveTree(workspace.scratch);
    std::filesystem::create_directories(workspace.scratch);

    int rounds = kDefaultRounds;
    std::vector<std::string> texts;
    for (std::size_t i = 4; i < words.size(); ++i) {
        if (words[i] == L"--rounds")
            rounds = std::stoi(words.at(++i));
        else
            texts.emplace_back(words[i].begin(), words[i].end());
    }

    if (texts.empty()) PrintExecutableReport(workspace.launcher);
    bool measured = true;
    for (const Case& benchCase : AllCases(workspace))
        if (IsWanted(benchCase, texts)) measured = RunCase(benchCase, rounds) && measured;
    RemoveTree(workspace.scratch);
    return measured ? 0 : 1;
}

}  // namespace

}  // namespace tarn::bench

// NOLINTNEXTLINE(readability-identifier-naming): the C runtime's entry point.
int wmain(int count, wchar_t** words) {
    if (count < 4) {
        std::fprintf(stderr, "start_bench LAUNCHER RUNTIMES APPLICATIONS [--rounds N] [TEXT...]\n");
        return 2;
    }
    try {
        return tarn::bench::Run({words, words + count});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}
