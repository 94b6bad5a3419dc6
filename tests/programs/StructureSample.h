// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "programs/editors/ChoiceEdit.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

// A data structure file, those that are shipped, and a site whose profile knows data types and calibrations.
namespace Dorvane::Testing {

inline const std::string Init = "D:\\TARVEX\\INIT\\";

inline const std::string Dam =
    "DAM      Upper Dam\r\n"
    "CODE     DESCRIPTION\r\n"
    "NORTH    North abutment\r\n"
    "\r\n"
    "LEVEL    Levelling\r\n"
    "\r\n"
    "SRV01    Survey 1\r\n"
    "SRV02\r\n";

inline std::string Shipped(const std::string& name) {
    std::ifstream file(std::filesystem::path(DORVANE_SITE_FOLDER) / "samples/site/INIT" / name,
                       std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    EXPECT_FALSE(content.str().empty()) << name;
    return content.str();
}

struct StructureEdit : testing::Test {
    StructureEdit() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_datatype.ini",
                 {"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "GSI_Calib=", "[LEVEL]",
                  "Extension=LEV GSI", "LEV_Calib=STAFF", "[File Types]", "GSI_Calib=EDM"});
    }

    /// The system DAM as its files have it.
    static ChoiceEdit OneSystem() {
        PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
        PutFile(Init + "DAM.STR", Dam);
        return OpenChoices(Init);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace Dorvane::Testing
