// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <functional>

#include "adjustment/Banner.h"
#include "adjustment/InputHeader.h"
#include "adjustment/OutputReader.h"
#include "adjustment/basOpenInput.h"
#include "database/CoordinateRetriever.h"
#include "database/basDatabase.h"
#include "datatree/basRead.h"
#include "datatree/basTree.h"
#include "input/CoordinateFiles.h"
#include "input/ResultFiles.h"
#include "tests/fuzz/Damage.h"
#include "tests/support/TestSite.h"
#include "upload/SurveyIndex.h"

// Whatever a file holds, its reader ends in silence, a message or a report, and no other file is touched.
namespace Dorvane {

using namespace Testing;

namespace {

struct Subject {
    std::string Name;
    std::string Path;   // of the file that is damaged
    std::string Whole;  // a good one
    std::function<void()> Read;
};

const std::string Folder = "D:\\TARVEX\\INIT\\";
const std::string Work = "D:\\DATA\\";
const std::string Database = "D:\\TARVEX\\COORD\\NORTH\\";

const std::string Structure =
    "DAM      The dam\r\nheading\r\nNORTH    North side\r\nSOUTH    South side\r\n\r\nLEVEL    "
    "Levelling\r\n\r\n"
    "SRV1     First\r\nSRV2     Second\r\n";
const std::string Registry =
    " *       DAM       NORTH     LEVEL     SRV1\r\n *       DAM       SOUTH     LEVEL     SRV2\r\n";
const std::string History =
    "             DATA FILESYSTEM HISTORY\r\n\r\nSubdirectory                  Usage\r\n"
    "----------------------        ---------------------------\r\nDAM\\NORTH\\LEVEL\\SRV1\r\n"
    "    Created     01-02-26      first\r\nDAM\\SOUTH\\LEVEL\\SRV2\r\n    Deleted     01-03-26\r\n";
const std::string Angles = "ST1\r\nP1 100.5\r\nP2 200.25\r\nQUIT\r\nST2\r\nP1 50\r\nQUIT\r\n";
const std::string Listing =
    "head\r\nFinal results\r\nskipped\r\nST1\r\n r gon 0 0 12.5\r\n p m 1 2 3\r\n\r\nP1 4 5 6\r\n\r\n"
    "distance residuals\r\nST1 P1 1\r\n\r\nhorizontal direction\r\nST1 P1 2\r\n\r\nStandard deviations\r\n"
    "Standard point\r\nskipped\r\nST1 .1 .2 .3\r\n.4 .5 50.5\r\nfree\r\nP1 .1 .2 .3\r\n.4 .5 "
    "60.5\r\nfree\r\n\r\n";

std::vector<Subject> Subjects() {
    List1<double> bias{0, 0, 0, 0};
    List1<std::string> names;
    return {
        {"CHOICES.SYS", Folder + "CHOICES.SYS", "DAM      1 The dam\r\nCALIB    0 Calibration\r\n",
         [] {
             List1<ChoiceRecord> records;
             ReadChoiceFile(records, Folder, "CHOICES.SYS");
         }},
        {"STR", Folder + "DAM.STR", Structure,
         [] {
             List1<StructureRecord> records;
             records.Resize(1);
             ReadStrFile(records, 1, Folder, "DAM.STR");
             ReadCalibStrFile(records, 1, Folder, "DAM.STR");
         }},
        {"PTH", Folder + "DAM.PTH", Registry,
         [] {
             List1<PathRecord> records;
             Sorter sorter;
             ReadPthFile(records, Folder, "DAM.PTH", sorter);
             TreeModel tree;
             TarvexTreeSetup(records, records.Count(), tree);
         }},
        {"HIS", Folder + "DAM.HIS", History,
         [] {
             List1<HistoryRecord> records;
             records.Resize(1);
             ReadHisFile(records, 1, Folder, "DAM.HIS");
         }},
        {"SRV.IDX", Work + "SRV1.IDX", "\\DATA\r\n \r\nBOOK1    GSI       BOOK1               1/2/2026\r\n",
         [] {
             List1<SurveyIndexEntry> entries;
             ReadSurveyIdxFile(entries, Work, "SRV1.IDX");
         }},
        {"generic RES", Work + "TOTAL.RES", "ST1 P1 100.5 99.5 25.125\r\nST1 P2 200.5 98.5 35.125\r\n",
         [] {
             List1<ResRecord> records;
             ReadGenericRes(records, Work, "TOTAL.RES");
         }},
        {"angle RES", Work + "REDIR.RES", Angles,
         [] {
             PutFile(Work + "ZENITH.RES", Angles);
             List1<ResRecord> records;
             ReadAngleRes(records, Work, "REDIR.RES", "ZENITH.RES");
             ReadAngleRes(records, Work, "ZENITH.RES", "REDIR.RES");
         }},
        {"BDD", Work + "A.BDD",
         "free\r\nBIAS     1.0         2.0         3.0\r\nP1 1 2 3 4 5 6\r\nP2 1 2 600 4 5 6\r\n",
         [] {
             List1<ObsPoint> points;
             ReadBddFile(points, Work, "A.BDD");
         }},
        {"general file", Work + "A.TXT", "P1 1 2 3\r\nP2 1 2 3 4 5 6\r\n",
         [] {
             List1<ObsPoint> points;
             ReadGenFile(points, Work, "A.TXT");
         }},
        {"DBS", Work + "A.DBS", "01-02-26 DAM NORTH\r\nP1 0.0 0.0 0.0 1 2 3 50.5 .1 .2 .3\r\n",
         [] {
             List1<Dbs3DPoint> points;
             std::string a;
             std::string b;
             std::string c;
             ReadDbs3DFile(points, Work, "A.DBS", a, b, c);
         }},
        {"listing", Work + "A.OUT", Listing,
         [] {
             AdjustmentResults results;
             ReadOutputFile(Work, "A.OUT", results, true);
             AdjustmentResults coordinates;
             ReadOutputFile(Work, "A.OUT", coordinates, false);
         }},
        {"input header", Work + "A.INP",
         "NORL\r\n\r\n  PROJECT = p\r\n     TASK = t\r\n     DATE = d\r\n\r\nLISTING = STATS\r\n",
         [] {
             std::string a;
             std::string b;
             std::string c;
             ReadInputHeader(Work, "A.INP", a, b, c);
             PutFile(Work + "A.OUT", Listing);
             AddVarnBanner(Work + "A.INP", Work + "A.OUT");
         }},
        {"VER", Work + "A.VER",
         "[Stations]\r\nST1\r\n[Points]\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n[Height]\r\n["
         "Gyro]\r\n",
         [] {
             VersionNotes notes;
             ReadVersionFile(Work, "A.VER", notes);
         }},
        {"BIAS.STR", Folder + "BIAS.STR", "; comment\r\nNORTH 1 2 3 4\r\nSTDBIAS 0 0 0 0\r\n",
         [] {
             List1<double> values{0, 0, 0, 0};
             ReadBiasFile("NORTH", values);
         }},
        {"WORK.LST", "C:\\TARVEX\\WORK\\WORK.LST", "P1\r\nP2\r\n",
         [] {
             List1<std::string> found;
             ReadWorkListFile(found);
         }},
    };
}

class DamagedFile : public testing::TestWithParam<std::size_t> {};

}  // namespace

TEST_P(DamagedFile, EndsInSilenceAMessageOrAReportAndTouchesNoOther) {
    TestSite site;
    site.LayOut();
    PatientDesktop desktop;
    const Subject subject = Subjects()[GetParam()];
    PutFile("D:\\BYSTAND.ER", "untouched");
    for (const std::string& copy : DamagedCopies(subject.Whole)) {
        PutFile(subject.Path, copy);
        try {
            subject.Read();
        } catch (const RunTimeError& error) {
            // Raised to the click that reports it.
            EXPECT_GT(error.Number, 0);
        }
        if (subject.Name != "WORK.LST" && subject.Name != "listing" && subject.Name != "input header") {
            ASSERT_EQ(FileContent(subject.Path), copy) << subject.Name << " was changed by its reader";
        }
    }
    EXPECT_EQ(FileContent("D:\\BYSTAND.ER"), "untouched");
}

INSTANTIATE_TEST_SUITE_P(EveryReader, DamagedFile, testing::Range(std::size_t{0}, Subjects().size()));

// A database file damaged in any way is refused or read rightly; a refused update changes no byte of any
// file.
TEST(DamagedDatabase, IsNeverChangedByAnUpdateThatItRefuses) {
    TestSite site;
    site.LayOut();
    PatientDesktop desktop;
    MakeFolders(Database);
    WriteCoordNew(Database, "NORTH");
    const auto update = [](const std::string& name, double x) {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(Database, 3, name, "010226", x, 2, 3, 50.5, .1, .2, .3, 0, 0);
        retriever.Commit();
    };
    for (int i = 0; i < 5; ++i)
        update("P" + std::to_string(i), i);
    for (const char* file : {"3DIM.DAT", "3DIM.IDX", "3DIM.LST"}) {
        const std::string whole = FileContent(Database + file);
        int refused = 0;
        for (const std::string& copy : DamagedCopies(whole)) {
            const std::string data = FileContent(Database + "3DIM.DAT");
            const std::string index = FileContent(Database + "3DIM.IDX");
            const std::string list = FileContent(Database + "3DIM.LST");
            PutFile(Database + file, copy);
            try {
                update("NEW", 9);
            } catch (const RunTimeError&) {
                ++refused;
                EXPECT_EQ(FileContent(Database + file), copy);
            }
            PutFile(Database + "3DIM.DAT", data);
            PutFile(Database + "3DIM.IDX", index);
            PutFile(Database + "3DIM.LST", list);
        }
        if (std::string(file) != "3DIM.LST") {
            EXPECT_GT(refused, 0) << file;
        }
    }
}

}  // namespace Dorvane
