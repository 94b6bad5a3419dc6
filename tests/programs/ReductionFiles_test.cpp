// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/fieldbook/ReductionFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "programs/fieldbook/ProtocolText.h"
#include "tests/programs/ChildProgram.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using namespace Testing;

int NumberRaised(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(ReadReductionFiles, ReadsTheParameterFile) {
    ReductionSite site("TOTAL");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    const ReductionFiles files = ReadReductionFiles("TOTAL.PAR", 3);
    EXPECT_EQ(files.Folder(), site.Folder);
    EXPECT_EQ(files.Index(), site.Folder + "SRV01.IDX");
    EXPECT_EQ(files.Line(3), site.Folder + "TOTAL.RES");
    EXPECT_EQ(files.Line(4), "");
}

TEST(ReadReductionFiles, RaisesWhatIsMissing) {
    ReductionSite site("TOTAL");
    EXPECT_EQ(NumberRaised([] { ReadReductionFiles("TOTAL.PAR", 3); }), FileNotFound);
    site.PutParameters("TOTAL.PAR", {});
    EXPECT_EQ(NumberRaised([] { ReadReductionFiles("TOTAL.PAR", 3); }), InputPastEnd);
    PutLines("C:\\TARVEX\\PARAM\\TOTAL.PAR", {site.Folder, "", "X"});
    EXPECT_EQ(NumberRaised([] { ReadReductionFiles("TOTAL.PAR", 3); }), InputPastEnd);
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Param_path="});
    EXPECT_EQ(NumberRaised([] { ReadReductionFiles("TOTAL.PAR", 3); }), PathNotFound);
}

TEST(ListFieldFiles, GivesTheFilesOfTheExtensionInTheOrderOfTheIndexEachOnce) {
    ReductionSite site("TOTAL");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    for (const char* name : {"B.GSI", "NOTE.TXT", "A.GSI", "B.GSI", "C.LEV"})
        site.AddFile(name, "");
    const ReductionFiles files = ReadReductionFiles("TOTAL.PAR", 3);
    EXPECT_THAT(ListFieldFiles(files, {"GSI"}), ElementsAre(site.Folder + "B.GSI", site.Folder + "A.GSI"));
    EXPECT_THAT(ListFieldFiles(files, {"LEV", "GSI"}),
                ElementsAre(site.Folder + "B.GSI", site.Folder + "A.GSI", site.Folder + "C.LEV"));
}

TEST(ListFieldFiles, RaisesAMissingAndACutIndex) {
    ReductionSite site("TOTAL");
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    const ReductionFiles files = ReadReductionFiles("TOTAL.PAR", 3);
    PutFile(site.Folder + "SRV01.IDX", "\\TARVEX\r\n");
    EXPECT_EQ(NumberRaised([&] { ListFieldFiles(files, {"GSI"}); }), InputPastEnd);
    ReductionFiles missing = files;
    missing.Lines[1] = site.Folder + "SRV02.IDX";
    EXPECT_EQ(NumberRaised([&] { ListFieldFiles(missing, {"GSI"}); }), FileNotFound);
}

TEST(ProtocolPath, LiesBesideTheResultFile) {
    EXPECT_EQ(ProtocolPath("D:\\A\\TOTAL.RES"), "D:\\A\\TOTAL.PRO");
    EXPECT_EQ(ProtocolPath("D:\\A.B\\TOTAL"), "D:\\A.B\\TOTAL.PRO");
    EXPECT_EQ(ErrorPath("D:\\A\\TOTAL.RES"), "D:\\A\\TOTAL.ERR");
}

/// What a run has to write, into the survey folder of a site.
struct OutputSite : ReductionSite {
    OutputSite() : ReductionSite("TOTAL") {
        Output.ResultPath = Folder + "TOTAL.RES";
        Output.ProtocolPath = Folder + "TOTAL.PRO";
        Output.Protocol = [](const std::vector<std::string>& errors) {
            return std::vector<std::string>{"protocol", std::to_string(errors.size())};
        };
    }
    std::vector<std::string> Written() const {
        std::vector<std::string> names = AllFiles(Folder);
        std::erase(names, "SRV01.IDX");
        return names;
    }
    RunOutput Output;
    std::vector<std::string> Errors;
};

TEST(WriteRunOutput, WritesResultAndProtocol) {
    OutputSite site;
    PutFile(site.Folder + "TOTAL.ERR", "of the run before");
    site.Output.Result = {"one", "two"};
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_THAT(site.Written(), ElementsAre("TOTAL.PRO", "TOTAL.RES"));
    EXPECT_EQ(FileContent(site.Output.ResultPath), "one\r\ntwo\r\n");
    EXPECT_EQ(FileContent(site.Output.ProtocolPath), "protocol\r\n0\r\n");
    EXPECT_TRUE(site.Errors.empty());
}

TEST(WriteRunOutput, LeavesTheErrorFileAloneWithoutAResult) {
    OutputSite site;
    PutFile(site.Output.ResultPath, "old");
    PutFile(site.Output.ProtocolPath, "old");
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_THAT(site.Errors, ElementsAre("nothing could be reduced, there is no result"));
    EXPECT_THAT(site.Written(), ElementsAre("TOTAL.ERR"));
    EXPECT_EQ(FileContent(site.Folder + "TOTAL.ERR"),
              "nothing could be reduced, there is no result\r\n\r\nprotocol\r\n1\r\n");
}

TEST(WriteRunOutput, KeepsTheReasonThatWasTold) {
    OutputSite site;
    site.Errors = {"no book"};
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_THAT(site.Errors, ElementsAre("no book"));
}

TEST(WriteRunOutput, NamesTheFirstFiveUnreadableLinesInTheErrorFile) {
    OutputSite site;
    for (long line = 1; line <= 5; ++line)
        site.Output.Unreadable.push_back({"A.GSI", line, "rubbish"});
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_EQ(FileLines(site.Folder + "TOTAL.ERR").at(5), "A.GSI, line 5: rubbish");
    EXPECT_EQ(FileLines(site.Folder + "TOTAL.ERR").at(6), "");
    site.Output.Unreadable.push_back({"A.GSI", 6, "rubbish"});
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_EQ(FileLines(site.Folder + "TOTAL.ERR").at(6), "and 1 line more that cannot be read");
}

TEST(WriteRunOutput, TellsTheErrorsBesideAResultAndWhereTheProtocolIs) {
    OutputSite site;
    site.Output.Result = {"one"};
    site.Errors = {"a book is missing"};
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_THAT(site.Written(), ElementsAre("TOTAL.ERR", "TOTAL.PRO", "TOTAL.RES"));
    EXPECT_THAT(FileLines(site.Folder + "TOTAL.ERR"),
                ElementsAre("a book is missing", "", "The protocol is " + site.Output.ProtocolPath));
}

TEST(WriteRunOutput, LeavesNoProtocolBesideAResultThatCannotBeWritten) {
    OutputSite site;
    site.Output.Result = {"one"};
    MakeFolders(site.Output.ResultPath + "\\");
    PutFile(site.Output.ProtocolPath, "old");
    WriteRunOutput(site.Output, site.Errors);
    EXPECT_THAT(site.Errors, ElementsAre(testing::HasSubstr("TOTAL.RES cannot be written")));
    EXPECT_THAT(site.Written(), ElementsAre("TOTAL.ERR"));
}

TEST(Fixed, FillsItsFieldAndShowsAHyphenForNothing) {
    EXPECT_EQ(Fixed(1.23456, 2, 7), "   1.23");
    EXPECT_EQ(Fixed(-0.0001, 2, 7), "   0.00");
    EXPECT_EQ(Fixed(1234567.8, 1, 4), "1234567.8");
    EXPECT_EQ(Fixed(std::optional<double>(), 2, 7), "      -");
}

TEST(Excerpt, ShowsControlCharactersAsPointsAndIsCut) {
    EXPECT_EQ(Excerpt(std::string("a\0b\tc\x7F", 6)), "a.b.c.");
    EXPECT_EQ(Excerpt(std::string(100, 'x')), std::string(60, 'x') + " ...");
}

TEST(RemarkLines, AlignTheLineNumbers) {
    EXPECT_THAT(
        RemarkLines({{"A.GSI", 7, "seven"}, {"A.GSI", 123, "more"}, {"A.GSI", 0, "all"}, {"", 0, "none"}}),
        ElementsAre("  A.GSI, line   7: seven", "  A.GSI, line 123: more", "  A.GSI: all", "  none"));
}

TEST(Spread, NeedsFreedom) {
    EXPECT_FALSE(Spread(1, 0));
    EXPECT_FALSE(Spread(1, -1));
    EXPECT_DOUBLE_EQ(*Spread(8, 2), 2);
}

}  // namespace
}  // namespace Dorvane
