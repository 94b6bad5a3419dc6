// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/UserDbFiles.h"

#include "core/ProfileStore.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

class UserDbFiles : public InputSite {};

TEST_F(UserDbFiles, AreListedWhenTheyExistCheckedAsTheyWere) {
    PutLines("D:\\A.TXT", {});
    PutLines("D:\\B.BDD", {});
    PutProfile("dv_input.ini", {"[User Database]", "Names1=d:\\a.txt 0", "Names2=D:\\GONE.TXT 1",
                                "Names3=D:\\B.BDD 1", "Names4=D:\\B.BDD"});
    EXPECT_EQ(LoadUserDbList(), (std::vector<ListEntry>{{"D:\\A.TXT", false}, {"D:\\B.BDD", true}}));
}

TEST_F(UserDbFiles, AValueCutAt127CharactersLosesItsFlagAndDropsOut) {
    const std::string path = "D:\\" + std::string(123, 'A');
    PutProfile("dv_input.ini", {"[User Database]", "Names1=" + path + " 1"});
    EXPECT_TRUE(ReadUserFiles().Empty());
}

TEST_F(UserDbFiles, SavingWritesEveryKeyAndOneBlankForTheUnused) {
    PutProfile("dv_input.ini", {"[User Database]", "Names3=D:\\OLD.TXT 1", "[Project]", "Last=D:\\P.GPF"});
    SaveUserDbList({{"D:\\A.TXT", true}, {"D:\\B.BDD", false}});
    EXPECT_EQ(
        FileContent("C:\\WINDOWS\\dv_input.ini"),
        "[User Database]\r\nNames3= \r\nNames1=D:\\A.TXT 1\r\nNames2=D:\\B.BDD 0\r\nNames4= \r\nNames5= \r\n"
        "Names6= \r\nNames7= \r\nNames8= \r\nNames9= \r\nNames10= \r\nNames11= \r\nNames12= \r\nNames13= \r\n"
        "Names14= \r\nNames15= \r\nNames16= \r\n[Project]\r\nLast=D:\\P.GPF\r\n");
}

TEST_F(UserDbFiles, BrowsingAddsTheFileCheckedAndSaves) {
    std::vector<ListEntry> list;
    Desktop.ExpectFile("Open Coordinate File", "D:\\New.txt");
    BrowseUserDbFile(list);
    EXPECT_EQ(list, (std::vector<ListEntry>{{"D:\\New.txt", true}}));
    EXPECT_EQ(IniReadString("dv_input.ini", "User Database", "Names1"), "D:\\New.txt 1");
    EXPECT_EQ(Desktop.Dialogs[0].Filter,
              "All Files (*.*)|*.*|Dbase Files(*.bdd;*.dbs)|*.bdd;*.dbs|Text Files (*.txt)|*.txt|");
}

TEST_F(UserDbFiles, ACancelledDialogChangesNothing) {
    std::vector<ListEntry> list;
    Desktop.ExpectFile("Open Coordinate File", std::nullopt);
    BrowseUserDbFile(list);
    EXPECT_TRUE(list.empty());
}

TEST_F(UserDbFiles, AFileThatIsListedIsToldAndNotAdded) {
    std::vector<ListEntry> list{{"D:\\A.TXT", false}};
    Desktop.ExpectFile("Open Coordinate File", "D:\\a.txt");
    Desktop.ExpectMessage("File Already Seleceted", "Name D:\\a.txt has already been selected!");
    BrowseUserDbFile(list);
    EXPECT_EQ(list.size(), 1u);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
}

TEST_F(UserDbFiles, AFileThatTheProfileWouldLoseIsRefusedWithTheReason) {
    const std::string longest = "D:\\" + std::string(122, 'A');
    const std::string blank = "Its path holds a blank, a comma or a tab";
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"D:\\MY POINTS.TXT", blank},
        {"D:\\MY FOLDER\\A.TXT", blank},
        {"D:\\A,B.TXT", blank},
        {"D:\\A\tB.TXT", blank},
        {longest + "A", "Its path has more than 125 characters"}};
    for (const auto& [file, reason] : refused) {
        std::vector<ListEntry> list;
        Desktop.ExpectFile("Open Coordinate File", file);
        Desktop.ExpectMessage("File Not Added", "File " + file + " can not be added.  " + reason +
                                                    ", and the list of user files would lose it.");
        BrowseUserDbFile(list);
        EXPECT_TRUE(list.empty()) << file;
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    }
    std::vector<ListEntry> list;
    Desktop.ExpectFile("Open Coordinate File", longest);
    BrowseUserDbFile(list);
    EXPECT_EQ(ReadUserFiles(), (List1<std::string>{longest}));
}

TEST_F(UserDbFiles, AFullListAsksForNoFile) {
    std::vector<ListEntry> list(16, ListEntry{"D:\\A.TXT", false});
    Desktop.ExpectMessage("List Full",
                          "Only 16 entries allowed.  You will need to remove something before adding.");
    BrowseUserDbFile(list);
    EXPECT_EQ(list.size(), 16u);
}

TEST_F(UserDbFiles, DeletingRemovesTheEntryAndSaves) {
    std::vector<ListEntry> list{{"D:\\A.TXT", false}, {"D:\\B.TXT", true}};
    SaveUserDbList(list);
    DeleteUserDbFile(list, 0);
    EXPECT_EQ(list, (std::vector<ListEntry>{{"D:\\B.TXT", true}}));
    EXPECT_EQ(IniReadString("dv_input.ini", "User Database", "Names1"), "D:\\B.TXT 1");
    EXPECT_EQ(IniReadString("dv_input.ini", "User Database", "Names2"), "");
    DeleteUserDbFile(list, -1);
    DeleteUserDbFile(list, 1);
    EXPECT_EQ(list.size(), 1u);
}

}  // namespace
}  // namespace Dorvane::Testing
