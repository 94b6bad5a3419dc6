// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QListWidget>
#include <QTest>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "tests/road/Workstation.h"

namespace Dorvane {

using namespace Testing;
using testing::ElementsAre;
using testing::HasSubstr;

class FieldFiles : public Workstation {
  protected:
    static constexpr const char* Total = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
    static constexpr const char* Level = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\";

    // The site with one survey, its field files in the collection folder, and the upload screen open.
    QWidget& OpenUpload() {
        Start();
        LayDownStructures();
        AddSurvey("NORTH", {"TOTAL", "LEVEL"}, "SRV01", "First");
        for (const char* name : {"A.GSI",
                                 "B\xfc"
                                 "ch.GSI",
                                 "LINE.LEV", "NOTES.TXT"})
            PutFile(std::string("D:\\FIELD\\") + name, std::string(name) + "\r\n");
        Click(Screen("frmMain"), "cmdMain2");
        return Screen("frmUploadMenu");
    }

    void ChooseSource(QWidget& upload) {
        Person.ExpectFile("Upload Data From ", "D:\\FIELD\\");
        Click(upload, "cmdFromBrowse");
    }

    static void ChooseTarget(QWidget& upload, const std::string& folder) {
        Click(upload, "cmdToBrowse");
        EXPECT_FALSE(upload.isVisible());
        QWidget& tree = Screen("frmTree");
        EXPECT_EQ(TextOf(tree), "Upload Data To");
        ChooseFolder(tree, folder);
        Click(tree, "cmdOK");
        EXPECT_TRUE(upload.isVisible());
        EXPECT_FALSE(IsOpen("frmTree"));
    }

