// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/basDatabase.h"
#include "datatree/basTree.h"
#include "programs/sitecheck/SiteCheck.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"
#include "upload/SurveyIndex.h"

namespace Dorvane::Testing {

/// A site with two surveys of one location and a book in one of them, of which nothing is wrong.
struct CheckedSite : testing::Test {
    CheckedSite() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_datatype.ini",
                 {"[Data Types]", "Epochs=LEVEL ANGLE", "[LEVEL]", "Extension=LEV RES", "LEV_SrvIdx=TRUE"});
        PutLines(Init + "CHOICES.SYS", {"DAM      1 The dam"});
        PutLines(Init + "DAM.STR",
                 {"DAM      The dam", "CODE     DESCRIPTION", "NORTH    Upper wall", "", "LEVEL    Levelling",
                  "ANGLE    Angles", "", "SRV01    Spring", "SRV02    Autumn"});
        PutLines(Init + "CALIB.STR",
                 {"CALIB    Calibrations", "CODE     DESCRIPTION", "EDM      Meters", "", "CAL01    Spring"});
        SurveyServices services;
        services.WriteSrvNew = WriteSrvNew;
        services.WriteCoordNew = WriteLocationNew;
        services.LacksCoordFiles = LacksCoordFiles;
        TreeModel tree;
        for (const char* epoch : {"SRV01", "SRV02"}) {
            SurveyAnswer survey;
            survey.Root = "DAM";
            survey.Location = "NORTH";
            survey.TypeMulti = "LEVEL";
            survey.Epoch = epoch;
            survey.NewHistory = "First";
            AddSurvey(survey, services, tree);
        }
        MakeFolders("D:\\TARVEX\\CALIB\\EDM\\CAL01\\");
        UpdateCalibPthFileAdd("CALIB", "EDM", "CAL01");
        PutFile(Epoch + "BOOK.LEV", "book");
        UpdateSrvIdx(Epoch, "SRV01.IDX", "BOOK", "LEV", "BOOK", "11/20/2026");
    }

    static std::vector<Finding> Findings() {
        SiteReport report;
        CheckSite(report);
        return report.Findings;
    }
    /// What is found, a line each.
    static std::vector<std::string> Found() {
        std::vector<std::string> lines;
        for (const Finding& finding : Findings())
            lines.push_back(LineOf(finding));
        return lines;
    }

    const std::string Init = "D:\\TARVEX\\INIT\\";
    const std::string Epoch = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\";
    const std::string Database = "D:\\TARVEX\\COORD\\NORTH\\";
    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace Dorvane::Testing
