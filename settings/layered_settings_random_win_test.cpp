// Compares the layers with plain reads of random files, valid and corrupt. Queries that are skipped
// must never change a value.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "settings/ini_file_fixture.h"
#include "settings/layered_settings.h"

namespace tarn {
namespace {

constexpr const char* kSectionLines[] = {
    "[A]",    "[A]",   "[B]",   "[A+]",     "[a+]",  "[A+ ]", "[ A+]",        "[A +]", " [A+]",
    "\t[A+]", "[A+",   "A+]",   "[A+]]",    "[[A+]", "[A+]x", "[]",           "[+]",   "[B+]",
    ";[A+]",  "#[A+]", "[A++]", "[\"A+\"]", "[A+;]", "[A+=]", "[A+]k=inline", "[A+]=",
};
constexpr const char* kValueLines[] = {
    "k=one",     "k=",          "k = two ",    "K=three",    " k=four",      "k",
    "=k",        "k=\"five\"",  "l=six",       "l= seven",   ";k=eight",     "l=",
    "k==",       "k=with + in", "l='+'",       "k=\x80\xff", "\"k\"=nine",   "kk=ten",
    "k\x01=ten", "M=eleven",    "m =\ttwelve", "n.k=none",   "k;l=thirteen", "'m'=fourteen",
};
constexpr const char* kLineEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", "\n\r", ""};
constexpr const char* kMarks[] = {"", "", "", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", "\n"};

constexpr wchar_t kSectionA[] = L"A";
constexpr wchar_t kSectionB[] = L"B";

class RandomIniFiles {
  public:
    std::string Next() {
        std::string text;
        const bool additive = Below(2) == 0;
        for (int lines = Below(12); lines > 0; --lines) {
            std::string line = Below(2) == 0 ? Any(kSectionLines) : Any(kValueLines);
            // Half of the files have no additive section, like most files in practice.
            if (!additive && line.find(']') != std::string::npos) line = "[A]";
            text += line;
            text += Any(kLineEnds);
            if (Below(40) == 0) text += '\0';
            // Longer than the initial buffer for names.
            if (Below(40) == 0) text += '[' + std::string(300, 'n') + "]\r\n";
        }
        const int form = Below(4);
        if (form == 0) return Wide(text, false);
        if (form == 1) return Wide(text, true);
        return Any(kMarks) + text;
    }

  private:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

    template <std::size_t count>
    std::string Any(const char* const (&all)[count]) {
        return all[Below(static_cast<int>(count))];
    }

    static std::string Wide(const std::string& text, bool swapped) {
        std::string bytes = swapped ? "\xFE\xFF" : "\xFF\xFE";
        for (const char c : text) {
            if (swapped) bytes += '\0';
            bytes += c;
            if (!swapped) bytes += '\0';
        }
        return bytes;
    }

    std::mt19937 random_{2026};
};

class LayeredSettingsRandomTest : public IniFileFixture {
  protected:
    /// The rule without skipped queries.
    std::wstring Plain(const wchar_t* section, const wchar_t* key) const {
        const IniFile file(path_);
        const std::wstring value = file.GetValue(section, key);
        if (!value.empty()) return value;
        return AppendValue(L"", file.GetValue((std::wstring(section) + L'+').c_str(), key));
    }
};

TEST_F(LayeredSettingsRandomTest, ValuesAreThoseOfPlainReadsWhateverTheFileHolds) {
    RandomIniFiles files;
    int additive = 0;
    int late = 0;
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        const std::string bytes = files.Next();
        Write(bytes);
        const LayeredSettings layered(path_);
        int reads = 0;
        // Repeated, because the keys of a section are listed only after several reads.
        for (const wchar_t* const key : {L"k", L"l", L"none", L"k", L"K", L"m", L"l"}) {
            for (const wchar_t* const section : {kSectionA, kSectionB}) {
                const std::wstring plain = IniFile(path_).GetValue(section, key);
                const std::wstring expected = Plain(section, key);
                EXPECT_EQ(layered.GetFileValue(section, key), plain)
                    << "file " << i << ": " << testing::PrintToString(bytes);
                EXPECT_EQ(layered.GetValue(section, key), expected)
                    << "file " << i << ": " << testing::PrintToString(bytes);
                if (plain.empty() && !expected.empty()) ++additive;
                if (!plain.empty() && reads > 2) ++late;
            }
            ++reads;
        }
    }
    // Otherwise the comparison would be meaningless.
    EXPECT_GT(additive, 100);
    EXPECT_GT(late, 100);
}

TEST_F(LayeredSettingsRandomTest, AdditiveSectionsAreFoundAfterManyOtherSections) {
    std::string text;
    for (int i = 0; i < 2000; ++i) text += "[Section " + std::to_string(i) + "]\r\nk=1\r\n";
    Write(text + "[A+]\r\nk=last\r\n");
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L" last");
}

TEST_F(LayeredSettingsRandomTest, AdditiveSectionsAreReadWhenNoNamesCouldBeRead) {
    Write("");
    const LayeredSettings layered(path_);
    Write("[A+]\r\nk=late\r\n");
    EXPECT_EQ(layered.GetValue(L"A", L"k"), L" late");
}

}  // namespace
}  // namespace tarn
