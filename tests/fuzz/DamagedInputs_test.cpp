// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "krenn/Krenn.h"
#include "programs/level/LevelRun.h"
#include "programs/total/TotalRun.h"
#include "tests/fuzz/Damage.h"
#include "tests/support/TestSite.h"

// The outside reductions and the adjustment package take any file: they read what can be read, say what
// cannot, and come to an end.
namespace Dorvane {

using namespace Testing;

namespace {

const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\";

const std::string Book =
    "*410001+0000000000000021 42....+000000000000BP04 43....+0000000000001538 \r\n"
    "*110002+000000000000BP03 21.322+0000000016901313 22.322+0000000009955914 31..00+0000000000029462 "
    "87..10+0000000000001565 \r\n"
    "*110003+000000000000BP03 21.322+0000000036901579 22.322+0000000030043928 31..00+0000000000029462 "
    "87..10+0000000000001565 \r\n";

const std::string Network =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n\r\n  PROJECT = p\r\n     TASK = t\r\n     DATE = "
    "d\r\n\r\n"
    "LISTING = STATS\r\n\r\nTheodolite Stations\r\nA\r\n\r\nB\r\n\r\nEND\r\nObject "
    "Points\r\nC\r\n\r\nEND\r\nDistances \r\n"
    "A         B             100.00000   0.00200\r\nA         C              80.00000   0.00200\r\n"
    "B         C              70.00000   0.00200\r\nEND\r\nHeight differences\r\nEND\r\nObservations\r\n"
    "A         B           0.00000  100.00000 0.00100 0.00100\r\nA         C          48.00000  100.00000 "
    "0.00100 "
    "0.00100\r\nB         A         200.00000  100.00000 0.00100 0.00100\r\nEND\r\nControl Information\r\n"
    "Fixed Coordinates\r\nEND\r\nRelative error point pairs\r\nEND\r\n";

}  // namespace

TEST(DamagedBook, TheTotalReductionComesToAnEnd) {
    TestSite site;
    site.LayOut();
    PatientDesktop desktop;
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Param_path=C:\\TARVEX\\PARAM\\"});
    PutLines("C:\\TARVEX\\PARAM\\TOTAL.PAR", {Survey, Survey + "SRV1.IDX", Survey + "TOTAL.RES"});
    PutLines(Survey + "SRV1.IDX", {"\\x", " ", "BOOK     GSI       BOOK"});
    for (const std::string& copy : DamagedCopies(Book)) {
        PutFile(Survey + "BOOK.GSI", copy);
        RunBookReduction(TotalProgram);
        EXPECT_EQ(FileContent(Survey + "BOOK.GSI"), copy);
        // What it had to say stands in one file: beside a result in the protocol, else in the file of errors.
        const bool reduced = FileExists(Survey + "TOTAL.RES");
        EXPECT_FALSE(FileContent(Survey + (reduced ? "TOTAL.PRO" : "TOTAL.ERR")).empty());
        EXPECT_FALSE(FileExists(Survey + (reduced ? "TOTAL.ERR" : "TOTAL.PRO")));
    }
}

TEST(DamagedBook, TheLevellingReductionComesToAnEnd) {
    TestSite site;
    site.LayOut();
    PatientDesktop desktop;
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Param_path=C:\\TARVEX\\PARAM\\"});
    PutLines(
        "C:\\TARVEX\\PARAM\\LEVEL.PAR",
        {Survey, Survey + "SRV1.IDX", Survey + "LEVEL.RES", Survey + "LEVEL.PRO", Survey + "INVLEVEL.IVL",
         "D:\\TARVEX\\CALIB\\X\\", "D:\\TARVEX\\CALIB\\X\\A", "D:\\TARVEX\\CALIB\\X\\B"});
    PutLines(Survey + "SRV1.IDX", {"\\x", " ", "BOOK     LEV       BOOK"});
    for (const std::string& copy : DamagedCopies(Book)) {
        PutFile(Survey + "BOOK.LEV", copy);
        RunLevelReduction();
        EXPECT_EQ(FileContent(Survey + "BOOK.LEV"), copy);
    }
}

TEST(DamagedNetwork, ThePackageAnswersWithANumberAndNeverAHalfListing) {
    TestSite site;
    int good = 0;
    int failed = 0;
    for (const std::string& copy : DamagedCopies(Network)) {
        PutFile("D:\\A.INP", copy);
        std::string path = Drives::HostPath("D:\\A.INP");
        start(path.data());
        const std::int16_t result = go(1);
        stop();
        (result == 0 ? good : failed) += 1;
        const std::string listing = FileContent("D:\\A.OUT");
        const bool hasResults = listing.find("\nFinal results") != std::string::npos;
        EXPECT_EQ(hasResults, result == 0);
        EXPECT_EQ(FileContent("D:\\A.INP"), copy);
    }
    EXPECT_GT(good, 0);
    EXPECT_GT(failed, 0);
}

}  // namespace Dorvane
