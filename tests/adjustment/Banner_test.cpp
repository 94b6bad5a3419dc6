// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Banner.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using Testing::AllFiles;
using Testing::FileContent;
using Testing::PutFile;
using Testing::PutLines;

const std::string Banner =
    " \r\n"
    "  VV       VV       A       RRRRRRRRR    NN       NN\r\n"
    "  VV       VV      AAA      RR      RR   NNN      NN\r\n"
    "   VV     VV      AA AA     RR       RR  NNNN     NN\r\n"
    "   VV     VV      AA AA     RR      RR   NN NN    NN\r\n"
    "    VV   VV      AA   AA    RRRRRRRRR    NN  NN   NN\r\n"
    "    VV   VV      AA   AA    RR   RR      NN   NN  NN\r\n"
    "     VV VV      AAAAAAAAA   RR    RR     NN    NN NN\r\n"
    "     VV VV      AA     AA   RR     RR    NN     NNNN\r\n"
    "      VVV      AA       AA  RR      RR   NN      NNN\r\n"
    "       V       AA       AA  RR       RR  NN       NN\r\n"
    "  __________________________________________________\r\n"
    " \r\n"
    "                VARN Adjustment Output\r\n"
    "  __________________________________________________\r\n"
    " \r\n"
    "  Project  =  North Dam\r\n"
    " \r\n"
    "  Task     =  Level 2\r\n"
    " \r\n"
    "  Run Date = 11/20/2026\r\n"
    " \r\n"
    "  Run Time = 3:04:05 PM\r\n"
    "  __________________________________________________\r\n";

class VarnBanner : public testing::Test {
  protected:
    VarnBanner() {
        Desktop.Clock = {2026, 11, 20, 15, 4, 5};
        PutLines(Input,
                 {"NORL   5 R M T", "", "  PROJECT = North Dam", "     TASK = Level 2", "     DATE = D"});
    }

    int ErrorOfAdding() {
        try {
            AddVarnBanner(Input, Output);
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }

    const std::string Input = "D:\\ADJ\\NET.INP";
    const std::string Output = "D:\\ADJ\\NET.OUT";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
};

TEST_F(VarnBanner, StandsBeforeTheUnchangedListing) {
    const std::string listing = " Listing \t of the run\r\n\r\n   \r\nd\xE9j\xE0 vu\x0C\r\nlast line\r\n";
    PutFile(Output, listing);
    AddVarnBanner(Input, Output);
    EXPECT_EQ(FileContent(Output), Banner + listing);
}

TEST_F(VarnBanner, HasTenRowsOfFiftyTwoCharactersWithOneLetterToACell) {
    PutFile(Output, "");
    AddVarnBanner(Input, Output);
    const std::vector<std::string> lines = Testing::FileLines(Output);
    const std::string letters = "VARN";
    for (std::size_t row = 1; row <= 10; ++row) {
        ASSERT_EQ(lines[row].size(), 52U);
        std::string rest = lines[row];
        for (std::size_t cell = 0; cell < 4; ++cell) {
            const std::size_t start = 2 + 13 * cell;
            const std::string drawn = rest.substr(start, 11);
            EXPECT_NE(drawn.find(letters[cell]), std::string::npos) << "row " << row;
            EXPECT_EQ(drawn.find_first_not_of(std::string(" ") + letters[cell]), std::string::npos)
                << "row " << row;
            rest.replace(start, 11, 11, ' ');
        }
        EXPECT_EQ(rest, std::string(52, ' ')) << "between the cells of row " << row;
    }
}

TEST_F(VarnBanner, EndsLinesOfAnyKindInCrLf) {
    PutFile(Output, "one\ntwo\rthree");
    AddVarnBanner(Input, Output);
    EXPECT_EQ(FileContent(Output), Banner + "one\r\ntwo\r\nthree\r\n");
}

TEST_F(VarnBanner, CountsTwoLinesOfOneKeywordAsTwo) {
    PutLines(Input, {"first", "PROJECT = A", "PROJECT = B", "TASK = T"});
    PutFile(Output, "");
    AddVarnBanner(Input, Output);
    const std::vector<std::string> lines = Testing::FileLines(Output);
    EXPECT_EQ(lines[16], "  Project  =  B");
    EXPECT_EQ(lines[18], "  Task     = ");
}

TEST_F(VarnBanner, DropsTheFirstLineOfTheInput) {
    PutLines(Input, {"TASK = no", "PROJECT = P", "TASK = yes"});
    PutFile(Output, "");
    AddVarnBanner(Input, Output);
    EXPECT_EQ(Testing::FileLines(Output)[18], "  Task     =  yes");
}

TEST_F(VarnBanner, OnALongListingKeepsEveryLine) {
    std::string listing;
    for (int i = 0; i < 50000; ++i)
        listing += "line " + std::to_string(i) + "\r\n";
    listing += std::string(1000000, 'x') + "\r\n";
    PutFile(Output, listing);
    AddVarnBanner(Input, Output);
    EXPECT_EQ(FileContent(Output), Banner + listing);
}

TEST_F(VarnBanner, LeavesTheListingWhenTheInputHasNoProjectAndTask) {
    PutLines(Input, {"NORL", "", "PROJECT = P", "Theodolite Stations", "END"});
    PutFile(Output, "the listing\r\n");
    EXPECT_EQ(ErrorOfAdding(), InputPastEnd);
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
}

TEST_F(VarnBanner, LeavesTheListingWhenThereIsNoInput) {
    Drives::DeleteFile(Input);
    PutFile(Output, "the listing\r\n");
    EXPECT_EQ(ErrorOfAdding(), FileNotFound);
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
}

TEST_F(VarnBanner, MakesNoListingWhereThereIsNone) {
    EXPECT_EQ(ErrorOfAdding(), FileNotFound);
    EXPECT_EQ(AllFiles("D:\\"), std::vector<std::string>{"ADJ\\NET.INP"});
}

TEST_F(VarnBanner, LeavesTheListingOnAFullDisk) {
    Testing::OnSmallDisk("D:\\", 512, [&] {
        PutLines(Input, {"NORL", "PROJECT = P", "TASK = T"});
        const std::string listing(300 * 1024, 'x');
        PutFile(Output, listing);
        EXPECT_EQ(ErrorOfAdding(), DiskFull);
        EXPECT_TRUE(FileContent(Output) == listing);
        EXPECT_EQ(AllFiles("D:\\"), (std::vector<std::string>{"ADJ\\NET.INP", "ADJ\\NET.OUT"}));
    });
}

TEST_F(VarnBanner, LeavesAListingThatMayNotBeRead) {
    PutFile(Output, "the listing\r\n");
    std::filesystem::permissions(Drives::HostPath(Output), std::filesystem::perms::none);
    Testing::AsNobody([&] { EXPECT_NE(ErrorOfAdding(), 0); });
    std::filesystem::permissions(Drives::HostPath(Output), std::filesystem::perms(0644));
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
}

}  // namespace
}  // namespace Dorvane
