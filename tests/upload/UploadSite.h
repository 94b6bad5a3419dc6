// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

const std::string From = "C:\\FIELD\\";
const std::string To = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\";
const std::string Index = "SRV12.IDX";

/// The two header lines of the index in `To`.
const std::string IndexHead = "\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\r\n \r\n";

/// A collection folder, a survey folder with an empty index, and a desktop that expects nothing.
struct UploadSite : testing::Test {
    UploadSite() {
        Site.LayOut();
        MakeFolders(From);
        MakeFolders(To);
        PutFile(To + Index, IndexHead);
    }

    static void DataTypeProfile(const std::vector<std::string>& lines) {
        PutLines("C:\\WINDOWS\\dv_datatype.ini", lines);
    }

    static void PutSource(const std::string& name, const std::string& content) {
        PutFile(From + name, content);
        SetTimeStamp(From + name, {2026, 3, 7, 10, 20, 30});
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace Dorvane::Testing
