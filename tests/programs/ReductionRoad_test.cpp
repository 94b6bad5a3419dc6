// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "reduction/ReductionEnd.h"
#include "reduction/ReductionRun.h"
#include "tests/programs/ChildProgram.h"
#include "tests/support/ScriptedDesktop.h"

// The shipped reduction programs behind the shipped profile, as a tab of the reduction screen runs them.
namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;
using namespace Testing;

struct Kind {
    const char* Type;
    const char* Book;  // a field file of the type
    const char* Program;
    const char* Base;  // of the names of what it leaves
    const char* Content;
};

constexpr const char* TotalBook =
    "410001+00000021 42....+000000P1 43....+00001500 \r\n"
    "110002+000000P2 21.322+10000100 22.322+10000200 31..00+00050000 87..10+00001500 \r\n"
    "110003+000000P2 21.322+29999900 22.322+30000200 31..00+00050000 87..10+00001500 \r\n";

/// Prints a kind by its name, where a test fails.
void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.Type;
}

class ShippedReduction : public testing::TestWithParam<Kind> {
  protected:
    ShippedReduction() : Site(GetParam().Type) {
        std::ifstream profile(std::string(DORVANE_SITE_FOLDER) + "/system/dv_datatype.ini", std::ios::binary);
        std::ostringstream content;
        content << profile.rdbuf();
        PutFile("C:\\WINDOWS\\dv_datatype.ini", content.str());
        MakeFolders("P:\\DORVANE\\Programs\\");
        const std::string program = GetParam().Program;
        std::filesystem::copy_file(DORVANE_PROGRAMS_FOLDER + program,
                                   Drives::HostPath("P:\\DORVANE\\Programs\\" + program));
        PutFile("P:\\DORVANE\\samples\\temp\\HEIGHTS.DAT", "heights\r\n");
        setenv("DORVANE_DRIVES", Site.Site.HostFolder().c_str(), 1);
        Desktop.RunsPrograms = true;
    }
    ~ShippedReduction() override { unsetenv("DORVANE_DRIVES"); }

    ReduceTab& Reduced() {
        EXPECT_TRUE(SetupReduceTabs(Site.Folder, State));
        EXPECT_TRUE(RunReduction(State, 1));
        return State.Tabs[1];
    }
    static std::string Left(const std::string& extension) { return GetParam().Base + extension; }

    ReductionSite Site;
    ScriptedDesktop Desktop;
    ReduceState State;
};

INSTANTIATE_TEST_SUITE_P(EachKind, ShippedReduction,
                         testing::Values(Kind{"TOTAL", "DAM.GSI", "TOTRED.EXE", "TOTAL", TotalBook},
                                         Kind{"ANGLE", "DAM.GSI", "ANGRED.EXE", "ANGLE", TotalBook},
                                         Kind{"DIST", "DAM.GSI", "DISTRED.EXE", "DIST", TotalBook},
                                         Kind{"LEVEL", "DAM.LEV", "LEVRED.EXE", "HDIFF",
                                              "BS A 1.5 30\r\nFS B 1.2 30\r\n"}),
                         [](const auto& kind) { return std::string(kind.param.Type); });

TEST_P(ShippedReduction, ShowsAResultWithItsProtocol) {
    Site.AddFile(GetParam().Book, GetParam().Content);
    const ReduceTab& tab = Reduced();
    EXPECT_EQ(tab.Reduction.Picture, (StatePicture{"Y.ICO", "1"}));
    EXPECT_EQ(tab.Reduction.ResultFiles, (List1<std::string>{Left(".RES"), Left(".PRO")}));
    EXPECT_FALSE(FileExists(Site.Folder + Left(".ERR")));
    EXPECT_EQ(ReductionStatus(tab), "2 result files, up to date");
    TellReductionEnd(State, 1);
    EXPECT_TRUE(Desktop.Shown.empty());
}

TEST_P(ShippedReduction, ShowsNoResultsAndTellsWhyWhereNothingCouldBeReduced) {
    Site.AddFile(GetParam().Book, "this is no field book\r\n");
    PutFile(Site.Folder + Left(".RES"), "old\r\n");
    PutFile(Site.Folder + Left(".PRO"), "old\r\n");
    const ReduceTab& tab = Reduced();
    EXPECT_EQ(tab.Reduction.Picture, (StatePicture{"X.ICO", "0"}));
    EXPECT_FALSE(FileExists(Site.Folder + Left(".RES")));
    EXPECT_FALSE(FileExists(Site.Folder + Left(".PRO")));
    EXPECT_EQ(ReductionStatus(tab), "The last reduction left no results, see " + Left(".ERR"));
    Desktop.ExpectMessageTitled("No Reduction Results");
    TellReductionEnd(State, 1);
    const std::string& told = Desktop.Shown.at(0).Text;
    EXPECT_THAT(told, HasSubstr(std::string(GetParam().Program) + " has left no results in " + Site.Folder));
    EXPECT_THAT(told, HasSubstr("nothing could be reduced, there is no result"));
    EXPECT_THAT(told, HasSubstr(std::string(GetParam().Book) + ", line 1: "));
    EXPECT_THAT(told, HasSubstr("All of it stands in " + Site.Folder + Left(".ERR")));
    EXPECT_THAT(FileContent(Site.Folder + Left(".ERR")), HasSubstr("Unreadable lines (1)"));
}

TEST_P(ShippedReduction, ForgetsTheErrorsOfTheRunBefore) {
    Site.AddFile(GetParam().Book, "this is no field book\r\n");
    Reduced();
    PutFile(Site.Folder + GetParam().Book, GetParam().Content);
    const ReduceTab& tab = Reduced();
    EXPECT_EQ(tab.Reduction.Picture.Tag, "1");
    EXPECT_FALSE(FileExists(Site.Folder + Left(".ERR")));
    EXPECT_EQ(ReductionStatus(tab), "2 result files, up to date");
}

TEST_P(ShippedReduction, TellsTheErrorsBesideAResult) {
    Site.AddFile("GONE" + std::string(GetParam().Book).substr(3), "");
    Site.AddFile(GetParam().Book, GetParam().Content);
    Drives::DeleteFile(Site.Folder + "GONE" + std::string(GetParam().Book).substr(3));
    const ReduceTab& tab = Reduced();
    EXPECT_EQ(tab.Reduction.Picture.Tag, "1");
    EXPECT_EQ(ReductionStatus(tab), "2 result files, up to date, with errors, see " + Left(".ERR"));
    Desktop.ExpectMessageTitled("Reduction Errors");
    TellReductionEnd(State, 1);
    EXPECT_THAT(Desktop.Shown.at(0).Text, HasSubstr("cannot be read"));
}

}  // namespace
}  // namespace Dorvane
