// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "adjustment/Versions.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "krenn/input/InputReader.h"
#include "programs/editors/InputVersion.h"
#include "programs/window/ArgumentPath.h"
#include "tests/programs/InputSample.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

InputText Read(const std::string& content) {
    InputText text;
    EXPECT_EQ(ReadInputRows(content, text), "");
    return text;
}

std::string ProblemOf(const std::string& content) {
    InputText text;
    return ReadInputRows(content, text);
}

std::string Describe(const InputRow& row) {
    static constexpr const char* kinds[] = {"station", "point", "distance", "height",
                                            "angle",   "fixed", "pair"};
    return std::to_string(row.Line) + " " + kinds[static_cast<int>(row.Kind)] + " " + NoteEntry(row);
}

/// The rows as texts.
Texts RowsOf(const InputText& text) {
    Texts rows;
    for (const InputRow& row : text.Rows)
        rows.push_back(Describe(row));
    return rows;
}

/// Marks of the rows whose description begins so.
std::vector<bool> Take(const InputText& text, const Texts& beginnings) {
    std::vector<bool> taken(text.Rows.size());
    for (std::size_t i = 0; i < text.Rows.size(); ++i)
        for (const std::string& beginning : beginnings)
            taken[i] = taken[i] || Describe(text.Rows[i]).starts_with(beginning);
    return taken;
}

/// What is lost when those rows are taken out.
Texts LostWith(const InputText& text, const Texts& beginnings) {
    const std::vector<bool> taken = Take(text, beginnings);
    const std::vector<Fate> fates = Fates(text, taken);
    Texts lost;
    for (std::size_t i = 0; i < fates.size(); ++i)
        if (fates[i] != Fate::Stays) {
            EXPECT_EQ(fates[i] == Fate::Taken, taken[i]);
            lost.push_back(Describe(text.Rows[i]));
        }
    return lost;
}

std::string Left(const InputText& text, const Texts& beginnings) {
    return Remaining(text, Fates(text, Take(text, beginnings)));
}

std::string Without(std::string text, const Texts& parts) {
    for (const std::string& part : parts) {
        const std::size_t place = text.find(part);
        EXPECT_NE(place, std::string::npos) << part;
        text.erase(place, part.size());
    }
    return text;
}

}  // namespace

TEST(InputRows, KnowsTheRowsOfEverySection) {
    EXPECT_THAT(
        RowsOf(Read(SampleInput)),
        ElementsAre("10 station ST1", "12 station ST2 10.00000 20.00000 5.00000",
                    "16 point P7 1000.00000 2000.00000 100.00000",
                    "18 point P8 1100.00000 2000.00000 101.00000", "20 point P9", "22 point ST2",
                    "26 distance ST1 P7 25.12345 0.00100 T", "27 distance ST1 P8 80.00000 0.00100",
                    "28 distance ST2 P9 12.50000 0.00200", "31 height P7 P8 -1.25000 0.00050",
                    "34 angle ST1 P7 123.45670 99.12340 0.00030 0.00040",
                    "35 angle ST1 P8 223.45670 98.12340 0.00030 0.00040",
                    "36 angle ST2 P8 12.00000 97.00000 0.00030 0.00040", "40 fixed P7", "43 pair P7 P8"));
}

TEST(InputRows, GivesTheFileAsItWasWhenNothingIsTakenOut) {
    for (const std::string& content : {SampleInput, SampleInput + "\x1A", SampleInput + "no end"}) {
        InputText text;
        ReadInputRows(content, text);
        EXPECT_EQ(Remaining(text, Fates(text, Take(text, {}))), content);
    }
}

TEST(InputRows, TakesLinesWithAnyEndOfLine) {
    std::string unixLines = Without(SampleInput, {});
    unixLines.erase(std::remove(unixLines.begin(), unixLines.end(), '\r'), unixLines.end());
    const InputText text = Read(unixLines);
    EXPECT_EQ(RowsOf(text), RowsOf(Read(SampleInput)));
    EXPECT_EQ(Left(text, {"20 point"}),
              Without(unixLines, {"P9\n\n", "ST2       P9            12.50000   0.00200\n"}));
}

