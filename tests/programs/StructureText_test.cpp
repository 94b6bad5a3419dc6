// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "programs/editors/ChoiceEdit.h"
#include "programs/editors/StructureText.h"
#include "tests/programs/StructureSample.h"

// The text of a structure file, taken apart and put together.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;

std::string ProblemOf(const std::string& content, std::size_t groups = 3) {
    StructureText structure;
    return ParseStructure(content, groups, structure);
}

}  // namespace

TEST(StructureTextTest, TakesAFileApart) {
    StructureText structure;
    EXPECT_EQ(ParseStructure(Dam, 3, structure), "");
    EXPECT_EQ(structure.Name, "DAM");
    EXPECT_EQ(structure.Description, "Upper Dam");
    EXPECT_EQ(structure.Heading, "CODE     DESCRIPTION");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{"NORTH", "North abutment"}));
    EXPECT_THAT(structure.Groups[1], ElementsAre(CodeEntry{"LEVEL", "Levelling"}));
    EXPECT_THAT(structure.Groups[2], ElementsAre(CodeEntry{"SRV01", "Survey 1"}, CodeEntry{"SRV02", ""}));
}

TEST(StructureTextTest, WritesTheShippedFilesByteForByteAsTheyWere) {
    for (const auto& [name, groups] : {std::pair{"DAM.STR", 3}, std::pair{"CALIB.STR", 2}}) {
        StructureText structure;
        EXPECT_EQ(ParseStructure(Shipped(name), static_cast<std::size_t>(groups), structure), "") << name;
        EXPECT_EQ(FormatStructure(structure), Shipped(name)) << name;
    }
    std::vector<SystemEdit> systems;
    EXPECT_EQ(ParseChoices(Shipped("CHOICES.SYS"), systems), "");
    EXPECT_EQ(FormatChoices(systems), Shipped("CHOICES.SYS"));
    StructureText structure;
    ParseStructure(Dam, 3, structure);
    EXPECT_EQ(FormatStructure(structure), Dam);
}

TEST(StructureTextTest, WritesAnEmptyStructureThatTheReaderAccepts) {
    EXPECT_EQ(FormatStructure(NewStructure("DAM", "Upper Dam", 3)),
              "DAM      Upper Dam\r\nCODE     DESCRIPTION\r\n\r\n\r\n");
    EXPECT_EQ(FormatStructure(NewStructure("CALIB", "", 2)), "CALIB\r\nCODE     DESCRIPTION\r\n\r\n");
}

TEST(StructureTextTest, TakesLowerCaseAndOtherLineEndsForWhatTheyMean) {
    StructureText structure;
    EXPECT_EQ(ParseStructure("dam\n\nn\xE9\n\n\n\x1A", 3, structure), "");
    EXPECT_EQ(structure.Name, "DAM");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{"N\xC9", ""}));
    EXPECT_EQ(structure.Heading, "");
}

TEST(StructureTextTest, SaysWhatItWouldLose) {
    EXPECT_EQ(ProblemOf(""), "The file is empty.");
    EXPECT_EQ(ProblemOf("DAM\r\n"), "The file ends before its first group.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH\r\n\r\nLEVEL\r\n"), "The file ends before its last group.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTHERLY North\r\n\r\n\r\n"),
              "Line 3 has a character between name and description.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH    12345678901234567890 more\r\n\r\n\r\n"),
              "Line 3 has text behind its description.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH\tNorth\r\n\r\n\r\n"), "Line 3 has a control character.");
    EXPECT_EQ(ProblemOf(std::string("D\0M\r\n\r\n\r\n\r\n", 11)), "Line 1 has a control character.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\n" + std::string(1000000, 'x') + "\r\n\r\n\r\n"),
              "Line 3 has a character between name and description.");
    std::string seventeen = "DAM\r\n\r\n";
    for (int i = 1; i <= 17; ++i)
        seventeen += "L" + std::to_string(i) + "\r\n";
    EXPECT_EQ(ProblemOf(seventeen + "\r\n\r\n"), "Line 19 is the 17th entry of its group.");
}

TEST(StructureTextTest, ShowsALineOfBlanksAsAnEntryWithoutName) {
    StructureText structure;
    EXPECT_EQ(ParseStructure("DAM\r\n\r\n   \r\n\r\n\r\n\r\n", 3, structure), "");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{}));
    EXPECT_THAT(structure.Groups[2], ElementsAre(CodeEntry{}));
}

TEST(StructureTextTest, WritesAnEntryWithoutNameSoThatItsGroupGoesOn) {
    StructureText structure;
    EXPECT_EQ(ParseStructure("DAM\r\n\r\n   \r\nNORTH\r\n\r\nLEVEL\r\n\r\n\r\n", 3, structure), "");
    const std::string written = FormatStructure(structure);
    EXPECT_EQ(written, "DAM\r\n\r\n \r\nNORTH\r\n\r\nLEVEL\r\n\r\n\r\n");
    StructureText again;
    EXPECT_EQ(ParseStructure(written, 3, again), "");
    EXPECT_EQ(again, structure);
}

}  // namespace Dorvane::Testing
