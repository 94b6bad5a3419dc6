// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BackupRestore.h"

#include "core/basGeneral.h"
#include "database/CoordinateSet.h"
#include "database/basDatabase.h"
#include "tests/database/UpdateSite.h"

namespace Dorvane::Testing {
namespace {

using Files = std::vector<std::pair<std::string, std::string>>;

/// A database whose backup holds P1, and which itself holds P1 twice and P2.
class Restoring : public UpdateSite {
  protected:
    Restoring() {
        PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
        Update3DPoints(North, UpdateFile);
        SetTimeStamp(North + "3DIM.DAT", DateTime{2026, 11, 20, 9, 5, 7});
        Old = Live();
        MakeCoordBackups(North, 3);
        PutLines(UpdateFile, {"11-21-26 SRV12 NET2", PointLine("P1", "101"), PointLine("P2")});
        Update3DPoints(North, UpdateFile);
        New = Live();
    }

    /// The content of the four files, their names behind a prefix.
    Files Live(const std::string& prefix = "") const {
        Files files;
        for (const char* file : {"3DIM.DAT", "3DIM.IDX", "3DIM.LST", "NORTH.REF"})
            files.emplace_back(file, FileContent(North + prefix + file));
        return files;
    }

    void Click(Answer answer = Answer::Yes) {
        Desk.ExpectMessageTitled("Restore Backup", answer);
        if (answer == Answer::Yes)
            Desk.ExpectMessage("Restore Complete", "The backup of NORTH is restored.");
        ClickAlone();
    }
    void ClickAlone() {
        ClickRestore(Form, {[this](const std::string& text) { Status = text; }});
    }

    /// A failure that is reported and changes nothing.
    void ExpectFailure(int error, bool asked, Answer answer = Answer::Ok) {
        const auto before = Picture(North);
        if (asked)
            Desk.ExpectMessageTitled("Restore Backup", Answer::Yes);
        Desk.ExpectMessageTitled("Program Error", answer);
        ClickAlone();
        EXPECT_EQ(LastReport(Desk), std::to_string(error) + " Dorvane-frmDbUpdate-cmdRestore_Click");
        EXPECT_EQ(Picture(North), before);
        EXPECT_EQ(Status, "");
    }

    Files Old;
    Files New;
    std::string Status = "stale";
};

TEST_F(Restoring, AsksWithTheStateThatTheBackupHolds) {
    Desk.ExpectMessage("Restore Backup",
                       "Do you wish to restore the backup of NORTH?\r\n\r\n"
                       "State of : 11/20/2026 9:05:07 AM\r\nPoints : 1\r\n"
                       "Last update : 11-20-26, SRV12, NET1\r\n\r\n"
                       "The present files become the backup.",
                       Answer::No);
    const auto before = Picture(North);
    ClickAlone();
    EXPECT_EQ(Picture(North), before);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Question);
    EXPECT_EQ(Desk.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(Desk.Shown[0].Default, Answer::No);
    EXPECT_EQ(Status, "");
}

TEST_F(Restoring, BringsBackAllFourFilesAndKeepsTheReplacedOnesAsTheBackup) {
    Click();
    EXPECT_EQ(Live(), Old);
    EXPECT_EQ(Live("Backup "), New);
    EXPECT_EQ(Status, "Backup of NORTH restored");
    Drives::Entry data;
    ASSERT_TRUE(Drives::Find(North + "3DIM.DAT", data));
    EXPECT_EQ(data.Modified, (DateTime{2026, 11, 20, 9, 5, 7}));
}

TEST_F(Restoring, IsUndoneByASecondTime) {
    Click();
    Click();
    EXPECT_NE(Desk.Shown[2].Text.find("Points : 2\r\nLast update : 11-21-26, SRV12, NET2"), std::string::npos)
        << Desk.Shown[2].Text;
    EXPECT_EQ(Live(), New);
    EXPECT_EQ(Live("Backup "), Old);
}

TEST_F(Restoring, TellsOfABackupBeforeTheFirstUpdate) {
    WriteCoordNew(North, "NORTH");
    MakeCoordBackups(North, 3);
    Desk.ExpectMessageTitled("Restore Backup", Answer::No);
    ClickAlone();
    ExpectTold("Points : 0\r\nLast update : none\r\n");
}

TEST_F(Restoring, LeavesASoundDatabaseAtEachStepOnBothWays) {
    for (const bool back : {true, false}) {
        const Files& from = back ? New : Old;
        const Files& to = back ? Old : New;
        int steps = 0;
        for (const FileChange& change : RestoringChanges(North)) {
            Drives::WriteFile(change.Path, change.Content);
            ++steps;
            for (const char* prefix : {"", "Backup "}) {
                const std::vector<CoordinateRecord> values = CoordinateSet(North + prefix, 3).All("P1");
                EXPECT_TRUE(values.size() == 1 || values.size() == 2) << change.Path;
            }
            // Until the backups are written, all of the present state stands in its place.
            if (steps <= 4) {
                EXPECT_EQ(Live(), from) << change.Path;
            } else {
                EXPECT_EQ(Live("Backup "), from) << change.Path;
            }
        }
        EXPECT_EQ(steps, 8);
        EXPECT_EQ(Live(), to);
    }
}

TEST_F(Restoring, BringsBackADamagedDatabase) {
    PutFile(North + "3DIM.DAT", "damaged");
    Drives::DeleteFile(North + "3DIM.IDX");
    Click();
    EXPECT_EQ(Live(), Old);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), "damaged");
}

TEST_F(Restoring, RefusesADamagedBackup) {
    PutFile(North + "Backup 3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    ExpectFailure(1101, false);
    ExpectTold("Backup 3DIM.IDX is damaged");
}

TEST_F(Restoring, RefusesADamagedReferenceFileOfTheBackup) {
    PutFile(North + "Backup NORTH.REF", "damaged");
    ExpectFailure(1101, false);
}

TEST_F(Restoring, TellsAMissingBackup) {
    for (const char* file : {"3DIM.DAT", "3DIM.IDX", "3DIM.LST", "NORTH.REF"}) {
        const std::string path = North + "Backup " + file;
        const std::string content = FileContent(path);
        Drives::DeleteFile(path);
        Desk.ExpectMessage("No Backup", "There is no complete backup of NORTH.");
        ClickAlone();
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
        PutFile(path, content);
    }
    EXPECT_EQ(Live(), New);
}

TEST_F(Restoring, RefusesAPathThatIsNoLocation) {
    for (const char* path : {"", "DATABASE\\", "DATABASE\\DAM\\"}) {
        Form.lblDirectory = path;
        Desk.ExpectMessage("Location Incomplete", "Selected location not valid.  Please complete.");
        ClickAlone();
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
    }
}

TEST_F(Restoring, ChangesNothingWithoutPermission) {
    Drives::WriteFile("P:\\DORVANE\\ERROR.LOG", "");
    AsNobody([&] { ExpectFailure(75, true, Answer::Cancel); });
}

TEST_F(Restoring, ChangesNothingOnAFullDisk) {
    const Files backup = Live("Backup ");
    OnSmallDisk(North, 128, [&] {
        for (const auto& [file, content] : New)
            PutFile(North + file, content);
        for (const auto& [file, content] : backup)
            PutFile(North + "Backup " + file, content);
        FillDisk(North);
        ExpectFailure(61, true, Answer::No);
    });
}

}  // namespace
}  // namespace Dorvane::Testing
