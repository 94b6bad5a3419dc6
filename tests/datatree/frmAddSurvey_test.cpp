// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/frmAddSurvey.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <set>

#include "core/widgets/ScreenText.h"
#include "tests/datatree/DataSite.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

namespace {

using Names = std::vector<std::string>;

class SurveyDialog : public DataSite {
  protected:
    SurveyDialog() {
        UseShippedPictures();
        PutFile(Init("CHOICES.SYS"),
                "DAM      1 Main dam\r\nCALIB    2 Calibrations\r\nWEIR     1 The weir\r\n");
        PutFile(Init("DAM.STR"),
                "DAM      Main dam\r\n\r\nNORTH\r\nSOUTH\r\n\r\nLEVEL\r\nTOTAL\r\n\r\nSRV1\r\nSRV2\r\n"
                "SRV3\r\n");
        PutFile(Init("CALIB.STR"), "CALIB\r\n\r\n\r\n\r\n");
        PutFile(Init("WEIR.STR"), "WEIR     The weir\r\n\r\nCREST\r\n\r\nANGLE\r\n\r\nSRV1\r\n");
        Global().Data_drive = "D:\\";
        MakeFolders("D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\DEEP\\");
        Register("NORTH", "LEVEL", "SRV1");
        Register("NORTH", "TOTAL", "SRV2");
    }
    ~SurveyDialog() override { delete Dialog.data(); }

    static void Register(const std::string& location, const std::string& type, const std::string& epoch) {
        Global().PathRecords.Add({"DAM", "", location, "", type, "", epoch, "", "", "", ""});
    }

    frmAddSurvey& Open(const std::string& directory) {
        delete Dialog.data();
        Ended = false;
        Dialog = new frmAddSurvey;
        QObject::connect(Dialog, &frmAddSurvey::Unloaded, Dialog, [this] {
            Ended = true;
            Answer = Dialog->Answer();
        });
        Dialog->SetDirectory(directory);
        Dialog->ShowModal();
        HandleEvents();
        return *Dialog;
    }
    void ChooseAll(frmAddSurvey& dialog) {
        ClickItem(dialog, "lstRoot", "DAM");
        ClickItem(dialog, "lstLocation", "NORTH");
        ClickItem(dialog, "lstTypeMulti", "LEVEL");
        ClickItem(dialog, "lstEpoch", "SRV3");
    }
    static Names Selected(frmAddSurvey& dialog, const char* list) {
        Names names;
        auto& control = Control<QListWidget>(dialog, list);
        for (int row = 0; row < control.count(); ++row)
            if (control.item(row)->isSelected())
                names.push_back(FromScreen(control.item(row)->text()));
        return names;
    }
    static void Type(frmAddSurvey& dialog, const std::string& history) {
        Control<QLineEdit>(dialog, "txtHistory").setText(ToScreen(history));
    }

    QPointer<frmAddSurvey> Dialog;
    bool Ended = false;
    SurveyAnswer Answer;
};

}  // namespace

TEST_F(SurveyDialog, ShowsItsTitleAndCaptions) {
    frmAddSurvey& dialog = Open("");
    EXPECT_EQ(TextOf(dialog), "Select Survey to Add");
    EXPECT_EQ(TextOf(dialog, "lblRootTitle"), "Root :");
    EXPECT_EQ(TextOf(dialog, "lblLocationTitle"), "Location :");
    EXPECT_EQ(TextOf(dialog, "lblTypeTitle"), "Data Type :");
    EXPECT_EQ(TextOf(dialog, "lblEpochTitle"), "Epoch :");
    EXPECT_EQ(TextOf(dialog, "lblHistoryTitle"), "History :");
    EXPECT_EQ(TextOf(dialog, "cmdOK"), "OK - Add new Directory");
    EXPECT_EQ(TextOf(dialog, "cmdCancel"), "Cancel");
}

