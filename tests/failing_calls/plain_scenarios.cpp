// Launches without a window: the usual one, a runtime from the registry, output into files, and the
// paired launcher.

#include <gtest/gtest.h>

#include "tests/failing_calls/scenario.h"
#include "tests/support/jvm_files.h"
#include "tests/support/pair_product.h"
#include "tests/support/registered_runtimes_fixture.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

/// A configured runtime and one setting of each kind.
class Typical : public Scenario {
  public:
    Typical() {
        argumentText = L"first \"second one\"";
        app.AddFile(L"lib\\a.jar");
        app.AddFile(L"lib\\b.jar");
        settings.Set(L"Class Path", L"Class Path", L"C:\\app.jar;lib\\*.jar");
        settings.Runtime(L"Virtual Machine Parameters", L"-Xmx50:256:1024p -Da=%OS%");
        settings.Runtime(L"Library Path", L"C:\\native");
        settings.Runtime(L"System Path", L"C:\\system");
        settings.Application(L"Override WorkingDir", L"Yes").Application(L"Cmd", L"third");
    }

  protected:
    void AddFacts(Facts& facts) override {
        facts.emplace_back("working directory", app.Log().After("directory "));
    }
};

/// Two registered runtimes, of which the newer one is chosen.
class Registered : public Scenario {
  public:
    Registered() {
        settings.Remove(L"Java Runtime Environment", L"JRE Path");
        settings.Runtime(L"Maximum Version", L"any");
        runtimes_.Add(kJdkRoot, L"11.0.2", app.AddRuntime(L"jdk11"));
        runtimes_.Add(kJreRoot, L"17.0.9", app.AddRuntime(L"jre17"));
    }

  private:
    RegisteredRuntimes runtimes_;
};

class Redirected : public Scenario {
  public:
    Redirected() {
        settings.Application(L"Output File", app.Path(L"logs\\new\\out_%'x'yyyy'x'%.txt"));
        settings.Application(L"Error File", app.Path(L"logs\\new\\err.txt"));
        app.WriteScript("main = print out\nmain = print_error err");
    }

  protected:
    void Prepare() override { RemoveFolder(app.Path(L"logs")); }
    void AddFacts(Facts& facts) override {
        // The file's name contains the year after a letter, so the test can find it.
        std::string files;
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(
            FindFirstFileW(app.Path(L"logs\\new\\*.txt").c_str(), &found));
        for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
            std::string name = ToUtf8(found.cFileName);
            const std::size_t year = name.find("x20");
            if (year != std::string::npos) name.replace(year, 6, "YEAR");
            files += (files.empty() ? "" : " ") + name;
        }
        facts.emplace_back("files", files.empty() ? "none" : files);
    }
};

class Paired : public Scenario {
  public:
    Paired() : pair_(app, settings) {
        pair_.EndWith(7);
        settings.Application(L"Pair Return Code", L"Yes");
        const std::wstring library = app.Path(L"jre\\bin\\server\\jvm.dll");
        WriteFileBytes(library, As32Bit(ReadFileBytes(library)));
    }

  protected:
    void Prepare() override { DeleteFileW(app.Path(L"pair.log").c_str()); }
    void AddFacts(Facts& facts) override {
        bool started = false;
        for (const HookedCall& each : Calls()) {
            started |= each.function == "CreateProcessW" && !each.failed;
        }
        // The program may outlive a launcher that does not wait for it.
        if (started) pair_.WaitUntilStarted();
        facts.emplace_back("paired program", started ? "started" : "not started");
    }

  private:
    PairProduct pair_;
};

}  // namespace

std::vector<NamedScenario> PlainScenarios() {
    return {
        {"typical", "A launch without splash", Make<Typical>, kEveryCall, 12},
        {"registered", "A runtime from the registry", Make<Registered>, 30, 6},
        {"redirected", "Output into files", Make<Redirected>, 20, 6},
        {"paired", "A paired launcher that is waited for", Make<Paired>, 20, 6},
    };
}

}  // namespace tarn::test