TEST(InputRows, KeepsARowBrokenByALongNameInOnePiece) {
    const std::string row =
        "LONGSTATIONNAME\r\n          P7        123.45670   99.12340  0.00030 0.00040\r\n";
    const std::string content = "Observations\r\n" + row + "ST1       P7        1 2 3 4\r\nEND\r\n";
    const InputText text = Read(content);
    EXPECT_THAT(RowsOf(text), ElementsAre("2 angle LONGSTATIONNAME P7 123.45670 99.12340 0.00030 0.00040",
                                          "4 angle ST1 P7 1 2 3 4"));
    EXPECT_EQ(Left(text, {"2 angle"}), Without(content, {row}));
}

TEST(InputRows, CutsFieldsThatRunIntoEachOther) {
    EXPECT_THAT(RowsOf(Read("Distances\r\nSTATION123TARGET4567     25.12345   0.00100\r\n")),
                ElementsAre("2 distance STATION123 TARGET4567 25.12345 0.00100"));
}

TEST(InputRows, ComparesNamesInUpperCaseOfTheCodePage) {
    EXPECT_THAT(RowsOf(Read("Object Points\r\npr\xE9\r\n\r\n")), ElementsAre("2 point PR\xC9"));
}

TEST(InputRows, NamesTheLineItCannotRead) {
    EXPECT_EQ(ProblemOf("Distances\r\nST1 P7 1.0 0.1\r\nST1 P7 long 0.1\r\nEND\r\n"),
              "Line 3 has not the fields of its section (station, target, distance, standard error): ST1 P7 "
              "long 0.1");
    EXPECT_EQ(ProblemOf("Distances\r\nST1 P7 1.0 0.1 X\r\n"),
              "Line 2 has more than its 4 fields: ST1 P7 1.0 0.1 X");
    EXPECT_EQ(ProblemOf("Object Points\r\nP1 1 2 3 4\r\n"),
              "Line 2 has more than a name and three coordinates: P1 1 2 3 4");
    EXPECT_EQ(ProblemOf("Object Points\r\nEND\r\nstray\r\n"), "Line 3 belongs to no section: stray");
    EXPECT_EQ(ProblemOf("Fixed Coordinates\r\nP1 P2\r\n"), "Line 2 is not one name: P1 P2");
    EXPECT_EQ(ProblemOf("Object Points\r\nP\x01\r\n"), "Line 2 has a control character in a name: P?");
    EXPECT_EQ(ProblemOf(std::string("Distances\r\n\0\r\n", 14)), "Line 2 is not text.");
    EXPECT_EQ(ProblemOf("any text\r\n"), "It has no section of an input file.");
    EXPECT_EQ(ProblemOf(""), "It has no section of an input file.");
}

TEST(InputRows, BearsFilesThatAreCutOrOfOneLongLine) {
    for (std::size_t length = 0; length < SampleInput.size(); ++length) {
        InputText text;
        ReadInputRows(SampleInput.substr(0, length), text);
        EXPECT_EQ(Remaining(text, std::vector<Fate>(text.Rows.size(), Fate::Stays)), text.Content);
    }
    EXPECT_THAT(ProblemOf("Observations\r\n" + std::string(1000000, 'x') + "\r\n"),
                testing::StartsWith("Line 2 has not the fields"));
}

TEST(InputRemoval, TakesTheObservationsOfAStationWithIt) {
    const InputText text = Read(SampleInput);
    EXPECT_THAT(LostWith(text, {"10 station"}),
                ElementsAre("10 station ST1", "26 distance ST1 P7 25.12345 0.00100 T",
                            "27 distance ST1 P8 80.00000 0.00100",
                            "34 angle ST1 P7 123.45670 99.12340 0.00030 0.00040",
                            "35 angle ST1 P8 223.45670 98.12340 0.00030 0.00040"));
    EXPECT_EQ(Left(text, {"10 station"}),
              Without(SampleInput, {"ST1\r\n\r\n", "ST1       P7            25.12345   0.00100   T\r\n",
                                    "ST1       P8            80.00000   0.00100\r\n",
                                    "ST1       P7        123.45670   99.12340  0.00030 0.00040\r\n",
                                    "ST1       P8        223.45670   98.12340  0.00030 0.00040\r\n"}));
}

