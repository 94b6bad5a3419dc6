// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/basGeneral.h"
#include "tests/support/Reports.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// A calibration structure of two types and three epochs, of which STAFF has two registered, with their
/// folders, and a desktop that expects nothing.
struct CalibSite : testing::Test {
    static constexpr const char* Structure = "D:\\TARVEX\\INIT\\CALIB.STR";
    static constexpr const char* Registry = "D:\\TARVEX\\INIT\\CALIB.PTH";

    CalibSite() {
        Site.LayOut();
        PutFile(Structure,
                "CALIB    Calibrations\r\n"
                "CODE     DESCRIPTION\r\n"
                "STAFF    Levels and staffs\r\n"
                "EDM      Distance meters\r\n"
                "\r\n"
                "C2601    January 2026\r\n"
                "C2607    July 2026\r\n"
                "C2701    January 2027\r\n");
        PutFile(Registry,
                " *       CALIB     STAFF     C2601\r\n"
                " *       CALIB     STAFF     C2607\r\n");
        MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2601\\");
        MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2607\\");
    }

    static bool IsFolder(std::string path) { return FolderExists(path); }

    /// The report of a folder or file that may not be made or changed.
    void ExpectAccessError(const std::string& path, const std::string& procedure) {
        ExpectReport(Desktop, 75, "Path/File access error: " + Drives::HostPath(path), procedure);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

/// A structure of 16 types and 16 epochs.
inline void PutFullStructure() {
    std::vector<std::string> lines{"CALIB    Calibrations", "CODE     DESCRIPTION"};
    for (int i = 1; i <= 16; ++i)
        lines.push_back("TYPE" + std::to_string(i));
    lines.emplace_back();
    for (int i = 1; i <= 16; ++i)
        lines.push_back("EPOCH" + std::to_string(i));
    PutLines(CalibSite::Structure, lines);
}

}  // namespace Dorvane::Testing
