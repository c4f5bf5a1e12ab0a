#include "tools/setup/msi_text.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(WixText, ContainsNoVariable) {
    EXPECT_EQ(WixText("a $(x) $$ b"), "a $(var.dollar)(x) $(var.dollar)$(var.dollar) b");
}

TEST(FormattedText, TakesBracketsAndBracesLiterally) {
    EXPECT_EQ(FormattedText("a [b] {c} $d %e%"), "a [\\[]b[\\]] [\\{]c[\\}] $d %e%");
}

TEST(FormattedData, NamesTheInstallationFolder) {
    RegistryValue value;
    value.data = std::string("\"") + kInstallFolderMark + "\\a [b].exe\" \"%1\"";
    EXPECT_EQ(FormattedData(value), "\"[INSTALLDIR]a [\\[]b[\\]].exe\" \"%1\"");
}

}  // namespace
}  // namespace tarn::tools
