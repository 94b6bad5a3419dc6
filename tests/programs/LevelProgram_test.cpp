// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/basGeneral.h"
#include "programs/level/LevelRun.h"
#include "tests/programs/ChildProgram.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace Testing;

const std::string Calibration = "D:\\TARVEX\\CALIB\\STAFF\\C2601\\";

void PutLevelParameters(ReductionSite& site) {
    site.PutParameters("LEVEL.PAR", {"HDIFF.RES", "HDIFF.PRO", "INVLEVEL.IVL", Calibration,
                                     Calibration + "COLLIM.CAL", Calibration + "STAFF.CAL"});
}

TEST(LevelProgram, ReducesABookThroughItsParameterFile) {
    ReductionSite site("LEVEL");
    site.AddFile("DAM.LEV",
                 "LINE FORWARD\r\nBS A 1.5 30\r\nFS *1 1.2 30\r\nrubbish\r\nBS *1 1.4 30\r\nFS B 1.1 30\r\n"
                 "LINE BACK\r\nBS B 1.0 60\r\nFS A 1.602 60\r\n");
    PutLevelParameters(site);
    const ChildEnd end = RunChild(site.Site, "LEVRED.EXE");
    EXPECT_EQ(end.ExitCode, 0) << end.Errors;
    EXPECT_EQ(end.Errors, "");
    EXPECT_EQ(FileContent(site.Folder + "HDIFF.RES"), "A                B                     0.60100\r\n");
    const std::string protocol = FileContent(site.Folder + "HDIFF.PRO");
    EXPECT_THAT(protocol, HasSubstr("DAM.LEV, line 4: no entry of a levelling book: \"rubbish\""));
    EXPECT_THAT(protocol, HasSubstr("2 lines, 1 section, 1 of them measured in both directions"));
    EXPECT_THAT(protocol, HasSubstr("-2.00"));
}

TEST(LevelProgram, ReducesPlainAndDigitalBooksTogether) {
    ReductionSite site("LEVEL");
    site.AddFile("DAM.LEV", "BS A 1.5 30\r\nFS B 1.2 30\r\n");
    site.AddFile("DIGITAL.GSI",
                 "410001+?......1\r\n110002+0000000B 32...8+03000000 331.08+00150000\r\n"
                 "110003+0000000C 32...8+03000000 332.08+00100000\r\n");
    PutLevelParameters(site);
    EXPECT_EQ(RunChild(site.Site, "LEVRED.EXE").ExitCode, 0);
    EXPECT_THAT(FileLines(site.Folder + "HDIFF.RES"),
                ElementsAre("A                B                     0.30000",
                            "B                C                     0.50000"));
}

TEST(LevelProgram, TakesTheCalibrationsAndTheInvertedPoints) {
    ReductionSite site("LEVEL");
    site.AddFile("DAM.LEV", "BS A 1.5 40\r\nFS ROOF 2.0 20\r\n");
    PutLines(Calibration + "COLLIM.CAL", {"; two-peg test", "COLLIMATION 0.1 mm/m"});
    PutLines(Calibration + "STAFF.CAL", {"SCALE 1.0001"});
    PutLines(site.Folder + "INVLEVEL.IVL", {"roof ; in the gallery"});
    PutLevelParameters(site);
    EXPECT_EQ(RunChild(site.Site, "LEVRED.EXE").ExitCode, 0);
    // (1.50015 - 0.004) + (2.0002 + 0.002)
    EXPECT_THAT(FileLines(site.Folder + "HDIFF.RES"),
                ElementsAre("A                ROOF                  3.49835"));
}

TEST(LevelProgram, FailsWithoutAResult) {
    ReductionSite site("LEVEL");
    site.AddFile("DAM.LEV", "nothing\r\n");
    PutLevelParameters(site);
    const ChildEnd end = RunChild(site.Site, "LEVRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("nothing could be reduced"));
    EXPECT_FALSE(FileExists(site.Folder + "HDIFF.RES"));
    EXPECT_FALSE(FileExists(site.Folder + "HDIFF.PRO"));
    EXPECT_THAT(FileContent(site.Folder + "HDIFF.ERR"), HasSubstr("line 1: no entry of a levelling book"));
}

TEST(LevelProgram, FailsWithoutAParameterFile) {
    ReductionSite site("LEVEL");
    const ChildEnd end = RunChild(site.Site, "LEVRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("LEVEL.PAR"));
}

TEST(ReadStaffCorrection, NeedsNoneOfItsFiles) {
    ReductionSite site("LEVEL");
    std::vector<std::string> errors;
    const StaffCorrection correction = ReadStaffCorrection("D:\\A.CAL", "D:\\B.CAL", "D:\\C.IVL", errors);
    EXPECT_EQ(correction.Scale, 1);
    EXPECT_EQ(correction.Collimation, 0);
    EXPECT_THAT(correction.Inverted, IsEmpty());
    EXPECT_THAT(errors, IsEmpty());
}

TEST(ReadStaffCorrection, NamesAnEntryWithoutANumber) {
    ReductionSite site("LEVEL");
    PutLines("D:\\A.CAL", {"COLLIMATION none"});
    std::vector<std::string> errors;
    EXPECT_EQ(ReadStaffCorrection("D:\\A.CAL", "D:\\B.CAL", "", errors).Collimation, 0);
    EXPECT_THAT(errors, ElementsAre("no number behind COLLIMATION in D:\\A.CAL"));
}

}  // namespace
}  // namespace Dorvane