TEST(InputRemoval, TakesTheSightsToAPointItsHeightsAndItsPairsWithIt) {
    EXPECT_THAT(
        LostWith(Read(SampleInput), {"16 point"}),
        ElementsAre("16 point P7 1000.00000 2000.00000 100.00000", "26 distance ST1 P7 25.12345 0.00100 T",
                    "31 height P7 P8 -1.25000 0.00050", "34 angle ST1 P7 123.45670 99.12340 0.00030 0.00040",
                    "40 fixed P7", "43 pair P7 P8"));
}

TEST(InputRemoval, LeavesAStationThatIsNoPointAnyMore) {
    EXPECT_THAT(LostWith(Read(SampleInput), {"22 point"}), ElementsAre("22 point ST2"));
}

TEST(InputRemoval, TakesTheHeightsOfAPointThatStaysAStation) {
    const InputText text = Read(
        "Theodolite Stations\nA\n\nObject Points\nA\n\nB\n\nHeight differences\nA B 1 1\nB A 1 1\n"
        "Distances\nA B 10 1\n");
    EXPECT_THAT(LostWith(text, {"5 point"}),
                ElementsAre("5 point A", "10 height A B 1 1", "11 height B A 1 1"));
}

TEST(InputRemoval, TakesTheSightsToAStationThatNoListHoldsAnyMore) {
    const InputText text =
        Read("Theodolite Stations\nA\n\nB\n\nDistances\nA B 10 1\nA C 10 1\nHeight differences\nB C 1 1\n");
    EXPECT_THAT(LostWith(text, {"4 station"}),
                ElementsAre("4 station B", "7 distance A B 10 1", "10 height B C 1 1"));
}

TEST(InputRemoval, LeavesWhatIsFixedWithoutEverHavingHadCoordinates) {
    const InputText text = Read("Object Points\nP\n\nQ 1 2 3\nDistances\nQ P 10 1\nFixed Coordinates\nP\n");
    EXPECT_THAT(LostWith(text, {}), IsEmpty());
}

TEST(InputRemoval, TakesByHandNoRowThatOnlyGoesWithOthers) {
    const InputText text = Read(SampleInput);
    for (const char* row : {"40 fixed", "43 pair"})
        EXPECT_EQ(Left(text, {row}), SampleInput);
}

TEST(InputRemoval, LeavesThePairsOfATargetThatNoListHolds) {
    const InputText text =
        Read("Theodolite Stations\nA\n\nB\n\nDistances\nA C 10 1\nRelative error point pairs\nA C\n");
    EXPECT_THAT(LostWith(text, {"4 station"}), ElementsAre("4 station B"));
}

TEST(InputRemoval, LeavesTheTitleBelowTheLastRowOfAList) {
    const InputText text = Read("Object Points\nP\nTheodolite Stations\n\nS 1 2 3\nDistances\nS Q 1 1\n");
    EXPECT_EQ(Left(text, {"2 point"}), "Object Points\nTheodolite Stations\n\nS 1 2 3\nDistances\nS Q 1 1\n");
}

TEST(InputRemoval, LeavesANameThatIsListedTwiceUntilBothAreTaken) {
    const InputText text =
        Read("Object Points\nA\n\nA 1 2 3\nB\n\nDistances\nB A 10 1\nFixed Coordinates\nA\n");
    EXPECT_THAT(LostWith(text, {"2 point"}), ElementsAre("2 point A"));
    EXPECT_THAT(LostWith(text, {"4 point"}), ElementsAre("4 point A 1 2 3", "10 fixed A"));
    EXPECT_THAT(LostWith(text, {"2 point", "4 point"}),
                ElementsAre("2 point A", "4 point A 1 2 3", "8 distance B A 10 1", "10 fixed A"));
}