TEST_F(SurveyDialog, HasToolTipsAndMnemonicsThatDoNotCollide) {
    frmAddSurvey& dialog = Open("");
    std::set<QChar> mnemonics;
    QStringList captions;
    for (const char* name : {"cmdOK", "cmdCancel"}) {
        EXPECT_FALSE(Control<QPushButton>(dialog, name).toolTip().isEmpty());
        captions.append(Control<QPushButton>(dialog, name).text());
    }
    for (const char* name :
         {"lblRootTitle", "lblLocationTitle", "lblTypeTitle", "lblEpochTitle", "lblHistoryTitle"})
        captions.append(Control<QLabel>(dialog, name).text());
    for (const QString& caption : captions)
        EXPECT_TRUE(mnemonics.insert(caption.at(caption.indexOf(QLatin1Char('&')) + 1).toUpper()).second)
            << caption.toStdString();
}

TEST_F(SurveyDialog, OffersTheSystemsOfKind1AndPreselectsNothingWithoutAFolder) {
    for (const char* folder : {"", "D:\\", "D:\\GONE\\DAM\\"}) {
        frmAddSurvey& dialog = Open(folder);
        EXPECT_EQ(Items(dialog, "lstRoot"), (Names{"DAM", "WEIR"})) << folder;
        EXPECT_EQ(TextOf(dialog, "lblRoot"), "");
        EXPECT_TRUE(Selected(dialog, "lstRoot").empty());
        EXPECT_TRUE(Items(dialog, "lstLocation").empty());
        EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
        EXPECT_EQ(dialog.focusWidget(), &Control<QListWidget>(dialog, "lstRoot"));
    }
}

TEST_F(SurveyDialog, PreselectsSystemAndLocationByTheFolder) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\LEVEL\\SRV1\\");
    EXPECT_EQ(TextOf(dialog, "lblDirectory"), "D:\\DAM\\NORTH\\LEVEL\\SRV1\\");
    EXPECT_EQ(TextOf(dialog, "lblRoot"), "DAM");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "NORTH");
    EXPECT_EQ(Selected(dialog, "lstRoot"), (Names{"DAM"}));
    EXPECT_EQ(Selected(dialog, "lstLocation"), (Names{"NORTH"}));
    EXPECT_EQ(Items(dialog, "lstTypeMulti"), (Names{"LEVEL", "TOTAL"}));
    EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
    EXPECT_EQ(dialog.focusWidget(), &Control<QListWidget>(dialog, "lstTypeMulti"));
    Open("D:\\DAM\\");
    EXPECT_EQ(TextOf(*Dialog, "lblLocation"), "");
    EXPECT_EQ(Dialog->focusWidget(), &Control<QListWidget>(*Dialog, "lstLocation"));
}

TEST_F(SurveyDialog, FindsNoSystemUnderADataDriveThatIsAFolder) {
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\");
    frmAddSurvey& dialog = Open("D:\\TARVEX\\DAM\\NORTH\\");
    EXPECT_EQ(TextOf(dialog, "lblRoot"), "TARVEX");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "DAM");
    EXPECT_TRUE(Items(dialog, "lstLocation").empty());
    ClickItem(dialog, "lstRoot", "DAM");
    EXPECT_EQ(Items(dialog, "lstLocation"), (Names{"NORTH", "SOUTH"}));
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "");
}

TEST_F(SurveyDialog, OffersTheSystemsForAFolderOfSixParts) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\");
    EXPECT_EQ(Items(dialog, "lstRoot"), (Names{"DAM", "WEIR"}));
    EXPECT_TRUE(Items(dialog, "lstLocation").empty());
    ClickItem(dialog, "lstRoot", "DAM");
    EXPECT_EQ(Items(dialog, "lstLocation"), (Names{"NORTH", "SOUTH"}));
}

TEST_F(SurveyDialog, TakesAHistoryAsLongAsItIsReadBack) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ChooseAll(dialog);
    auto& history = Control<QLineEdit>(dialog, "txtHistory");
    QTest::keyClicks(&history, QString(59, 'a') + "bc");
    EXPECT_EQ(history.text(), QString(59, 'a') + "b");
}

TEST_F(SurveyDialog, TakesLineEndsFromTheClipboardForBlanks) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ChooseAll(dialog);
    QApplication::clipboard()->setText("after\r\nthe\nflood\tof May");
    Control<QLineEdit>(dialog, "txtHistory").paste();
    Click(dialog, "cmdOK");
    EXPECT_EQ(Answer.NewHistory, "after  the flood of May");
}

