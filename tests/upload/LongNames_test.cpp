// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/LongNames.h"

#include "core/Text.h"
#include "core/basGeneral.h"
#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

struct LongNamesTest : UploadSite {
    LongNamesTest() {
        DataTypeProfile({"[LEVEL]", "LEV_SrvIdx=TRUE", "DAT_SrvIdx=FALSE", "APP_SrvIdx=TRUE",
                         "APP_Append=TRUE", "LONGX_SrvIdx=TRUE"});
    }
    static ShorterNames Propose(const std::vector<std::string>& names) {
        List1<FileEntry> files;
        for (const std::string& name : names)
            files.Add({name, "", "", 1});
        return ProposeShorterNames(files, To, "LEVEL");
    }
};

TEST_F(LongNamesTest, HaveTenCharactersAndMoreBeforeThePoint) {
    EXPECT_EQ(Propose({"123456789.LEV", "ABCDEFGHIJ.LEV", "FIELDBOOK2026.LEV"}),
              (ShorterNames{{"ABCDEFGHIJ.LEV", "ABCDEFGHI.LEV"}, {"FIELDBOOK2026.LEV", "FIELDBOOK.LEV"}}));
}

TEST_F(LongNamesTest, MatterOnlyInTheIndex) {
    EXPECT_TRUE(Propose({"FIELDBOOK2026.DAT", "FIELDBOOK2026.TXT", "FIELDBOOK2026"}).empty());
}

TEST_F(LongNamesTest, DoNotMatterForAFileThatWillBeRefused) {
    PutFile(To + "FIELDBOOK2026.LEV", "");
    PutFile(To + "FIELDBOOK2026.APP", "");
    EXPECT_EQ(Propose({"FIELDBOOK2026.LEV", "FIELDBOOK2026.APP"}),
              (ShorterNames{{"FIELDBOOK2026.APP", "FIELDBOOK.APP"}}));
}

TEST_F(LongNamesTest, GetANameThatNoFileInTheFolderHas) {
    PutFile(To + "fieldbook.lev", "");
    MakeFolders(To + "FIELDBOO1.LEV\\");
    EXPECT_EQ(Propose({"FIELDBOOK2026.LEV"}).at("FIELDBOOK2026.LEV"), "FIELDBOO2.LEV");
}

TEST_F(LongNamesTest, GetANameThatNoIndexLineHas) {
    PutFile(To + Index, IndexHead + "FIELDBOOK LEV\r\nFIELDBOO1LEV\r\nFIELDBOO2DAT\r\n");
    PutFile(To + "SRV9.IDX", IndexHead + "fieldbooklev\r\n");
    EXPECT_EQ(Propose({"FIELDBOOK2026.LEV"}).at("FIELDBOOK2026.LEV"), "FIELDBOO2.LEV");
}

TEST_F(LongNamesTest, ComparesTheFourCharactersOfAnExtensionThatTheIndexShows) {
    PutFile(To + Index, IndexHead + "FIELDBOOKLONG\r\n");
    EXPECT_EQ(Propose({"FIELDBOOK2026.LONGX"}).at("FIELDBOOK2026.LONGX"), "FIELDBOO1.LONGX");
}

TEST_F(LongNamesTest, GetANameThatNoOtherFileOfTheRunHasOrGets) {
    std::vector<std::string> names = {"FIELDBOOK.LEV"};
    for (int i = 10; i <= 20; ++i)
        names.push_back("FIELDBOOK" + std::to_string(i) + ".LEV");
    names.push_back(names.back());  // a file of two patterns stands twice
    const ShorterNames shorter = Propose(names);
    ASSERT_EQ(shorter.size(), 11U);
    EXPECT_EQ(shorter.at("FIELDBOOK10.LEV"), "FIELDBOO1.LEV");
    EXPECT_EQ(shorter.at("FIELDBOOK18.LEV"), "FIELDBOO9.LEV");
    EXPECT_EQ(shorter.at("FIELDBOOK19.LEV"), "FIELDBO10.LEV");
    EXPECT_EQ(shorter.at("FIELDBOOK20.LEV"), "FIELDBO11.LEV");
}

TEST_F(LongNamesTest, LoseNoLetterToABlank) {
    EXPECT_EQ(Propose({"MY FIELD BOOK.LEV"}).at("MY FIELD BOOK.LEV"), "MY FIELD.LEV");
    EXPECT_EQ(Propose({"NORTHSIDE A.B.LEV"}).size(), 0U) << "B.LEV is the extension";
}

TEST_F(LongNamesTest, AreToldAndTheAnswerDecides) {
    const std::string text =
        "The survey index has room for 9 characters of a file's name.  With a longer name the line is "
        "broken, and "
        "a reduction does not find the file.  Upload under a shorter name?\r\n\r\n"
        "FIELDBOOK2026.LEV  as  FIELDBOOK.LEV\r\n\r\n"
        "Yes uploads under the shorter name, No under the long one, Cancel uploads nothing.";
    const ShorterNames proposal = Propose({"FIELDBOOK2026.LEV"});
    ShorterNames names = proposal;
    Desktop.ExpectMessage("Long File Name", text, Answer::Yes);
    EXPECT_TRUE(AskForShorterNames(names));
    EXPECT_EQ(names, proposal);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::YesNoCancel);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    Desktop.ExpectMessage("Long File Name", text, Answer::No);
    EXPECT_TRUE(AskForShorterNames(names));
    EXPECT_TRUE(names.empty());
    names = proposal;
    Desktop.ExpectMessage("Long File Name", text, Answer::Cancel);
    EXPECT_FALSE(AskForShorterNames(names));
}

TEST_F(LongNamesTest, AreNoQuestionWhereThereAreNone) {
    ShorterNames none;
    EXPECT_TRUE(AskForShorterNames(none));
    EXPECT_TRUE(Desktop.Shown.empty());
}

TEST_F(LongNamesTest, AreToldUpToFifteen) {
    std::vector<std::string> files;
    for (int i = 10; i < 26; ++i)
        files.push_back("FIELDBOOK" + std::to_string(i) + ".LEV");
    ShorterNames names = Propose(files);
    Desktop.ExpectMessageTitled("Long File Name", Answer::Yes);
    AskForShorterNames(names);
    EXPECT_TRUE(Contains(Desktop.Shown[0].Text, "FIELDBOOK24.LEV  as"));
    EXPECT_FALSE(Contains(Desktop.Shown[0].Text, "FIELDBOOK25.LEV  as"));
    EXPECT_TRUE(Contains(Desktop.Shown[0].Text, "and 1 more\r\n"));
    EXPECT_EQ(names.size(), 16U);
}

}  // namespace
}  // namespace Dorvane::Testing