TEST(InputRemoval, TellsWhatNoObservationUsesAnyMore) {
    const InputText text = Read(SampleInput);
    const auto unused = [&](const Texts& taken) {
        Texts names;
        for (const std::size_t row : UnusedRows(text, Fates(text, Take(text, taken))))
            names.push_back(Describe(text.Rows[row]));
        return names;
    };
    EXPECT_THAT(unused({}), IsEmpty());
    EXPECT_THAT(unused({"28 distance"}), ElementsAre("20 point P9"));
    EXPECT_THAT(unused({"28 distance", "36 angle"}),
                ElementsAre("12 station ST2 10.00000 20.00000 5.00000", "20 point P9", "22 point ST2"));
    EXPECT_TRUE(HasObservations(text, Fates(text, Take(text, {"28 distance"}))));
    EXPECT_FALSE(HasObservations(text, Fates(text, Take(text, {"10", "12", "31"}))));
}

TEST(InputRemoval, LeavesAFileThatThePackageReads) {
    const InputText text = Read(SampleInput);
    for (const std::string& row : RowsOf(text)) {
        const Krenn::Network network = Krenn::ReadInput(Left(text, {row}));
        EXPECT_GT(network.observations.size(), 0U) << row;
    }
}

TEST(ObservationKinds, TakesTheKindsFromTheTaggedRows) {
    const InputText text = Read(SampleInput);
    const auto kinds = [&](const std::string& tagged) {
        std::string letters;
        for (const NoteKind kind : KindsOf(text, tagged))
            letters += "SPTtADHG-"[static_cast<int>(kind)];
        return letters;
    };
    // stations and points; the distances; the height; the angles; the fixed point and the pair
    EXPECT_EQ(kinds(SampleTaggedRows), "SSPPPPTtDHTtA--");
    EXPECT_EQ(kinds(""), "SSPPPPTtDHTtA--");
    EXPECT_EQ(kinds("DST ST1        P8             80.00000   0.00100\r\n"
                    "ANG ST1        P8         223.45670   98.12340  0.00030 0.00040\r\n"),
              "SSPPPPTDDHTAA--");
    EXPECT_EQ(kinds("TOT ST1\r\n\r\nnothing of use\x01"), "SSPPPPTtDHTtA--");
}

TEST(ObservationKinds, PairsADistanceWithTheFirstAngleThatIsLeft) {
    const InputText text = Read("Distances\nA B 10 1\nObservations\nA B 1 2 3 4\nA B 5 6 3 4\nA B 7 8 3 4\n");
    const auto total = NoteKind::Total;
    const auto angle = NoteKind::Angle;
    EXPECT_THAT(KindsOf(text, ""), ElementsAre(total, total, angle, angle));
    EXPECT_THAT(KindsOf(text, "ANG A B 1 2 3 4\n"), ElementsAre(total, angle, total, angle));
}

TEST(VersionNote, ChangesTheCommentAtItsHeadAndNoOtherLine) {
    VersionNotes notes;
    notes.Stations = {"; old", ";of two lines", "ST1", "; of ST1"};
    EXPECT_EQ(CommentOf(notes), "old\nof two lines");
    SetComment(notes, "new");
    EXPECT_EQ(notes.Stations, (List1<std::string>{"; new", "ST1", "; of ST1"}));
}

