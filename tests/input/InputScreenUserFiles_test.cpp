// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::IsEmpty;

// With "User Defined" chosen, as the user files are then at hand.
class InputScreenUserFiles : public InputScreenSite {
  protected:
    frmInput& OpenUserDefined() {
        frmInput& screen = Open();
        ClickItem(screen, "lstCoordDirectorys", "User Defined");
        return screen;
    }

    std::string Key(int number) {
        return IniReadString("dv_input.ini", "User Database", "Names" + std::to_string(number));
    }

    bool IsChecked(int row) { return List("lstUserDBFiles").item(row)->checkState() == Qt::Checked; }

    void Browse(const std::optional<std::string>& file) {
        Desktop.ExpectFile("Open Coordinate File", file);
        Click(*Screen, "cmdBrowse");
    }
};

TEST_F(InputScreenUserFiles, AreAtHandWhileUserDefinedIsChosen) {
    frmInput& screen = OpenUserDefined();
    for (const char* name : {"fraUserDbaseFiles", "lstUserDBFiles", "cmdBrowse", "cmdDelete"})
        EXPECT_TRUE(IsEnabled(screen, name)) << name;
    ClickItem(screen, "lstCoordDirectorys", "DAM\\SOUTH");
    EXPECT_TRUE(IsEnabled(screen, "cmdBrowse"));
    ClickItem(screen, "lstCoordDirectorys", "User Defined");
    for (const char* name : {"fraUserDbaseFiles", "lstUserDBFiles", "cmdBrowse", "cmdDelete"})
        EXPECT_FALSE(IsEnabled(screen, name)) << name;
}

TEST_F(InputScreenUserFiles, OpenWithThoseThatExistCheckedAsTheyWere) {
    PutFile("D:\\A.BDD", "");
    PutFile("D:\\B.TXT", "");
    PutFile("D:\\WITH BLANK.TXT", "");
    const Texts values = {"D:\\A.BDD 1", "D:\\GONE.BDD 1", "D:\\WITH BLANK.TXT 1", "D:\\B.TXT 0"};
    for (std::size_t i = 0; i < values.size(); ++i)
        IniWriteString("dv_input.ini", "User Database", "Names" + std::to_string(i + 1), values[i]);
    EXPECT_EQ(Items(Open(), "lstUserDBFiles"), (Texts{"D:\\A.BDD", "D:\\B.TXT"}));
    EXPECT_TRUE(IsChecked(0));
    EXPECT_FALSE(IsChecked(1));
}

TEST_F(InputScreenUserFiles, AreAddedCheckedAndSavedAtOnce) {
    frmInput& screen = OpenUserDefined();
    Browse("D:\\A.TXT");
    EXPECT_EQ(Desktop.Dialogs.at(0).Filter,
              "All Files (*.*)|*.*|Dbase Files(*.bdd;*.dbs)|*.bdd;*.dbs|Text Files (*.txt)|*.txt|");
    Browse("D:\\\xC9T\xC9&<B>.TXT");
    EXPECT_EQ(Items(screen, "lstUserDBFiles"), (Texts{"D:\\A.TXT", "D:\\\xC9T\xC9&<B>.TXT"}));
    EXPECT_TRUE(IsChecked(1));
    EXPECT_EQ(List("lstUserDBFiles").currentRow(), 1);
    EXPECT_EQ(Key(1), "D:\\A.TXT 1");
    EXPECT_EQ(Key(2), "D:\\\xC9T\xC9&<B>.TXT 1");
    EXPECT_EQ(Key(3), "");
}

TEST_F(InputScreenUserFiles, StayAsTheyWereAfterACancelledDialog) {
    frmInput& screen = OpenUserDefined();
    Browse(std::nullopt);
    EXPECT_THAT(Items(screen, "lstUserDBFiles"), IsEmpty());
    EXPECT_THAT(Desktop.Shown, IsEmpty());
}

TEST_F(InputScreenUserFiles, AreNotAddedTwice) {
    frmInput& screen = OpenUserDefined();
    Browse("D:\\A.TXT");
    Desktop.ExpectFile("Open Coordinate File", "D:\\A.TXT");
    Desktop.ExpectMessage("File Already Seleceted", "Name D:\\A.TXT has already been selected!");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(Items(screen, "lstUserDBFiles"), (Texts{"D:\\A.TXT"}));
}

TEST_F(InputScreenUserFiles, AreSixteenAtMost) {
    for (int i = 1; i <= 16; ++i) {
        const std::string file = "D:\\F" + std::to_string(i) + ".TXT";
        PutFile(file, "");
        IniWriteString("dv_input.ini", "User Database", "Names" + std::to_string(i), file + " 1");
    }
    frmInput& screen = OpenUserDefined();
    Desktop.ExpectMessage("List Full",
                          "Only 16 entries allowed.  You will need to remove something before adding.");
    Click(screen, "cmdBrowse");
    EXPECT_THAT(Desktop.Dialogs, IsEmpty());
    EXPECT_EQ(Items(screen, "lstUserDBFiles").size(), 16U);
}

TEST_F(InputScreenUserFiles, AreTakenOffTheListUnderTheCursor) {
    frmInput& screen = OpenUserDefined();
    Browse("D:\\A.TXT");
    Browse("D:\\B.TXT");
    Browse("D:\\C.TXT");
    ClickItem(screen, "lstUserDBFiles", "D:\\B.TXT");
    Click(screen, "cmdDelete");
    EXPECT_EQ(Items(screen, "lstUserDBFiles"), (Texts{"D:\\A.TXT", "D:\\C.TXT"}));
    EXPECT_EQ(List("lstUserDBFiles").currentRow(), 1);
    EXPECT_EQ(Key(2), "D:\\C.TXT 1");
    EXPECT_EQ(Key(3), "");
    List("lstUserDBFiles").setFocus();
    QTest::keyClick(&List("lstUserDBFiles"), Qt::Key_Delete);
    HandleEvents();
    EXPECT_EQ(Items(screen, "lstUserDBFiles"), (Texts{"D:\\A.TXT"}));
    Click(screen, "cmdDelete");
    Click(screen, "cmdDelete");
    EXPECT_THAT(Items(screen, "lstUserDBFiles"), IsEmpty());
}

TEST_F(InputScreenUserFiles, KeepACheckMarkThatWasTakenAwayWhenOthersComeAndGo) {
    OpenUserDefined();
    Browse("D:\\A.TXT");
    List("lstUserDBFiles").setFocus();
    QTest::keyClick(&List("lstUserDBFiles"), Qt::Key_Space);
    EXPECT_FALSE(IsChecked(0));
    Browse("D:\\B.TXT");
    EXPECT_FALSE(IsChecked(0));
    EXPECT_EQ(Key(1), "D:\\A.TXT 0");
    EXPECT_EQ(Key(2), "D:\\B.TXT 1");
}

TEST_F(InputScreenUserFiles, AreSavedWhenAnInputFileIsCreated) {
    OpenUserDefined();
    Browse("D:\\A.TXT");
    List("lstUserDBFiles").item(0)->setCheckState(Qt::Unchecked);
    Desktop.ExpectMessageTitled("No Observation Data");
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Key(1), "D:\\A.TXT 0");
}

}  // namespace
}  // namespace Dorvane::Testing