TEST_F(SurveyDialog, ChoosesAnewBelowAnotherSystem) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ChooseAll(dialog);
    ClickItem(dialog, "lstRoot", "WEIR");
    EXPECT_EQ(TextOf(dialog, "lblRoot"), "WEIR");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "");
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "");
    EXPECT_EQ(Items(dialog, "lstLocation"), (Names{"CREST"}));
    EXPECT_EQ(Items(dialog, "lstTypeMulti"), (Names{"ANGLE"}));
    EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
}

TEST_F(SurveyDialog, TakesAClickOnTheChosenSystemForAClick) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ClickItem(dialog, "lstRoot", "DAM");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "");
    EXPECT_EQ(Items(dialog, "lstLocation"), (Names{"NORTH", "SOUTH"}));
}

TEST_F(SurveyDialog, UnselectsTypesAndEpochForAnotherLocation) {
    frmAddSurvey& dialog = Open("");
    ChooseAll(dialog);
    ClickItem(dialog, "lstLocation", "SOUTH");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "SOUTH");
    EXPECT_TRUE(Selected(dialog, "lstTypeMulti").empty());
    EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "");
}

TEST_F(SurveyDialog, OffersTheEpochsThatNoneOfTheChosenTypesHas) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Names{"SRV2", "SRV3"}));
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Names{"SRV3"}));
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Names{"SRV1", "SRV3"}));
}

TEST_F(SurveyDialog, OffersAnEpochThatOnlyAnotherLocationHas) {
    frmAddSurvey& dialog = Open("D:\\DAM\\SOUTH\\");
    ClickItem(dialog, "lstRoot", "DAM");
    ClickItem(dialog, "lstLocation", "SOUTH");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Names{"SRV1", "SRV2", "SRV3"}));
}

TEST_F(SurveyDialog, IsDrivenByTheKeyboardAlone) {
    frmAddSurvey& dialog = Open("");
    const auto press = [&](const char* list, Qt::Key key) {
        auto& control = Control<QListWidget>(dialog, list);
        control.setFocus();
        QTest::keyClick(&control, key);
        HandleEvents();
    };
    press("lstRoot", Qt::Key_Space);
    EXPECT_EQ(TextOf(dialog, "lblRoot"), "DAM");
    press("lstLocation", Qt::Key_Down);
    press("lstLocation", Qt::Key_Up);
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "NORTH");
    press("lstTypeMulti", Qt::Key_Space);
    EXPECT_EQ(Selected(dialog, "lstTypeMulti"), (Names{"LEVEL"}));
    press("lstEpoch", Qt::Key_Down);
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "SRV3");
    Type(dialog, "Usage");
    QTest::keyClick(&Control<QLineEdit>(dialog, "txtHistory"), Qt::Key_Return);
    HandleEvents();
    EXPECT_EQ(Answer, (SurveyAnswer{"DAM", "NORTH", "LEVEL ", "SRV3", "Usage"}));
}

TEST_F(SurveyDialog, StaysWhileANameIsMissing) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    Desk.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Desk.Shown.at(0).Picture, Icon::Information);
}

TEST_F(SurveyDialog, AsksForAHistoryAndStaysOnYes) {
    frmAddSurvey& dialog = Open("");
    ChooseAll(dialog);
    Desk.ExpectMessage("No History Information",
                       "No History information entered.  Do you wish to enter something?", Answer::Yes);
    Click(dialog, "cmdOK");
    EXPECT_FALSE(Ended);
    EXPECT_EQ(dialog.Answer(), SurveyAnswer());
    Desk.ExpectMessageTitled("No History Information", Answer::No);
    Click(dialog, "cmdOK");
    EXPECT_TRUE(Ended);
    EXPECT_TRUE(Dialog.isNull());
    EXPECT_EQ(Answer, (SurveyAnswer{"DAM", "NORTH", "LEVEL ", "SRV3", ""}));
}

TEST_F(SurveyDialog, AnswersTheChosenTypesInTheirOrderEachWithABlank) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    ClickItem(dialog, "lstEpoch", "SRV3");
    Type(dialog, "Apr\xE8s <b>R&D</b>");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Answer, (SurveyAnswer{"DAM", "NORTH", "LEVEL TOTAL ", "SRV3", "Apr\xE8s <b>R&D</b>"}));
}

