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
}

TEST(WriteResult, LeavesNoOldResultWhereThereIsNone) {
    ReductionSite site("TOTAL");
    const std::string path = site.Folder + "TOTAL.RES";
    PutFile(path, "old\r\n");
    std::vector<std::string> errors;
    WriteResult(path, {}, errors);
    EXPECT_FALSE(FileExists(path));
    EXPECT_THAT(errors, ElementsAre("nothing could be reduced, there is no result"));
    WriteResult(path, {"one", "two"}, errors);
    EXPECT_EQ(FileContent(path), "one\r\ntwo\r\n");
    EXPECT_EQ(errors.size(), 1U);
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
