// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/programs/ChildProgram.h"

// The programs as the system runs them: child processes that find everything through their parameter files.
namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using namespace Testing;

const std::string Book =
    "*410001+0000000000000021 42....+00000000000000P1 43....+0000000000001500 \r\n"
    "*110002+00000000000000P2 21.322+0000000010000100 22.322+0000000010000200 31..00+0000000000050000 "
    "87..10+0000000000001500 \r\n"
    "*110003+00000000000000P2 21.322+0000000029999900 22.322+0000000030000200 31..00+0000000000050000 "
    "87..10+0000000000001500 \r\n"
    "this is no line of a field book\r\n"
    "*110004+00000000000000P3 21.322+0000000020000100 22.322+0000000010000200 31..00+0000000000040000 "
    "87..10+0000000000001500 \r\n"
    "*110005+00000000000000P3 21.322+0000000039999900 22.322+0000000030000200 31..00+0000000000040000 "
    "87..10+0000000000001500 \r\n";

TEST(TotalProgram, ReducesABookThroughItsParameterFile) {
    ReductionSite site("TOTAL");
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 0) << end.Errors;
    EXPECT_EQ(end.Errors, "");
    EXPECT_EQ(FileContent(site.Folder + "TOTAL.RES"),
              "P1               P2                 100.000000   100.000000     50.00000\r\n"
              "P1               P3                 200.000000   100.000000     40.00000\r\n");
    const std::string protocol = FileContent(site.Folder + "TOTAL.PRO");
    EXPECT_THAT(protocol, StartsWith("TOTAL STATION REDUCTION\r\n=======================\r\n"));
    EXPECT_THAT(protocol, HasSubstr("DAM.GSI, line 4: the first word is no word of 8 characters"));
    EXPECT_THAT(protocol, HasSubstr("Station P1, 1 round"));
    EXPECT_THAT(protocol, HasSubstr("1 set-up on 1 station, 4 sights, 2 station-target pairs"));
}

TEST(TotalProgram, WritesAProtocolNoWiderThanAPage) {
    ReductionSite site("TOTAL");
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    RunChild(site.Site, "TOTRED.EXE");
    for (const std::string& line : FileLines(site.Folder + "TOTAL.PRO"))
        EXPECT_LE(line.size(), 132U) << line;
}

TEST(TotalProgram, TakesSeveralBooksTogether) {
    ReductionSite site("TOTAL");
    site.AddFile("ONE.GSI", Book);
    std::string second = Book;
    for (std::size_t at = second.find("00P1 "); at != std::string::npos; at = second.find("00P1 ", at))
        second.replace(at, 5, "00P4 ");
    site.AddFile("TWO.GSI", second);
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    EXPECT_EQ(RunChild(site.Site, "TOTRED.EXE").ExitCode, 0);
    EXPECT_EQ(FileLines(site.Folder + "TOTAL.RES").size(), 4U);
}

TEST(TotalProgram, CountsABookOnceThatTheIndexListsTwice) {
    ReductionSite site("TOTAL");
    site.AddFile("DAM.GSI", Book);
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    EXPECT_EQ(RunChild(site.Site, "TOTRED.EXE").ExitCode, 0);
    EXPECT_THAT(FileContent(site.Folder + "TOTAL.PRO"), HasSubstr("1 set-up on 1 station, 4 sights"));
}

TEST(TotalProgram, FailsWithoutAParameterFile) {
    ReductionSite site("TOTAL");
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("TOTRED: "));
    EXPECT_THAT(end.Errors, HasSubstr("TOTAL.PAR"));
}

TEST(TotalProgram, FailsWhenTheIndexListsNoBook) {
    ReductionSite site("TOTAL");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    PutFile(site.Folder + "TOTAL.RES", "P1 P2 1 2 3\r\n");
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("lists no GSI file"));
    EXPECT_FALSE(FileExists(site.Folder + "TOTAL.RES")) << "an old result must not pass for a new one";
    EXPECT_FALSE(FileExists(site.Folder + "TOTAL.PRO")) << "a protocol stands beside a result alone";
    EXPECT_THAT(FileLines(site.Folder + "TOTAL.ERR").at(0), HasSubstr("lists no GSI file"));
}

