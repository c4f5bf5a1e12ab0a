#include "tools/setup/msi_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/setup/msi_plan_fixture.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;

TEST(MsiTables, ConditionTheDefaultsAndAdmitTheFolderOnTheCommandLine) {
    MsiPlan plan = ViewerPlan();
    plan.values = AssociationValues(plan.product, {{".abc", "Text", ""}}, {});
    EXPECT_EQ(TableChanges(plan),
              (std::vector<std::string>{
                  "UPDATE `Component` SET `Condition` = 'NOT FOUNDDEFAULT1 OR FOUNDDEFAULT1 = "
                  "OWNDEFAULT1' WHERE `Component` = 'default1'",
                  "UPDATE `Property` SET `Value` = "
                  "'INSTALLDIR;OLDERVERSION;NEWERVERSION;FOUNDDEFAULT1' WHERE `Property` = "
                  "'SecureCustomProperties'"}));
}

TEST(MsiTables, NameTheCodePage) {
    EXPECT_EQ(CodePageTable(), "\r\n\r\n1252\t_ForceCodepage\r\n");
}

TEST(MsiTables, ContainThePackageCodeAndTheTimeOfTheNewestFile) {
    const std::string table = SummaryTable(ViewerPlan());
    EXPECT_THAT(table, HasSubstr("\r\n9\t{PACKAGE}\r\n"));
    EXPECT_THAT(table, HasSubstr("\r\n12\t2021/02/03 04:00:00\r\n"));
}

}  // namespace
}  // namespace tarn::tools
