// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/DriveEdit.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/DriveLinks.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

// What the editor of the drive letters knows of them, without its window.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct DriveLetters : testing::Test {
    DriveLetters() {
        Site.LayOut();
        std::filesystem::create_directory(Survey);
        Drives::SetLink({'E', Survey});
        Edit = OpenDrives();
    }

    DriveLine& Line(const std::string& letter) {
        return *std::find_if(Edit.Lines.begin(), Edit.Lines.end(),
                             [&](const DriveLine& line) { return line.Letter == letter; });
    }
    void Remove(const std::string& letter) {
        std::erase_if(Edit.Lines, [&](const DriveLine& line) { return line.Letter == letter; });
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    std::string Survey = Site.HostFolder() + "survey";
    DriveEdit Edit;
};

}  // namespace

TEST_F(DriveLetters, AreReadWithTheirFolders) {
    EXPECT_EQ(Edit.Folder, Global().DrivesFolder);
    EXPECT_EQ(Line("E").Folder, Survey);
    EXPECT_EQ(Line("Z").Folder, "/");
    EXPECT_THAT(DriveProblems(Edit), IsEmpty());
    EXPECT_THAT(DriveWarnings(Edit), IsEmpty());
    EXPECT_EQ(FreeLetter(Edit.Lines), "F");
    EXPECT_EQ(FreeLetter({}), "D");
}

TEST_F(DriveLetters, AreAddedChangedAndRemoved) {
    std::filesystem::create_directory(Survey + "/new");
    Line("E").Folder = Survey + "/new";
    Edit.Lines.push_back({"F", Survey});
    EXPECT_THAT(DriveProblems(Edit), IsEmpty());
    EXPECT_THAT(DriveWarnings(Edit), IsEmpty());
    EXPECT_EQ(SaveDrives(Edit), "");
    EXPECT_EQ(Drives::HostPath("E:\\A"), Global().DrivesFolder + "e:/A");
    EXPECT_EQ(OpenDrives().Former, Edit.Former);
    EXPECT_EQ(Line("E").Folder, Survey + "/new");
    EXPECT_EQ(Line("F").Folder, Survey);
    Remove("E");
    EXPECT_EQ(SaveDrives(Edit), "");
    EXPECT_THAT(Drives::DriveLetters(), "CDFPZ");
    EXPECT_TRUE(std::filesystem::exists(Survey + "/new"));
}

TEST_F(DriveLetters, LeadToFoldersThatExist) {
    Edit.Lines.push_back({"F", Survey + "/gone"});
    Edit.Lines.push_back({"G", ""});
    Edit.Lines.push_back({"H", "D:\\TARVEX"});
    Edit.Lines.push_back({"", Survey});
    Edit.Lines.push_back({"7", Survey});
    PutFile("D:\\FILE.TXT", "x");
    Edit.Lines.push_back({"I", Global().DrivesFolder + "d:/FILE.TXT"});
    EXPECT_THAT(DriveProblems(Edit),
                ElementsAre("F: " + Survey + "/gone is no folder that exists.", "G: leads to no folder.",
                            "H: has to lead to a folder of this computer, whose name begins with /.",
                            "A line has no letter.", "7 is no letter from A to Z.",
                            HasSubstr("FILE.TXT is no folder that exists.")));
}

TEST_F(DriveLetters, StandOnceInTheList) {
    Edit.Lines.push_back({"E", "/tmp"});
    EXPECT_THAT(DriveProblems(Edit), ElementsAre("E: stands there twice."));
}

TEST_F(DriveLetters, StayWhereTheirFoldersAreGone) {
    std::filesystem::remove(Survey);
    Edit = OpenDrives();
    EXPECT_EQ(StateOfDriveFolder(Line("E").Folder), "missing");
    EXPECT_THAT(DriveProblems(Edit), IsEmpty());
    Line("E").Folder += "/x";
    EXPECT_THAT(DriveProblems(Edit), ElementsAre(HasSubstr("is no folder that exists")));
}

TEST_F(DriveLetters, CAndZStayAsTheyAre) {
    Remove("C");
    Line("Z").Folder = Survey;
    EXPECT_THAT(DriveProblems(Edit), ElementsAre("C: holds the profile files and has to stay as it is.",
                                                 "Z: is the whole computer and has to stay as it is."));
}

TEST_F(DriveLetters, InUseAreNotTakenAwayInSilence) {
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Data_drive", "e:\\TARVEX\\");
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Coord_path", "E:\\COORD\\");
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "P:\\BIN\\");
    Line("E").Folder = "/tmp";
    EXPECT_THAT(DriveWarnings(Edit),
                ElementsAre("E: is in use by Data_drive, Coord_path and would lead elsewhere."));
    Remove("E");
    Remove("P");
    EXPECT_THAT(DriveWarnings(Edit),
                ElementsAre("E: is in use by Data_drive, Coord_path and would be removed.",
                            "P: is in use by the general editor and would be removed."));
}

TEST_F(DriveLetters, TellAFolderThatCannotBeWritten) {
    EXPECT_EQ(StateOfDriveFolder(Survey), "may be written");
    std::filesystem::permissions(Survey, std::filesystem::perms(0755));
    AsNobody([this] {
        EXPECT_EQ(StateOfDriveFolder(Survey), "read only");
        Edit.Lines.push_back({"F", Survey});
        EXPECT_THAT(DriveWarnings(Edit), ElementsAre("F: " + Survey + " may be read but not written."));
    });
}

TEST_F(DriveLetters, ThatAnotherProgramChangedAreNotTouched) {
    Edit.Lines.push_back({"F", Survey});
    Drives::SetLink({'G', "/tmp"});
    EXPECT_EQ(SaveDrives(Edit), "The drive letters were changed by another program in the meantime.");
    EXPECT_EQ(Drives::DriveLetters(), "CDEGPZ");
}

TEST_F(DriveLetters, AreChosenByDrivePathsAndKeptAsHostFolders) {
    EXPECT_EQ(HostFolderOf("E:\\"), std::filesystem::weakly_canonical(Survey).string());
    EXPECT_EQ(HostFolderOf("Z:\\"), "/");
    EXPECT_EQ(DriveFolderOf("/srv/survey/"), "Z:\\srv\\survey\\");
    EXPECT_EQ(DriveFolderOf("/"), "Z:\\");
    EXPECT_EQ(DriveFolderOf(""), "Z:\\");
}

}  // namespace Dorvane::Testing
