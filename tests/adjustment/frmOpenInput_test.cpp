// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/frmOpenInput.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "core/Drives.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

const Texts Skeleton = {"[Stations]", "[Points]",   "[Tracker]", "[Total]",
                        "[Angle]",    "[Distance]", "[Height]",  "[Gyro]"};
constexpr const char* Lists[] = {"lstStations", "lstPoints",   "lstTracker", "lstTotal",
                                 "lstAngle",    "lstDistance", "lstHeight",  "lstGyro"};

struct frmOpenInputTest : testing::Test {
    frmOpenInputTest() {
        UseShippedPictures();
        PutFile(Net, "");
        PutFile("D:\\ADJ\\NET_v02.INP", "");
        PutLines("D:\\ADJ\\NET.VER", Skeleton);
    }
    ~frmOpenInputTest() override {
        if (!Screen.isNull())
            Screen->Unload();
        HandleEvents();
    }

    frmOpenInput& Open(const std::string& version, const std::string& input = "D:\\ADJ\\NET.INP") {
        Screen = new frmOpenInput;
        Screen->SetVersion(version);
        Screen->SetDirectory(input);
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }

    static void PickVersion(QWidget& screen, int entry) {
        auto& versions = Control<QComboBox>(screen, "cmbVersion");
        QTest::keyClick(&versions, Qt::Key_Home);
        for (int i = 1; i < entry; ++i)
            QTest::keyClick(&versions, Qt::Key_Down);
        HandleEvents();
    }
    static std::string Chosen(QWidget& screen) {
        return Control<QComboBox>(screen, "cmbVersion").currentText().toStdString();
    }
    static void ExpectEmptyLists(QWidget& screen) {
        for (const char* list : Lists)
            EXPECT_THAT(Items(screen, list), IsEmpty()) << list;
    }
    void ExpectNoNote() {
        Desktop.ExpectMessage("Version File Not Found",
                              "Version file does not exists.  Can not display version differences.");
    }

    const std::string Net = "D:\\ADJ\\NET.INP";
    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<frmOpenInput> Screen;
};

TEST_F(frmOpenInputTest, HasItsCaptions) {
    frmOpenInput& screen = Open("Master");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"fraRemovedData", "Removed Stations, Points, and Observations"},
        {"lblMasterTitle", "Master :"},
        {"lblMaster", "NET.INP"},
        {"lblPathTitle", "Path :"},
        {"lblPath", "D:\\ADJ\\"},
        {"lblVersionTitle", "Version :"},
        {"lblCommentTitle", "Comments :"},
        {"lblComment", ""},
        {"lblStationsTitle", "Stations"},
        {"lblPointsTitle", "Points"},
        {"lblTrackerTitle", "Tracker Obs"},
        {"lblTotalTitle", "Total Station Obs"},
        {"lblAngleTitle", "Angle Obs"},
        {"lblDistanceTitle", "Distance Obs"},
        {"lblHeightTitle", "Height Obs"},
        {"lblGyroTitle", "Gyro Obs"},
        {"cmdOK", "OK"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    EXPECT_FALSE(IsShown(screen, "lblVersion"));
    EXPECT_FALSE(IsShown(screen, "lblDirectory"));
    EXPECT_EQ(TextOf(screen, "lblVersion"), "Master");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Net);
    EXPECT_TRUE(screen.isModal());
    EXPECT_EQ(screen.focusWidget(), screen.findChild<QComboBox*>("cmbVersion"));
}

TEST_F(frmOpenInputTest, OpensOnTheVersionOfTheCallingScreen) {
    PutLines("D:\\ADJ\\NET_v02.VER",
             {"[Stations]", "ST1", "ST2", "[Points]", "P1", "[Tracker]", "T", "[Total]", "O", "[Angle]", "A",
              "[Distance]", "D", "[Height]", "H", "[Gyro]", "G"});
    frmOpenInput& screen = Open("Version 02");
    EXPECT_EQ(Chosen(screen), "Version 02");
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("ST1", "ST2"));
    const char* const entries[] = {"P1", "T", "O", "A", "D", "H", "G"};
    for (int i = 1; i < 8; ++i)
        EXPECT_THAT(Items(screen, Lists[i]), ElementsAre(entries[i - 1]));
}

TEST_F(frmOpenInputTest, ShowsTheEmptySkeletonAsEightEmptyLists) {
    frmOpenInput& screen = Open("Master");
    EXPECT_EQ(Chosen(screen), "Master");
    ExpectEmptyLists(screen);
}

TEST_F(frmOpenInputTest, TellsOfAMissingNoteAndShowsTheMastersAgain) {
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST1", "[Points]"});
    frmOpenInput& screen = Open("Master");
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("ST1"));
    ExpectNoNote();
    Desktop.OnMessage = [&] { ExpectEmptyLists(screen); };
    PickVersion(screen, 2);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    ExpectEmptyLists(screen);
    PickVersion(screen, 1);
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("ST1"));
}

TEST_F(frmOpenInputTest, OpensOnAVersionWithoutNoteWithTheMessage) {
    ExpectNoNote();
    frmOpenInput& screen = Open("Version 02");
    EXPECT_EQ(Chosen(screen), "Version 02");
    EXPECT_TRUE(screen.isVisible());
    ExpectEmptyLists(screen);
}

TEST_F(frmOpenInputTest, SelectsNothingWhereTheVersionIsNotListed) {
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST1"});
    frmOpenInput& screen = Open("Version 05");
    EXPECT_EQ(Chosen(screen), "");
    EXPECT_EQ(Control<QComboBox>(screen, "cmbVersion").count(), 2);
    ExpectEmptyLists(screen);
    PickVersion(screen, 1);
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("ST1"));
}