namespace {

const std::string Folder = "D:\\TARVEX\\DAM\\";

struct InputVersionTest : testing::Test {
    InputVersionTest() {
        Site.LayOut();
        PutFile(Folder + "NET.INP", SampleInput);
        PutFile(Folder + "NET.ORG", SampleTaggedRows);
        PutFile(Folder + "NET.VER", EmptyNote);
    }
    std::vector<Fate> FatesOf(const InputVersion& input, const Texts& beginnings) {
        return Fates(input.Text, Take(input.Text, beginnings));
    }
    std::string SaveNew(const Texts& beginnings, const std::string& comment = "") {
        const InputVersion input = OpenInputVersion(Folder + "NET.INP");
        std::string version;
        EXPECT_EQ(SaveAsNewVersion(input, FatesOf(input, beginnings), comment, version), "");
        return version;
    }
    VersionNotes NotesOf(const std::string& file) {
        VersionNotes notes;
        ReadVersionFile(Folder, file, notes);
        return notes;
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(InputVersionTest, WritesAVersionWithItsNoteAndLeavesTheMasterAlone) {
    EXPECT_EQ(SaveNew({"10 station", "20 point", "28 distance"}, "first try\nof two lines"), "01");
    EXPECT_EQ(FileContent(Folder + "NET_v01.INP"),
              Without(SampleInput,
                      {"ST1\r\n\r\n", "P9\r\n\r\n", "ST1       P7            25.12345   0.00100   T\r\n",
                       "ST1       P8            80.00000   0.00100\r\n",
                       "ST2       P9            12.50000   0.00200\r\n",
                       "ST1       P7        123.45670   99.12340  0.00030 0.00040\r\n",
                       "ST1       P8        223.45670   98.12340  0.00030 0.00040\r\n"}));
    EXPECT_EQ(FileContent(Folder + "NET_v01.VER"),
              "[Stations]\r\n; first try\r\n; of two lines\r\nST1\r\n[Points]\r\nP9\r\n"
              "[Tracker]\r\nST1 P7 25.12345 0.00100 T\r\nST1 P7 123.45670 99.12340 0.00030 0.00040\r\n"
              "[Total]\r\nST1 P8 80.00000 0.00100\r\nST1 P8 223.45670 98.12340 0.00030 0.00040\r\n"
              "[Angle]\r\n[Distance]\r\nST2 P9 12.50000 0.00200\r\n[Height]\r\n[Gyro]\r\n");
    EXPECT_EQ(FileContent(Folder + "NET.INP"), SampleInput);
    EXPECT_EQ(FileContent(Folder + "NET.ORG"), SampleTaggedRows);
    EXPECT_EQ(FileContent(Folder + "NET.VER"), EmptyNote);
    EXPECT_THAT(AllFiles(Folder), ElementsAre("NET.INP", "NET.ORG", "NET.VER", "NET_v01.INP", "NET_v01.VER"));
}

TEST_F(InputVersionTest, IsListedAndReadBackByTheBrowser) {
    SaveNew({"31 height"}, "no levelling");
    SaveNew({"36 angle"});
    List1<std::string> versions;
    GetVersions(Folder + "NET.INP", versions);
    EXPECT_EQ(versions, (List1<std::string>{"Master", "Version 01", "Version 02"}));
    OpenInputState browser;
    OpenVersions(browser, Folder + "NET.INP", "Version 01");
    VersionNotes expected;
    expected.Stations = {"; no levelling"};
    expected.Height = {"P7 P8 -1.25000 0.00050"};
    EXPECT_EQ(browser.Lists, expected);
    OpenVersions(browser, Folder + "NET.INP", "Version 02");
    expected = VersionNotes();
    expected.Angle = {"ST2 P8 12.00000 97.00000 0.00030 0.00040"};
    EXPECT_EQ(browser.Lists, expected);
}

TEST_F(InputVersionTest, NumbersAVersionAboveAllOfWhichAFileIsLeft) {
    EXPECT_EQ(NextVersion(Folder, "NET"), "01");
    PutFile(Folder + "net_V07.out", "");
    PutFile(Folder + "NET_v.INP", "");
    PutFile(Folder + "NET_vXX.INP", "");
    PutFile(Folder + "NET_v003.INP", "");
    PutFile(Folder + "OTHER_v50.INP", "");
    EXPECT_EQ(NextVersion(Folder, "NET"), "08");
    PutFile(Folder + "NET_v09.INP", "");
    EXPECT_EQ(NextVersion(Folder, "NET"), "10");
    PutFile(Folder + "NET_v99.INP", "");
    EXPECT_EQ(NextVersion(Folder, "NET"), "01");
    PutFile(Folder + "NET_v01.VER", "");
    EXPECT_EQ(NextVersion(Folder, "NET"), "02");
}

TEST_F(InputVersionTest, SaysThatAllVersionsAreTaken) {
    for (int number = 1; number <= 99; ++number)
        PutFile(Folder + "NET_v" + (number < 10 ? "0" : "") + std::to_string(number) + ".INP", "");
    const InputVersion input = OpenInputVersion(Folder + "NET.INP");
    std::string version;
    EXPECT_EQ(SaveAsNewVersion(input, FatesOf(input, {"31"}), "", version),
              "All 99 versions of NET.INP are taken.");
}

TEST_F(InputVersionTest, EditsAVersionFurtherOverItself) {
    SaveNew({"31 height"}, "first");
    InputVersion input = OpenInputVersion(Folder + "net_v01.inp");
    EXPECT_EQ(input.Version, "01");
    EXPECT_EQ(UpperCase(input.Base), "NET");
    EXPECT_EQ(CommentOf(input.Notes), "first");
    EXPECT_EQ(SaveVersion(input, FatesOf(input, {"28 distance"}), "second"), "");
    EXPECT_EQ(FileContent(Folder + "NET_v01.INP"),
              Without(SampleInput, {"P7        P8           -1.25000      0.00050\r\n",
                                    "ST2       P9            12.50000   0.00200\r\n"}));
    VersionNotes expected;
    expected.Stations = {"; second"};
    expected.Height = {"P7 P8 -1.25000 0.00050"};
    expected.Distance = {"ST2 P9 12.50000 0.00200"};
    EXPECT_EQ(NotesOf("NET_v01.VER"), expected);
    EXPECT_EQ(input.Text.Rows.size(), 13U) << "opened anew";
    EXPECT_THAT(AllFiles(Folder), ElementsAre("NET.INP", "NET.ORG", "NET.VER", "NET_v01.INP", "NET_v01.VER"));
}

TEST_F(InputVersionTest, MakesAVersionOfAVersionWithTheNotesOfBoth) {
    SaveNew({"31 height"}, "first");
    const InputVersion input = OpenInputVersion(Folder + "NET_v01.INP");
    std::string version;
    EXPECT_EQ(SaveAsNewVersion(input, FatesOf(input, {"28 distance"}), "", version), "");
    EXPECT_EQ(version, "02");
    EXPECT_EQ(NotesOf("NET_v02.VER").Height.Count(), 1);
    EXPECT_EQ(NotesOf("NET_v02.VER").Distance.Count(), 1);
    EXPECT_TRUE(NotesOf("NET_v02.VER").Stations.Empty());
    EXPECT_EQ(CommentOf(NotesOf("NET_v01.VER")), "first");
}

TEST_F(InputVersionTest, NeverWritesOverTheMaster) {
    InputVersion input = OpenInputVersion(Folder + "NET.INP");
    EXPECT_THROW(SaveVersion(input, FatesOf(input, {"31"}), ""), RunTimeError);
    EXPECT_EQ(FileContent(Folder + "NET.INP"), SampleInput);
}

TEST_F(InputVersionTest, OpensTheInputFileOfTaggedRows) {
    for (const char* name : {"NET.ORG", "net.org"})
        EXPECT_EQ(UpperCase(OpenInputVersion(Folder + name).File.Path), UpperCase(Folder + "NET.INP"));
}

TEST_F(InputVersionTest, TakesTheKindsOfAVersionFromTheTaggedRowsOfItsMaster) {
    PutFile(Folder + "NET.ORG", "DST ST1        P8             80.00000   0.00100\r\n");
    PutFile(Folder + "NET_v01.INP", SampleInput);
    for (const char* name : {"NET.INP", "NET_v01.INP"}) {
        const InputVersion input = OpenInputVersion(Folder + name);
        for (std::size_t i = 0; i < input.Text.Rows.size(); ++i) {
            if (input.Text.Rows[i].Line == 27) {
                EXPECT_EQ(input.Kinds[i], NoteKind::Distance) << name;
            }
        }
    }
}

TEST_F(InputVersionTest, TakesANameWithADifferentEndingForAMaster) {
    for (const std::string name : {"NET_VALLEY", "_V01", "NET_V1", "NETv01"}) {
        PutFile(Folder + name + ".INP", SampleInput);
        const InputVersion input = OpenInputVersion(Folder + name + ".INP");
        EXPECT_EQ(input.Version, "") << name;
        EXPECT_EQ(input.Base, name);
    }
}

TEST_F(InputVersionTest, RaisesThatThereIsNoSuchFile) {
    try {
        OpenInputVersion(Folder + "GONE.INP");
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileNotFound);
    }
}

TEST_F(InputVersionTest, DoesNotWriteOverAVersionThatAnotherChanged) {
    SaveNew({"31"});
    InputVersion input = OpenInputVersion(Folder + "NET_v01.INP");
    PutFile(Folder + "NET_v01.INP", SampleInput);
    EXPECT_EQ(SaveVersion(input, FatesOf(input, {"28"}), ""),
              Folder + "NET_v01.INP was changed by another program in the meantime.");
    EXPECT_EQ(FileContent(Folder + "NET_v01.INP"), SampleInput);
    EXPECT_TRUE(NotesOf("NET_v01.VER").Distance.Empty());
}

TEST_F(InputVersionTest, KeepsANoteWithoutAllItsSectionsReadable) {
    SaveNew({"31"});
    PutFile(Folder + "NET_v01.VER", "[Stations]\r\nA\r\n[Points]\r\nB\r\nC\r\n");
    InputVersion input = OpenInputVersion(Folder + "NET_v01.INP");
    EXPECT_EQ(SaveVersion(input, FatesOf(input, {"28"}), "why"), "");
    EXPECT_EQ(FileContent(Folder + "NET_v01.VER"),
              "[Stations]\r\n; why\r\nA\r\n[Points]\r\nB\r\nC\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n"
              "[Distance]\r\nST2 P9 12.50000 0.00200\r\n[Height]\r\n[Gyro]\r\n");
}

TEST_F(InputVersionTest, WritesNoPartOfAVersionOnAFullDisk) {
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL", 64, [&] {
        PutFile("D:\\SMALL\\NET.INP", SampleInput);
        PutFile("D:\\SMALL\\FILL.DAT", std::string(56 * 1024, 'x'));
        const InputVersion input = OpenInputVersion("D:\\SMALL\\NET.INP");
        std::string version;
        try {
            // A note as long as all that is left of the disk.
            SaveAsNewVersion(input, FatesOf(input, {"31"}), std::string(8 * 1024, 'y'), version);
            ADD_FAILURE();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        EXPECT_THAT(AllFiles("D:\\SMALL\\"), ElementsAre("FILL.DAT", "NET.INP"));
    });
}

TEST_F(InputVersionTest, WritesNothingWhereItMayNot) {
    SaveNew({"31"});
    AsNobody([&] {
        InputVersion input = OpenInputVersion(Folder + "NET_v01.INP");
        std::string version;
        EXPECT_THROW(SaveAsNewVersion(input, FatesOf(input, {"28"}), "", version), RunTimeError);
        EXPECT_THROW(SaveVersion(input, FatesOf(input, {"28"}), ""), RunTimeError);
        EXPECT_EQ(AllFiles(Folder).size(), 5U);
    });
}

TEST_F(InputVersionTest, FindsItsFileWhenThePathArrivesInPieces) {
    const std::string name = "D:\\MY DAM\\N\xE9T 1.INP";
    PutFile(name, SampleInput);
    const std::string host = Drives::HostPath(name);
    const char* whole[] = {"editinp", host.c_str()};
    EXPECT_EQ(ArgumentPath(2, whole), name);
    const std::string first = Drives::HostPath("D:\\MY");
    const char* pieces[] = {"editinp", first.c_str(), "DAM\\N\xC3\xA9T", "1.INP"};
    EXPECT_EQ(ArgumentPath(4, pieces), name);
    const char* drivePath[] = {"editinp", "D:\\MY", "DAM\\N\xC3\xA9T", "1.INP"};
    EXPECT_EQ(ArgumentPath(4, drivePath), name);
    EXPECT_EQ(ArgumentPath(1, whole), "");
}

}  // namespace Dorvane::Testing
