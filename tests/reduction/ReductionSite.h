// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Drives.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\";
const std::string Index = "SRV12.IDX";
const std::string IndexHead = "\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\r\n \r\n";
const std::string IndexLine = "DAY1     LEV       DAY1                3/7/2026\r\n";

/// A survey folder, still empty, and a desktop that expects nothing.
struct ReductionSite : testing::Test {
    ReductionSite() {
        Site.LayOut();
        MakeFolders(Folder);
    }

    static void DataTypeProfile(const std::vector<std::string>& lines) {
        PutLines("C:\\WINDOWS\\dv_datatype.ini", lines);
    }

    /// A file of the survey folder, stamped at 3/7/2026 10:20 and so many seconds.
    static void Put(const std::string& name, const std::string& content, int second = 30) {
        PutFile(Folder + name, content);
        SetTimeStamp(Folder + name, {2026, 3, 7, 10, 20, second});
    }

    static bool Tells(const Message& message, const std::string& text) {
        return message.Text.find(text) != std::string::npos;
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace Dorvane::Testing
