// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/ParameterText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Path = "D:\\TARVEX\\DAM\\NET_v02.PAR";
const std::string File =
    "; Parameters\r\n"
    "\r\n"
    "ITERATIONS = 50   ; at most\r\n"
    "  limit=1e-8\n"
    "a line = without meaning\r\n"
    "# other\r"
    "EMPTY =\r\n"
    "; OFF = 1\r\n"
    "\x01 = 2\r\n"
    "LAST = x y";

struct ParameterTextTest : testing::Test {
    ParameterTextTest() { Site.LayOut(); }

    ParameterEdit Open(const std::string& content) {
        PutFile(Path, content);
        return OpenParameters(Path);
    }
    static std::vector<WantedParameter> Entries(const ParameterEdit& parameters) {
        std::vector<WantedParameter> entries;
        for (std::size_t i = 0; i < parameters.Lines.size(); ++i) {
            const ParameterLine& line = parameters.Lines[i];
            if (line.IsEntry)
                entries.push_back({static_cast<int>(i) + 1, line.Key, line.Value, line.Comment});
        }
        return entries;
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(ParameterTextTest, ReadsKeysValuesAndComments) {
    std::vector<std::string> texts;
    for (const WantedParameter& entry : Entries(Open(File)))
        texts.push_back(entry.Key + "|" + entry.Value + "|" + entry.Comment);
    EXPECT_THAT(texts, ElementsAre("ITERATIONS|50|at most", "limit|1e-8|", "EMPTY||", "LAST|x y|"));
}

TEST_F(ParameterTextTest, GivesBackByteForByteWhatIsNotChanged) {
    for (const std::string& content :
         {File, std::string(), std::string("\x1A"), std::string("a\0b=1\r\n", 7), std::string("\r\r\n\n"),
          std::string(1000000, '='), std::string("K = 1\r\n\x1A")}) {
        ParameterEdit parameters = Open(content);
        ApplyParameters(parameters, Entries(parameters));
        EXPECT_EQ(FormatParameters(parameters), content);
        EXPECT_EQ(SaveParameters(parameters), "");
        EXPECT_EQ(FileContent(Path), content);
    }
}

TEST_F(ParameterTextTest, ChangesALineOnlyWhereItIsChanged) {
    const auto changed = [](const std::string& raw, const std::string& key, const std::string& value,
                            const std::string& comment) {
        ParameterEdit parameters;
        parameters.Lines = {ParseParameterLine(raw)};
        ApplyParameters(parameters, {{1, key, value, comment}});
        return FormatParameters(parameters);
    };
    EXPECT_EQ(changed("  A\t=  1  ;  why\r\n", "A", "200", "why"), "  A\t=  200  ;  why\r\n");
    EXPECT_EQ(changed("  A\t=  1  ;  why\n", "BB", "1", "why"), "  BB\t=  1  ;  why\n");
    EXPECT_EQ(changed("A = 1 ; why", "A", "1", "since"), "A = 1 ; since");
    EXPECT_EQ(changed("A = 1 ; why\r\n", "A", "1", ""), "A = 1\r\n");
    EXPECT_EQ(changed("A = 1\r\n", "A", "2", "new"), "A = 2   ; new\r\n");
    EXPECT_EQ(changed("A =\r\n", "A", "2", ""), "A =2\r\n");
    EXPECT_EQ(changed("A = ; c\r\n", "A", "2", "c"), "A = 2; c\r\n");
    EXPECT_EQ(changed("A = 1;\r\n", "A", "1", "c"), "A = 1;c\r\n");
}

TEST_F(ParameterTextTest, PutsANewEntryBehindTheOneBeforeIt) {
    ParameterEdit parameters = Open("; head\nA = 1\n; of B\nB = 2\n; end\n");
    ApplyParameters(parameters, {{0, "FIRST", "0", ""}, {2, "A", "1", ""}, {0, "NEW", "3", "why"}});
    EXPECT_EQ(FormatParameters(parameters), "; head\nFIRST = 0\nA = 1\nNEW = 3   ; why\n; of B\n; end\n");
}

TEST_F(ParameterTextTest, PutsTheFirstEntryAtTheEndOfTheText) {
    ParameterEdit parameters = Open("; head\r\n; of two lines\r\n\x1A");
    ApplyParameters(parameters, {{0, "A", "1", ""}});
    EXPECT_EQ(FormatParameters(parameters), "; head\r\n; of two lines\r\nA = 1\r\n\x1A");
}

TEST_F(ParameterTextTest, EndsALastLineWithoutAnEndBeforeANewOne) {
    ParameterEdit parameters = Open("A = 1");
    ApplyParameters(parameters, {{1, "A", "1", ""}, {0, "B", "2", ""}});
    EXPECT_EQ(FormatParameters(parameters), "A = 1\r\nB = 2\r\n");
}

TEST_F(ParameterTextTest, BeginsANewFileWithWhatThePackageWrites) {
    MakeFolders("D:\\TARVEX\\DAM\\");
    ParameterEdit parameters = OpenParameters(Path);
    EXPECT_EQ(parameters.Master, "");
    EXPECT_EQ(Entries(parameters).size(), Krenn::ParameterKeys().size());
    EXPECT_THAT(ParameterProblems(parameters), IsEmpty());
    EXPECT_EQ(SaveParameters(parameters), "");
    EXPECT_EQ(FileContent(Path), Krenn::DefaultParameterText());
}

TEST_F(ParameterTextTest, BeginsTheFileOfAVersionWithThatOfItsMaster) {
    PutFile("D:\\TARVEX\\DAM\\NET.PAR", "; of all\nSCALE = ON\n");
    ParameterEdit parameters = OpenParameters(Path);
    EXPECT_EQ(parameters.Master, "NET.PAR");
    EXPECT_FALSE(parameters.File.Exists);
    EXPECT_EQ(SaveParameters(parameters), "");
    EXPECT_EQ(FileContent(Path), "; of all\nSCALE = ON\n");
    EXPECT_EQ(OpenParameters(Path).Master, "");
    EXPECT_EQ(FormatParameters(OpenParameters("D:\\TARVEX\\DAM\\NET_v1.PAR")), Krenn::DefaultParameterText());
}

TEST_F(ParameterTextTest, TellsWhatIsWrongWithWhatIsNewOrChanged) {
    ParameterEdit parameters = Open("OLD = 1\r\nOLD = 2\r\nEMPTY =\r\nA = 1\r\nSCALE = ON\r\n");
    std::vector<WantedParameter> wanted = Entries(parameters);
    wanted[3].Value = "";
    wanted.push_back({0, "", "1", ""});
    wanted.push_back({0, "B C", "1", ""});
    wanted.push_back({0, "D", "1;2", ""});
    wanted.push_back({0, "scale", "ON", ""});
    wanted.push_back({0, "E", "1", "\x02"});
    ApplyParameters(parameters, wanted);
    EXPECT_THAT(
        ParameterProblems(parameters),
        ElementsAre("A has no value.", "A line has no key.", "B C has a character that no key can have.",
                    "D has a value with the \";\" of a comment.", "scale stands there twice.",
                    "E has a control character."));
}

TEST_F(ParameterTextTest, LetsAKeyThatStandsThereTwiceBeWrittenInOtherLetters) {
    ParameterEdit parameters = Open("SCALE = ON\r\nSCALE = OFF\r\n");
    std::vector<WantedParameter> wanted = Entries(parameters);
    wanted[0].Key = "Scale";
    ApplyParameters(parameters, wanted);
    EXPECT_THAT(ParameterProblems(parameters), IsEmpty());
}

TEST_F(ParameterTextTest, ChecksKeysAndValuesAsThePackageDoes) {
    ParameterEdit parameters = Open("ITERATIONS = 0\r\n");
    ApplyParameters(parameters, {{1, "Iterations", "0", ""},
                                 {0, "POWER", "small", ""},
                                 {0, "TRACKER", "level", ""},
                                 {0, "DIRECTION", "ON", ""},
                                 {0, "OTHER", "any", ""},
                                 {0, "Setups", "set", ""}});
    EXPECT_THAT(ParameterProblems(parameters),
                ElementsAre("\"0\" is out of range; ITERATIONS takes 1 to 500.",
                            "\"small\" is no number; POWER takes 50 to 99.9 %.",
                            "\"level\" is none of its words; TRACKER takes LEVELLED or ROTATIONS.",
                            "The adjustment does not know the key DIRECTION; DIRECTIONS is one.",
                            "The adjustment does not know the key OTHER."));
    EXPECT_EQ(DescribeParameter("convergence"),
              "CONVERGENCE: the iterations end when no coordinate moves by more; takes 0.00000001 to 0.001 "
              "m, without it 0.000001");
    EXPECT_EQ(DescribeParameter("ZENITH"),
              "The adjustment does not know the key ZENITH; ZENITH_ANGLES is one.");
}

TEST_F(ParameterTextTest, DoesNotWriteOverAFileThatAnotherMade) {
    MakeFolders("D:\\TARVEX\\DAM\\");
    ParameterEdit parameters = OpenParameters(Path);
    PutFile(Path, "A = 1\r\n");
    EXPECT_EQ(SaveParameters(parameters), Path + " is there already and would be lost.");
    EXPECT_EQ(FileContent(Path), "A = 1\r\n");
}

TEST_F(ParameterTextTest, KeepsTheFormerFileOnAFullDisk) {
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL", 64, [&] {
        PutFile("D:\\SMALL\\NET.PAR", "A = 1\r\n");
        PutFile("D:\\SMALL\\FILL.DAT", std::string(56 * 1024, 'x'));
        ParameterEdit parameters = OpenParameters("D:\\SMALL\\NET.PAR");
        ApplyParameters(parameters, {{1, "A", std::string(8 * 1024, '1'), ""}});
        try {
            SaveParameters(parameters);
            ADD_FAILURE();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        EXPECT_EQ(FileContent("D:\\SMALL\\NET.PAR"), "A = 1\r\n");
        EXPECT_THAT(AllFiles("D:\\SMALL\\"), ElementsAre("FILL.DAT", "NET.PAR"));
    });
}

TEST_F(ParameterTextTest, RaisesThatAFileMayNotBeWritten) {
    PutFile(Path, "A = 1\r\n");
    AsNobody([&] {
        ParameterEdit parameters = OpenParameters(Path);
        ApplyParameters(parameters, {{1, "A", "2", ""}});
        EXPECT_THROW(SaveParameters(parameters), RunTimeError);
        EXPECT_EQ(FileContent(Path), "A = 1\r\n");
    });
}

}  // namespace Dorvane::Testing
