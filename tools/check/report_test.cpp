#include "tools/check/report.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

std::vector<Finding> Example() {
    Findings findings;
    findings.Warning("word", 7, "odd \"word\"", "write another");
    findings.Error("no-main-class", 0, "none");
    findings.Note("working-directory", 3, "somewhere");
    return findings.Sorted();
}

TEST(CheckReportTest, IsSortedByLine) {
    std::FILE* const file = std::tmpfile();
    PrintReport(Console(file, file, false, false), "a.ini", Example());
    std::rewind(file);
    std::string text(1000, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    std::fclose(file);
    EXPECT_EQ(text,
              "a.ini: error: none\n"
              "a.ini:3: note: somewhere\n"
              "a.ini:7: warning: odd \"word\"\n"
              "    write another\n"
              "a.ini: 1 error, 1 warning, 1 note\n");
}

TEST(CheckReportTest, IsAlsoWrittenAsJson) {
    Findings findings;
    findings.Warning("word", 7, "odd \"word\"", "write another");
    EXPECT_EQ(JsonReport("a.ini", findings.Sorted()), R"({
  "schema": 1,
  "file": "a.ini",
  "errors": 0,
  "warnings": 1,
  "notes": 0,
  "findings": [
    {
      "line": 7,
      "severity": "warning",
      "id": "word",
      "message": "odd \"word\"",
      "advice": "write another"
    }
  ]
}
)");
}

}  // namespace
}  // namespace tarn::tools
