#include "tools/setup/nsis_text.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(NsisString, HasNoMeaningForNsis) {
    EXPECT_EQ(NsisString("plain `text' 100% C:\\n"), "plain `text' 100% C:\\n");
    EXPECT_EQ(NsisString("$INSTDIR"), "${U+24}${U+24}INSTDIR");
    EXPECT_EQ(NsisString("${NAME}"), "${U+24}${U+24}{NAME}");
    EXPECT_EQ(NsisString("$%PATH%"), "${U+24}${U+24}%PATH%");
    EXPECT_EQ(NsisString("a \"b\""), "a $\\\"b$\\\"");
    EXPECT_EQ(NsisString("a\r\n\tb"), "a$\\r$\\n$\\tb");
}

TEST(NsisLiteral, IsTheTextForMakensisItself) {
    EXPECT_EQ(NsisLiteral("a$b ${c}"), "a${U+24}b ${U+24}{c}");
}

TEST(NsisPath, HasBackslashes) {
    EXPECT_EQ(NsisPath("lib/a$.jar"), "lib\\a${U+24}${U+24}.jar");
}

TEST(NsisLanguages, BeginWithEnglishAndDefineEachTextInEachLanguage) {
    const std::string script = NsisLanguages();
    EXPECT_TRUE(script.starts_with("!insertmacro MUI_LANGUAGE \"English\"\n"));
    const auto count = [&](const std::string& word) {
        std::size_t found = 0;
        for (std::size_t at = script.find(word); at != std::string::npos;
             at = script.find(word, at + 1)) {
            ++found;
        }
        return found;
    };
    const std::size_t languages = count("MUI_LANGUAGE");
    EXPECT_GT(languages, 20U);
    for (const char* const text :
         {"LangString ApplicationRuns ", "LangString NewerInstalled ", "LangString PathTooLong ",
          "LangString RemoveSettings ", "LangString ConfirmRemoval "}) {
        EXPECT_EQ(count(text), languages) << text;
    }
    EXPECT_NE(script.find("LangString ApplicationRuns ${LANG_GERMAN} \"$(^Name) wird"),
              std::string::npos);
}

}  // namespace
}  // namespace tarn::tools