TEST_F(frmOpenInputTest, FindsTheNoteByTwoDigits) {
    PutFile("D:\\ADJ\\NET_v07.INP", "");
    PutLines("D:\\ADJ\\NET_v07.VER", {"[Stations]", "SEVEN"});
    frmOpenInput& screen = Open("Version 07");
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("SEVEN"));
}

TEST_F(frmOpenInputTest, EndsACutNoteInTheListItWasReading) {
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST1", "[Points]", "P1", "[Total]"});
    frmOpenInput& screen = Open("Master");
    EXPECT_THAT(Items(screen, "lstPoints"), ElementsAre("P1", "[Total]"));
    EXPECT_THAT(Items(screen, "lstTracker"), IsEmpty());
    PutFile("D:\\ADJ\\NET.VER", "");
    PickVersion(screen, 1);
}

TEST_F(frmOpenInputTest, ShowsBinaryNotesAsTheyStand) {
    PutFile("D:\\ADJ\\NET.VER", std::string("\xFF\xFE\r\n\x00\x01\x1A\x81 \xE9\r\n[Points]\r\n<b>&\r\n", 28));
    frmOpenInput& screen = Open("Master");
    EXPECT_EQ(Items(screen, "lstStations").size(), 1U);
    EXPECT_THAT(Items(screen, "lstPoints"), ElementsAre("<b>&"));
}

TEST_F(frmOpenInputTest, ShowsANoteOfAMillionCharactersInOneLine) {
    PutFile("D:\\ADJ\\NET.VER", "[Stations]\r\n" + std::string(1000000, 'x') + "\r\n[Points]\r\nP1\r\n");
    frmOpenInput& screen = Open("Master");
    screen.grab();
    EXPECT_EQ(Items(screen, "lstStations")[0].size(), 1000000U);
    EXPECT_THAT(Items(screen, "lstPoints"), ElementsAre("P1"));
}

TEST_F(frmOpenInputTest, ShowsAsManyEntriesAsAListHolds) {
    Texts lines = {"[Stations]"};
    lines.resize(32768, "ST1 P1 OBS");
    PutLines("D:\\ADJ\\NET.VER", lines);
    frmOpenInput& screen = Open("Master");
    screen.grab();
    EXPECT_EQ(Control<QListWidget>(screen, "lstStations").count(), 32767);
}

TEST_F(frmOpenInputTest, ReportsANoteThatMayNotBeRead) {
    InFreshProcess([&] {
        std::filesystem::permissions(Drives::HostPath("D:\\ADJ\\NET.VER"), std::filesystem::perms::none);
        AsNobody([&] {
            ScriptedDesktop desktop;
            desktop.ExpectMessageTitled("Program Error");
            frmOpenInput& screen = Open("Master");
            EXPECT_THAT(desktop.Shown[0].Text, HasSubstr("-basOpenInput-ReadVersionFile"));
            ExpectEmptyLists(screen);
            EXPECT_TRUE(screen.isVisible());
        });
    });
}

TEST_F(frmOpenInputTest, GoesOnWhereAllVanished) {
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST1"});
    frmOpenInput& screen = Open("Master");
    std::filesystem::remove_all(Drives::HostPath("D:\\ADJ\\"));
    ExpectNoNote();
    PickVersion(screen, 2);
    ExpectEmptyLists(screen);
    EXPECT_EQ(Control<QComboBox>(screen, "cmbVersion").count(), 2);
}

TEST_F(frmOpenInputTest, ShowsAccentsAndMarkupAsTheyStand) {
    const std::string folder = "D:\\D\xE9p\xF4t & x\\";
    PutFile(folder + "R\xE9s&i.INP", "");
    PutLines(folder + "R\xE9s&i.VER", {"[Stations]", "\xC9toile & <b>"});
    frmOpenInput& screen = Open("Master", folder + "R\xE9s&i.INP");
    EXPECT_EQ(TextOf(screen, "lblPath"), folder);
    EXPECT_EQ(TextOf(screen, "lblMaster"), "R\xE9s&i.INP");
    EXPECT_EQ(Control<QLabel>(screen, "lblMaster").textFormat(), Qt::PlainText);
    EXPECT_THAT(Items(screen, "lstStations"), ElementsAre("\xC9toile & <b>"));
}

TEST_F(frmOpenInputTest, EndsByItsButtonReturnEscapeAndItsWindowButton) {
    const std::vector<std::function<void(frmOpenInput&)>> ways = {
        [](frmOpenInput& screen) { Click(screen, "cmdOK"); },
        [](frmOpenInput& screen) { QTest::keyClick(&screen, Qt::Key_Return); },
        [](frmOpenInput& screen) { QTest::keyClick(&screen, Qt::Key_Escape); },
        [](frmOpenInput& screen) { screen.close(); }};
    for (const auto& end : ways) {
        frmOpenInput& screen = Open("Master");
        int ends = 0;
        QObject::connect(&screen, &frmOpenInput::Unloaded, &screen, [&] { ++ends; });
        end(screen);
        HandleEvents();
        EXPECT_EQ(ends, 1);
        EXPECT_TRUE(Screen.isNull());
    }
}

TEST_F(frmOpenInputTest, ChangesNoFile) {
    const Texts before = AllFiles("D:\\");
    frmOpenInput& screen = Open("Master");
    ExpectNoNote();
    PickVersion(screen, 2);
    Click(screen, "cmdOK");
    EXPECT_EQ(AllFiles("D:\\"), before);
}

}  // namespace
}  // namespace Dorvane::Testing
