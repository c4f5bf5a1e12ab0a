#include "tools/setup/msi_limits.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/setup/msi_plan_fixture.h"

namespace tarn::tools {
namespace {

TEST(CheckMsi, RefusesWhatDoesNotFit) {
    MsiPlan plan = ViewerPlan();
    EXPECT_NO_THROW(CheckMsi(plan.product, plan.content, plan.values));
    plan.content.size = std::uint64_t{3} << 30;
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = ViewerPlan();
    plan.content.files.resize(20'000, PackageFileAt("a"));
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = ViewerPlan();
    plan.product.fileName = std::string(128, 'a');
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = ViewerPlan();
    plan.product.number = {2026, 1, 0, 0};
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
}

TEST(CheckMsi, RefusesCharactersOutsideTheCodePage) {
    MsiPlan plan = ViewerPlan();
    plan.content.files.push_back(PackageFileAt("\xC3\xA4 \xE2\x82\xAC \xC5\x93.txt"));
    EXPECT_NO_THROW(CheckMsi(plan.product, plan.content, plan.values));
    plan.content.files.push_back(PackageFileAt("a \xC5\x82.txt"));
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = ViewerPlan();
    plan.values = AssociationValues(plan.product, {{".abc", "\xE4\xB8\xAD", ""}}, {});
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
}

}  // namespace
}  // namespace tarn::tools
