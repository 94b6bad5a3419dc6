// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/BiasEdit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/Drives.h"
#include "database/basDatabase.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Init = "D:\\TARVEX\\INIT\\";
const std::string File =
    "; comment\r\n"
    "STDBIAS  0.00000 0.00000 0.00000 0.00000\r\n"
    " indented is a comment\r\n"
    "NORTH    1,2, 3\t-4.5 by Miller\r\n"
    "SOUTH    1 2 3\r\n"
    "\r\n"
    "LONGLOCATION 1 2 3 4\r\n";

struct BiasEditTest : testing::Test {
    BiasEditTest() {
        Site.LayOut();
        PutFile(Init + "BIAS.STR", File);
        Bias = OpenBias(Init);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    BiasEdit Bias;
};

}  // namespace

TEST_F(BiasEditTest, TakesTheLinesThatALocationCanFindForEntries) {
    std::vector<std::string> keys;
    for (const BiasLine& line : Bias.Lines)
        keys.push_back(line.IsEntry ? line.Key : "-");
    EXPECT_THAT(keys, ElementsAre("-", "STDBIAS", "-", "NORTH", "-", "-", "-"));
    EXPECT_THAT(Bias.Lines[3].Values, ElementsAre("1", "2", "3", "-4.5"));
    EXPECT_EQ(Bias.Lines[3].Tail, " by Miller");
    EXPECT_THAT(BiasProblems(Bias), IsEmpty());
}

TEST_F(BiasEditTest, WritesAFileItDidNotChangeByteForByte) {
    EXPECT_EQ(FormatBias(Bias.Lines), File);
    EXPECT_EQ(SaveBias(Bias), "");
    EXPECT_EQ(FileContent(Init + "BIAS.STR"), File);
    std::ifstream shipped(std::filesystem::path(DORVANE_SITE_FOLDER) / "samples/site/INIT/BIAS.STR",
                          std::ios::binary);
    std::ostringstream content;
    content << shipped.rdbuf();
    PutFile(Init + "BIAS.STR", content.str());
    EXPECT_EQ(FormatBias(OpenBias(Init).Lines), content.str());
}

TEST_F(BiasEditTest, ChangesOneEntryAndKeepsEverythingElse) {
    Bias.Lines[3].Values[1] = "2.5";
    EXPECT_EQ(SaveBias(Bias), "");
    std::string expected = File;
    const std::string former = "NORTH    1,2, 3\t-4.5 by Miller";
    expected.replace(expected.find(former), former.size(), "NORTH    1 2.5 3 -4.5 by Miller");
    EXPECT_EQ(FileContent(Init + "BIAS.STR"), expected);
    List1<double> values;
    values.Resize(4);
    EXPECT_TRUE(ReadBiasFile("NORTH", values));
    EXPECT_EQ(values, (List1<double>{1, 2.5, 3, -4.5}));
}

TEST_F(BiasEditTest, MakesTheFileWhenThereIsNone) {
    Drives::DeleteFile(Init + "BIAS.STR");
    Bias = OpenBias(Init);
    ASSERT_EQ(Bias.Lines.size(), 1U);
    EXPECT_EQ(FormatBias(Bias.Lines), "STDBIAS  0 0 0 0\r\n");
    Bias.Lines[0].Values[3] = "1.5";
    EXPECT_EQ(SaveBias(Bias), "");
    EXPECT_EQ(FileContent(Init + "BIAS.STR"), "STDBIAS  0 0 0 1.5\r\n");
}

TEST_F(BiasEditTest, TellsWhatIsWrong) {
    BiasLine line;
    line.IsEntry = true;
    line.Values = {"0", "0", "0", "0"};
    for (const char* key : {"", "NORTH", "A B", ";A", "123456789", "a"}) {
        line.Key = key;
        Bias.Lines.push_back(line);
    }
    line.Key = "WEST";
    line.Values[2] = "1,5";
    Bias.Lines.push_back(line);
    line.Key = "EAST";
    line.Values[2] = "much";
    Bias.Lines.push_back(line);
    EXPECT_THAT(BiasProblems(Bias),
                ElementsAre("A line has no location.", "NORTH stands there twice.",
                            "A B has a character that ends a word.", ";A would be a comment.",
                            "123456789 has more than 8 characters.", "a is not in upper case.",
                            "WEST has a value that is no number: \"1,5\".",
                            "EAST has a value that is no number: \"much\"."));
}

TEST_F(BiasEditTest, RefusesAFileThatIsNoText) {
    PutFile(Init + "BIAS.STR", std::string("STDBIAS 0 0 0 0\r\nX\0Y\r\n", 22));
    EXPECT_THAT(BiasProblems(OpenBias(Init)), ElementsAre("BIAS.STR: Line 2 has a control character."));
    PutFile(Init + "BIAS.STR", std::string(1000000, 'x'));
    EXPECT_EQ(FormatBias(OpenBias(Init).Lines), std::string(1000000, 'x') + "\r\n");
}

}  // namespace Dorvane::Testing