    static std::vector<std::string> IndexedNames(const std::string& index) {
        std::vector<std::string> names;
        const std::vector<std::string> lines = FileLines(index);
        for (std::size_t i = 2; i < lines.size(); ++i)
            names.push_back(lines[i].substr(0, 12));
        return names;
    }
};

TEST_F(FieldFiles, GoIntoTheSurveyFolderByPatternByNameAndByAppending) {
    QWidget& upload = OpenUpload();
    ChooseSource(upload);
    EXPECT_EQ(TextOf(upload, "lblFromPath"), "D:\\FIELD\\");
    ChooseTarget(upload, Total);
    EXPECT_EQ(TextOf(upload, "lblToPath"), Total);
    EXPECT_EQ(TextOf(upload, "lblDataType"), "TOTAL");
    EXPECT_EQ(TextOf(upload, "lblFileSelection"), "*.GSI ");

    Click(upload, "cmdUpload");
    EXPECT_THAT(AllFiles(Total), testing::UnorderedElementsAre("A.GSI",
                                                               "B\xc3\x9c"
                                                               "CH.GSI",
                                                               "SRV01.IDX"));
    EXPECT_THAT(AllFiles("D:\\FIELD\\"), testing::UnorderedElementsAre("A.999",
                                                                       "B\xc3\x9c"
                                                                       "CH.999",
                                                                       "LINE.LEV", "NOTES.TXT"));
    EXPECT_THAT(IndexedNames(std::string(Total) + "SRV01.IDX"), ElementsAre("A        GSI",
                                                                            "B\xdc"
                                                                            "CH     GSI"));
    EXPECT_FALSE(IsOpen("frmMoveMeter"));

    ClickItem(upload, "lstFileNames", "NOTES.TXT");
    EXPECT_EQ(TextOf(upload, "lblFileSelection"), "NOTES.TXT");
    Click(upload, "cmdUpload");
    EXPECT_EQ(FileContent(std::string(Total) + "NOTES.TXT"), "NOTES.TXT\r\n");
    EXPECT_EQ(IndexedNames(std::string(Total) + "SRV01.IDX").size(), 2U);

    ChooseTarget(upload, Level);
    EXPECT_EQ(TextOf(upload, "lblDataType"), "LEVEL");
    EXPECT_EQ(TextOf(upload, "lblFileSelection"), "*.LEV");
    Click(upload, "cmdUpload");
    PutFile("D:\\FIELD\\LINE.LEV", "more\r\n");
    Click(upload, "cmdHome");
    Click(Screen("frmMain"), "cmdMain2");
    QWidget& again = Screen("frmUploadMenu");
    EXPECT_EQ(TextOf(again, "lblToPath"), Level);
    Click(again, "cmdUpload");
    EXPECT_EQ(FileContent(std::string(Level) + "LINE.LEV"), "LINE.LEV\r\nmore\r\n");
    EXPECT_TRUE(FileExists("D:\\FIELD\\LINE.998"));
}

TEST_F(FieldFiles, ARefusedFileIsToldAndTheOthersGoOn) {
    QWidget& upload = OpenUpload();
    ChooseSource(upload);
    ChooseTarget(upload, Total);
    PutFile(std::string(Total) + "A.GSI", "older\r\n");
    Person.ExpectMessage("File already exists",
                         "File A.GSI already exists in " + std::string(Total) + " .  Can not upload");
    Click(upload, "cmdUpload");
    EXPECT_EQ(FileContent(std::string(Total) + "A.GSI"), "older\r\n");
    EXPECT_TRUE(FileExists("D:\\FIELD\\A.GSI"));
    EXPECT_TRUE(FileExists(std::string(Total) + "B\xfc"
                                                "ch.GSI"));
    EXPECT_TRUE(
        FileExists("D:\\FIELD\\B\xfc"
                   "ch.999"));
}

TEST_F(FieldFiles, AMissingIndexIsMadeOnlyWhenTheOperatorSaysSo) {
    QWidget& upload = OpenUpload();
    ChooseSource(upload);
    ChooseTarget(upload, Total);
    Drives::DeleteFile(std::string(Total) + "SRV01.IDX");
    const std::string question =
        std::string(Total) + " no SRV*.IDX file exists here.  Wish to create one and continue?";
    Person.ExpectMessage("Missing Survey Index File", question, Answer::No);
    Person.ExpectMessage("No files exist",
                         "No survey index files exist in " + std::string(Total) + " .  Can not upload");
    Click(upload, "cmdUpload");
    EXPECT_THAT(AllFiles(Total), ElementsAre());
    EXPECT_TRUE(FileExists("D:\\FIELD\\A.GSI"));

    Person.ExpectMessage("Missing Survey Index File", question, Answer::Yes);
    Click(upload, "cmdUpload");
    EXPECT_THAT(IndexedNames(std::string(Total) + "SRV01.IDX"), ElementsAre("A        GSI",
                                                                            "B\xdc"
                                                                            "CH     GSI"));
}

TEST_F(FieldFiles, UploadedSourcesAreDeletedAfterAQuestion) {
    QWidget& upload = OpenUpload();
    ChooseSource(upload);
    Person.ExpectMessage("No Files Found", "No *.999 file(s) to delete.");
    Click(upload, "cmdDelete999");
    for (const char* name : {"OLD.999", "OLD.998", "SHORT.99", "ODD.99X", "KEEP.989"})
        PutFile(std::string("D:\\FIELD\\") + name, "x");
    Person.ExpectMessage("Delete *.999 File(s)", "Delete *.999 file(s) from D:\\FIELD\\?", Answer::No);
    PressKey(upload, "cmdDelete999");
    EXPECT_TRUE(FileExists("D:\\FIELD\\OLD.999"));
    Person.ExpectMessage("Delete *.999 File(s)", "Delete *.999 file(s) from D:\\FIELD\\?", Answer::Yes);
    PressKey(upload, "cmdDelete999");
    EXPECT_THAT(AllFiles("D:\\FIELD\\"), testing::UnorderedElementsAre("A.GSI",
                                                                       "B\xc3\xbc"
                                                                       "ch.GSI",
                                                                       "KEEP.989", "LINE.LEV", "NOTES.TXT"));
    Click(upload, "cmdHome");
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "From_path"), "D:\\FIELD\\");
}

TEST_F(FieldFiles, WithFoldersChosenByHandTheTreeIsNeverShown) {
    QWidget& upload = OpenUpload();
    Choose(upload, "mnuManual");
    EXPECT_EQ(TextOf(upload, "lblPathType"), "Manual");
    ChooseSource(upload);
    Person.ExpectFile("Upload Data To ", Total);
    Click(upload, "cmdToBrowse");
    EXPECT_EQ(TextOf(upload, "lblToPath"), Total);
    Click(upload, "cmdUpload");
    EXPECT_TRUE(FileExists(std::string(Total) + "A.GSI"));
    Click(upload, "cmdHome");
    EXPECT_EQ(TextOf(Screen("frmMain"), "sbrMainPanel2"), "Manual");
}

}  // namespace Dorvane