TEST_F(SurveyDialog, DoesNotAskForAType) {
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    ClickItem(dialog, "lstEpoch", "SRV1");
    Type(dialog, "Usage");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Answer, (SurveyAnswer{"DAM", "NORTH", "", "SRV1", "Usage"}));
}

TEST_F(SurveyDialog, AnswersFiveEmptyTextsOnCancelEscapeAndTheWindowsOwnButton) {
    for (int way = 0; way < 3; ++way) {
        frmAddSurvey& dialog = Open("");
        ChooseAll(dialog);
        Answer = {"X", "X", "X", "X", "X"};
        if (way == 0)
            Click(dialog, "cmdCancel");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
        HandleEvents();
        EXPECT_TRUE(Ended) << way;
        EXPECT_EQ(Answer, SurveyAnswer()) << way;
    }
}

TEST_F(SurveyDialog, ShowsNamesWithAccentsAndMarksAsTheyStand) {
    PutFile(Init("WEIR.STR"), "WEIR     The weir\r\n\r\n\xC9T\xC9\r\n\r\nR&D\r\n<B>\r\n\r\nSRV1\r\n");
    frmAddSurvey& dialog = Open("");
    ClickItem(dialog, "lstRoot", "WEIR");
    ClickItem(dialog, "lstLocation", "\xC9T\xC9");
    EXPECT_EQ(TextOf(dialog, "lblLocation"), "\xC9T\xC9");
    EXPECT_EQ(Items(dialog, "lstTypeMulti"), (Names{"R&D", "<B>"}));
    ClickItem(dialog, "lstTypeMulti", "R&D");
    ClickItem(dialog, "lstEpoch", "SRV1");
    Type(dialog, "x");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Answer, (SurveyAnswer{"WEIR", "\xC9T\xC9", "R&D ", "SRV1", "x"}));
}

TEST_F(SurveyDialog, OpensWithADamagedStructureFileAfterTheReport) {
    PutFile(Init("DAM.STR"), std::string("\0\xFF\x01", 3));
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    frmAddSurvey& dialog = Open("D:\\DAM\\NORTH\\");
    EXPECT_EQ(Items(dialog, "lstRoot"), (Names{"DAM", "WEIR"}));
    ClickItem(dialog, "lstRoot", "WEIR");
    EXPECT_EQ(Items(dialog, "lstLocation"), (Names{"CREST"}));
}

TEST_F(SurveyDialog, SaysInThePlaceOfAnEmptyListWhereItsNamesAreMade) {
    PutFile(Init("CHOICES.SYS"), "");
    EXPECT_THAT(TextOf(Open(""), "lblEmptylstRoot"), testing::HasSubstr("Edit > Data Structures"));
    EXPECT_TRUE(IsShown(*Dialog, "lblEmptylstRoot"));
    EXPECT_FALSE(IsShown(*Dialog, "lblEmptylstLocation"));
    PutFile(Init("CHOICES.SYS"), "DAM      1 Main dam\r\nWEIR     1 The weir\r\n");
    PutFile(Init("WEIR.STR"), "WEIR     The weir\r\n\r\n\r\n\r\nSRV1\r\n");
    frmAddSurvey& dialog = Open("");
    EXPECT_FALSE(IsShown(dialog, "lblEmptylstRoot"));
    ClickItem(dialog, "lstRoot", "WEIR");
    EXPECT_EQ(TextOf(dialog, "lblEmptylstLocation"),
              "WEIR has no locations.  Enter them on the home menu under Edit > Data Structures.");
    EXPECT_TRUE(IsShown(dialog, "lblEmptylstTypeMulti"));
    EXPECT_TRUE(Items(dialog, "lstLocation").empty());
    ClickItem(dialog, "lstRoot", "DAM");
    for (const char* note : {"lblEmptylstLocation", "lblEmptylstTypeMulti", "lblEmptylstEpoch"})
        EXPECT_FALSE(IsShown(dialog, note)) << note;
    ClickItem(dialog, "lstLocation", "NORTH");
    Register("NORTH", "LEVEL", "SRV2");
    Register("NORTH", "LEVEL", "SRV3");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_THAT(TextOf(dialog, "lblEmptylstEpoch"), testing::StartsWith("All epochs of DAM are used here"));
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_FALSE(IsShown(dialog, "lblEmptylstEpoch"));
}

}  // namespace Dorvane::Testing