TEST(TotalProgram, NamesAMissingBookAndReducesTheRest) {
    ReductionSite site("TOTAL");
    site.AddFile("GONE.GSI", Book);
    site.AddFile("DAM.GSI", Book);
    Drives::DeleteFile(site.Folder + "GONE.GSI");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("GONE.GSI cannot be read"));
    EXPECT_EQ(FileLines(site.Folder + "TOTAL.RES").size(), 2U);
    EXPECT_THAT(FileContent(site.Folder + "TOTAL.PRO"), HasSubstr("GONE.GSI cannot be read"));
    EXPECT_THAT(FileLines(site.Folder + "TOTAL.ERR"),
                ElementsAre(HasSubstr("GONE.GSI cannot be read"), HasSubstr("DAM.GSI, line 4"), "",
                            "The protocol is " + site.Folder + "TOTAL.PRO"));
}

TEST(TotalProgram, LivesThroughBinaryAndEmptyBooks) {
    ReductionSite site("TOTAL");
    std::string binary;
    for (int i = 0; i < 50000; ++i)
        binary += static_cast<char>((i * 7919 + i / 256) % 256);
    site.AddFile("BINARY.GSI", binary);
    site.AddFile("EMPTY.GSI", "");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("nothing could be reduced"));
    EXPECT_FALSE(FileExists(site.Folder + "TOTAL.RES"));
    EXPECT_FALSE(FileExists(site.Folder + "TOTAL.PRO"));
    const std::string protocol = FileContent(site.Folder + "TOTAL.ERR");
    EXPECT_THAT(protocol, HasSubstr("Unreadable lines"));
    EXPECT_THAT(protocol, Not(HasSubstr(std::string(1, '\0'))));
}

TEST(TotalProgram, SaysWhenTheResultCannotBeWritten) {
    ReductionSite site("TOTAL");
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("TOTAL.PAR", {"D:\\NOWHERE\\TOTAL.RES"});
    const ChildEnd end = RunChild(site.Site, "TOTRED.EXE");
    EXPECT_EQ(end.ExitCode, 1);
    EXPECT_THAT(end.Errors, HasSubstr("the result file D:\\NOWHERE\\TOTAL.RES cannot be written"));
    EXPECT_THAT(end.Errors, HasSubstr("the error file D:\\NOWHERE\\TOTAL.ERR cannot be written"));
}

TEST(AngleProgram, WritesAnglesAlone) {
    ReductionSite site("ANGLE");
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("ANGLE.PAR", {"ANGLE.RES", "ANGLE.PRO"});
    EXPECT_EQ(RunChild(site.Site, "ANGRED.EXE").ExitCode, 0);
    EXPECT_EQ(FileContent(site.Folder + "ANGLE.RES"),
              "P1               P2                 100.000000   100.000000\r\n"
              "P1               P3                 200.000000   100.000000\r\n");
    EXPECT_THAT(FileContent(site.Folder + "ANGLE.PRO"), StartsWith("ANGLE REDUCTION\r\n===============\r\n"));
}

TEST(DistanceProgram, WritesDistancesAlone) {
    ReductionSite site("DIST");
    site.AddFile("DAM.GSI", Book);
    site.PutParameters("DIST.PAR",
                       {"EDM.CAL", "BM.DAT", "D:\\TARVEX\\CALIB\\EDM\\none\\SCALE.CAL", "LEVRED.LST",
                        "HEIGHTS.DAT", "D:\\TARVEX\\CALIB\\EDM\\none\\EDM.CAL", "DIST.RES", "DIST.PRO",
                        "DIST.LST", "D:\\TARVEX\\CALIB\\EDM\\none\\SCALE.CAL"});
    EXPECT_EQ(RunChild(site.Site, "DISTRED.EXE").ExitCode, 0);
    EXPECT_EQ(FileContent(site.Folder + "DIST.RES"),
              "P1               P2                   50.00000\r\n"
              "P1               P3                   40.00000\r\n");
    EXPECT_THAT(FileContent(site.Folder + "DIST.PRO"),
                StartsWith("DISTANCE REDUCTION\r\n==================\r\n"));
}

}  // namespace
}  // namespace Dorvane
