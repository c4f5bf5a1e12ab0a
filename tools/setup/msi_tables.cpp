#include "tools/setup/msi_tables.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "tools/setup/msi_defaults.h"

namespace tarn::tools {
namespace {

constexpr char kLineEnd[] = "\r\n";

// "2026/01/31 13:05:00", in UTC.
std::string TimeText(std::filesystem::file_time_type time) {
    using std::chrono::days;
    const auto seconds =
        std::chrono::floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(time));
    const auto day = std::chrono::floor<days>(seconds);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(seconds - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d/%02u/%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

}  // namespace

std::vector<std::string> TableChanges(const MsiPlan& plan) {
    std::vector<std::string> changes;
    std::string properties = "INSTALLDIR;OLDERVERSION;NEWERVERSION";
    for (const MsiDefault& found : MsiDefaultsOf(plan.product, plan.values)) {
        properties += ';' + found.property;
        changes.push_back("UPDATE `Component` SET `Condition` = '" + found.condition +
                          "' WHERE `Component` = '" + found.component + "'");
    }
    changes.push_back("UPDATE `Property` SET `Value` = '" + properties +
                      "' WHERE `Property` = 'SecureCustomProperties'");
    return changes;
}

std::string CodePageTable() {
    return std::string(kLineEnd) + kLineEnd + "1252\t_ForceCodepage" + kLineEnd;
}

std::string SummaryTable(const MsiPlan& plan) {
    std::filesystem::file_time_type newest = std::filesystem::file_time_type::min();
    for (const PackageFile& file : plan.content.files) newest = std::max(newest, file.time);
    const std::string time = TimeText(newest);
    std::string table;
    for (const std::string& line : {std::string("PropertyId\tValue"), std::string("i2\tl255"),
                                    std::string("_SummaryInformation\tPropertyId"),
                                    "9\t" + plan.codes.package, "12\t" + time, "13\t" + time}) {
        table += line + kLineEnd;
    }
    return table;
}

}  // namespace tarn::tools
