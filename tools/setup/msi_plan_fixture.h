#pragma once

#include <chrono>

#include "tools/setup/msi_plan.h"

namespace tarn::tools {

/// A file of one byte, written on 3 February 2021.
inline PackageFile PackageFileAt(const char* path) {
    PackageFile file;
    file.path = path;
    file.size = 1;
    file.time = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(
        std::chrono::sys_days(std::chrono::year(2021) / 2 / 3) + std::chrono::hours(4)));
    return file;
}

/// A small product for the tests of MSIs.
inline MsiPlan ViewerPlan() {
    MsiPlan plan;
    plan.product.name = "Viewer";
    plan.product.fileName = "Viewer";
    plan.product.version = "2.1";
    plan.product.number = {2, 1, 0, 0};
    plan.product.vendor = "Acme";
    plan.product.id = "Acme.Viewer";
    plan.product.executable = "viewer.exe";
    plan.content.files = {PackageFileAt("lib/a.jar"), PackageFileAt("viewer.exe"),
                          PackageFileAt("viewer.ini")};
    plan.content.folders = {"lib"};
    plan.codes = {"{UPGRADE}", "{PRODUCT}", "{PACKAGE}"};
    return plan;
}

}  // namespace tarn::tools
