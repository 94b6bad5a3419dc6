// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/frmObsWeights.h"

#include <QCheckBox>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

#include "core/Drives.h"
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::ElementsAre;

class FrmObsWeights : public InputScreenSite {
  protected:
    ~FrmObsWeights() override {
        if (!Dialog.isNull())
            Dialog->Unload();
        HandleEvents();
    }

    frmObsWeights& OpenDialog() {
        Dialog = new frmObsWeights;
        QObject::connect(Dialog, &frmObsWeights::Unloaded, Dialog, [this] { Saved = Dialog->Saved(); });
        Dialog->ShowModal();
        HandleEvents();
        return *Dialog;
    }

    QTabWidget& Tabs() { return Control<QTabWidget>(*Dialog, "sstabWeights"); }
    QWidget& Page(int number) { return *Tabs().widget(number - 1); }

    /// The numbers of the fields that are shown, those that are not available in brackets.
    std::string Fields(int page) {
        std::string numbers;
        for (int i = 1; i <= 5; ++i) {
            const std::string value = "txtValue" + std::to_string(i);
            const std::string title = "lblTitle" + std::to_string(i);
            auto& field = Control<QWidget>(Page(page), value.c_str());
            auto& label = Control<QWidget>(Page(page), title.c_str());
            EXPECT_EQ(field.isHidden(), label.isHidden());
            EXPECT_EQ(field.isEnabledTo(&Page(page)), label.isEnabledTo(&Page(page)));
            if (field.isHidden())
                continue;
            const std::string number = std::to_string(i);
            numbers += field.isEnabledTo(&Page(page)) ? number : "(" + number + ")";
        }
        return numbers;
    }

    void ClickLinear(int page) {
        Tabs().setCurrentIndex(page - 1);
        Click(Page(page), "chkLinear");
    }

    static std::string Key(const char* section, const char* key) {
        return IniReadString("dv_input.ini", section, key);
    }

    QPointer<frmObsWeights> Dialog;
    std::optional<bool> Saved;
};

TEST_F(FrmObsWeights, HasItsCaptionsAndATabPerInputType) {
    frmObsWeights& dialog = OpenDialog();
    EXPECT_EQ(TextOf(dialog), "Observation Weights");
    EXPECT_EQ(TextOf(dialog, "lblUnits"),
              "Observation Weight Units : Angles are in Gons, Distances in Meters");
    EXPECT_EQ(TextOf(dialog, "cmdOK"), "OK - Save Changes");
    EXPECT_EQ(TextOf(dialog, "cmdCancel"), "Cancel - Do not Save");
    ASSERT_EQ(Tabs().count(), 5);
    EXPECT_EQ(Tabs().tabText(0), QLatin1String("Laser"));
    EXPECT_EQ(Tabs().tabText(4), QLatin1String("Distances"));
    EXPECT_FALSE(Tabs().tabIcon(0).isNull());
    EXPECT_TRUE(dialog.isModal());
}

TEST_F(FrmObsWeights, HasTheTitlesAndValuesOfEachKind) {
    OpenDialog();
    const std::vector<std::pair<const char*, std::string>> texts = {
        {"lblTitle1", "Horiz Angle"},      {"txtValue1", "0.0005"},
        {"lblTitle2", "Zenith Angle"},     {"txtValue2", "0.0006"},
        {"lblTitle3", "Distance"},         {"txtValue3", "0.0001"},
        {"lblTitle4", "Horizontal Error"}, {"txtValue4", "0"},
        {"lblTitle5", "Zenith Error"},     {"chkLinear", "Calculate Angular Weights"}};
    for (const auto& [name, text] : texts)
        EXPECT_EQ(TextOf(Page(1), name), text) << name;
    EXPECT_EQ(TextOf(Page(3), "lblTitle1"), "Height Diff");
    EXPECT_EQ(TextOf(Page(3), "txtValue1"), "0.0002");
    EXPECT_EQ(TextOf(Page(5), "lblTitle1"), "Distance");
    EXPECT_EQ(Fields(1), "123(4)(5)");
    EXPECT_EQ(Fields(2), "123(4)(5)");
    EXPECT_EQ(Fields(3), "1");
    EXPECT_EQ(Fields(4), "12");
    EXPECT_EQ(Fields(5), "1");
    EXPECT_FALSE(Control<QWidget>(Page(2), "chkLinear").isHidden());
    EXPECT_TRUE(Control<QWidget>(Page(4), "chkLinear").isHidden());
}

TEST_F(FrmObsWeights, TheBoxChangesWhatIsAvailableAndATotalTabOpensOtherwise) {
    IniWriteString("dv_input.ini", "Tracker", "LinAngle1", "1");
    IniWriteString("dv_input.ini", "Total", "LinAngle1", "1");
    OpenDialog();
    EXPECT_EQ(Fields(1), "(1)(2)345");
    EXPECT_EQ(Fields(2), "(1)(2)(3)45");
    ClickLinear(2);
    EXPECT_EQ(Fields(2), "123(4)(5)");
    ClickLinear(2);
    EXPECT_EQ(Fields(2), "(1)(2)345");
    EXPECT_EQ(Fields(1), "(1)(2)345");
}

TEST_F(FrmObsWeights, OkSavesWhatWasTypedAsItWasTyped) {
    OpenDialog();
    ClickLinear(1);
    Control<QLineEdit>(Page(1), "txtValue4").setText(QStringLiteral(" 0.0001 m"));
    Control<QLineEdit>(Page(3), "txtValue1").setText(QStringLiteral("0.5"));
    Desktop.ExpectMessageTitled("Doubtful Weights", Answer::Yes);
    Click(*Dialog, "cmdOK");
    EXPECT_TRUE(Dialog.isNull());
    EXPECT_EQ(Saved, true);
    EXPECT_EQ(Key("Tracker", "LHAngle1"), "0.0001 m");
    EXPECT_EQ(Key("Tracker", "LZAngle1"), "0");
    EXPECT_EQ(Key("Tracker", "LinAngle1"), "1");
    EXPECT_EQ(Key("Tracker", "HAngle1"), "0.0005");
    EXPECT_EQ(Key("Height", "HDiff1"), "0.5");
    EXPECT_EQ(Key("Total", "LinAngle1"), "0");
}

TEST_F(FrmObsWeights, CancelEscapeAndTheWindowButtonLeaveTheProfileAlone) {
    const std::string former = FileContent("C:\\WINDOWS\\dv_input.ini");
    const std::vector<std::function<void()>> ways = {[&] { Click(*Dialog, "cmdCancel"); },
                                                     [&] { QTest::keyClick(Dialog, Qt::Key_Escape); },
                                                     [&] { Dialog->windowHandle()->close(); }};
    for (const auto& leave : ways) {
        OpenDialog();
        Control<QLineEdit>(Page(1), "txtValue1").setText(QStringLiteral("9"));
        ClickLinear(1);
        Saved.reset();
        leave();
        HandleEvents();
        EXPECT_TRUE(Dialog.isNull());
        EXPECT_EQ(Saved, false);
    }
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_input.ini"), former);
}

TEST_F(FrmObsWeights, EnterMeansOk) {
    OpenDialog();
    QTest::keyClicks(Dialog->focusWidget(), QStringLiteral("0.25"));
    QTest::keyClick(Dialog->focusWidget(), Qt::Key_Return);
    HandleEvents();
    EXPECT_EQ(Saved, true);
    EXPECT_EQ(Key("Tracker", "HAngle1"), "0.25");
}

TEST_F(FrmObsWeights, TheKeyboardGoesToTheFirstFieldAndOnAlongThem) {
    IniWriteString("dv_input.ini", "Tracker", "LinAngle1", "1");
    OpenDialog();
    EXPECT_EQ(Dialog->focusWidget(), &Control<QWidget>(Page(1), "txtValue3"));
    for (const char* next : {"chkLinear", "txtValue4", "txtValue5", "cmdOK", "cmdCancel"}) {
        QTest::keyClick(Dialog->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(Dialog->focusWidget()->objectName().toStdString(), next);
    }
    Tabs().setCurrentIndex(2);
    EXPECT_EQ(Dialog->focusWidget(), &Control<QWidget>(Page(3), "txtValue1"));
}

TEST_F(FrmObsWeights, KindsWithoutWeightsHaveATabWithNothingOnIt) {
    IniWriteString("dv_input.ini", "Gyro", "Number", "1");
    IniWriteString("dv_input.ini", "Gyro", "Name1", "Gyro");
    OpenDialog();
    ASSERT_EQ(Tabs().count(), 6);
    EXPECT_EQ(Fields(6), "");
    EXPECT_TRUE(Control<QWidget>(Page(6), "chkLinear").isHidden());
}

TEST_F(FrmObsWeights, TwoEntriesOfAKindKeepSeparateWeights) {
    PutProfile("dv_input.ini", {"[Distance]", "Number=2", "Name1=A", "Name2=B", "SDist1=1", "SDist2=2"});
    OpenDialog();
    Control<QLineEdit>(Page(2), "txtValue1").setText(QStringLiteral("0.25"));
    Click(*Dialog, "cmdOK");
    EXPECT_EQ(Key("Distance", "SDist1"), "1");
    EXPECT_EQ(Key("Distance", "SDist2"), "0.25");
}

TEST_F(FrmObsWeights, IsAsWideAsItsTabsNeed) {
    int former = 0;
    for (const int number : {3, 6, 9}) {
        Texts lines = {"[Distance]", "Number=" + std::to_string(number)};
        for (int i = 1; i <= number; ++i)
            lines.push_back("Name" + std::to_string(i) + "=Meter " + std::to_string(i));
        PutProfile("dv_input.ini", lines);
        OpenDialog();
        EXPECT_GE(Tabs().width(), Tabs().tabBar()->sizeHint().width());
        EXPECT_GT(Tabs().tabBar()->sizeHint().width(), former);
        former = Tabs().tabBar()->sizeHint().width();
        EXPECT_GE(
            (Control<QWidget>(*Dialog, "cmdOK").width() + Control<QWidget>(*Dialog, "cmdCancel").width()) *
                10,
            Tabs().width() * 9);
        Dialog->Unload();
        HandleEvents();
    }
}

TEST_F(FrmObsWeights, StaysOnTheDeskHoweverManyTabsThereAre) {
    Texts lines = {"[Tracker]", "Number=200"};
    for (int i = 1; i <= 200; ++i)
        lines.push_back("Name" + std::to_string(i) + "=Tracker " + std::to_string(i));
    PutProfile("dv_input.ini", lines);
    OpenDialog();
    EXPECT_EQ(Tabs().count(), 200);
    EXPECT_LE(Dialog->width(), Dialog->screen()->availableGeometry().width());
    Tabs().setCurrentIndex(199);
    Control<QLineEdit>(Page(200), "txtValue3").setText(QStringLiteral("7"));
    Desktop.ExpectMessageTitled("Doubtful Weights", Answer::Yes);
    Click(*Dialog, "cmdOK");
    EXPECT_EQ(Key("Tracker", "SDist200"), "7");
}

TEST_F(FrmObsWeights, ShowsNamesAsTheyStand) {
    IniWriteString("dv_input.ini", "Tracker", "Name1", "Las\xE9r & <b>co</b>");
    OpenDialog();
    EXPECT_EQ(Tabs().tabText(0), QString::fromLatin1("Las\xE9r && <b>co</b>"));
    EXPECT_TRUE(Tabs().tabToolTip(0).contains(QLatin1String("&lt;b&gt;")));
}

TEST_F(FrmObsWeights, ReportsAMissingPictureOnceAndOpensAllTheSame) {
    IniWriteString("dv_input.ini", "Tracker", "Icon1", "none-such.bmp");
    IniWriteString("dv_input.ini", "Total", "Icon1", "none-such.bmp");
    Desktop.ExpectMessageTitled("Program Error");
    OpenDialog();
    EXPECT_EQ(LastReport(Desktop), "53 Dorvane-frmObsWeights-Form_Load");
    EXPECT_EQ(Tabs().count(), 5);
}

TEST_F(FrmObsWeights, AMistypedValueIsReportedShownAndPutRight) {
    IniWriteString("dv_input.ini", "Distance", "SDist1", "0.0O5");
    Desktop.ExpectMessageTitled("Program Error");
    OpenDialog();
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
    ASSERT_EQ(Tabs().count(), 5);
    EXPECT_EQ(TextOf(Page(5), "txtValue1"), "0.0O5");
    EXPECT_EQ(TextOf(Page(1), "txtValue1"), "0.0005");
    Control<QLineEdit>(Page(5), "txtValue1").setText(QStringLiteral("0.005"));
    Click(*Dialog, "cmdOK");
    EXPECT_EQ(Key("Distance", "SDist1"), "0.005");
    EXPECT_EQ(Key("Tracker", "HAngle1"), "0.0005");
}

TEST_F(FrmObsWeights, AFieldThatIsNoWeightIsMarkedWhileItIsTyped) {
    OpenDialog();
    auto& field = Control<QLineEdit>(Page(1), "txtValue1");
    const QColor paper = field.palette().color(QPalette::Base);
    const QString tip = field.toolTip();
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("0,5"));
    EXPECT_NE(field.palette().color(QPalette::Base), paper);
    EXPECT_EQ(field.toolTip(), ToTip("\"0,5\" has a decimal comma where a point is needed"));
    EXPECT_EQ(Control<QLineEdit>(Page(1), "txtValue2").palette().color(QPalette::Base), paper);
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Right);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, QStringLiteral("."));
    EXPECT_EQ(field.palette().color(QPalette::Base), paper);
    EXPECT_EQ(field.toolTip(), tip);
}

TEST_F(FrmObsWeights, TheBoxMovesTheMarkToTheFieldsThatCount) {
    OpenDialog();
    const auto marked = [&](const char* name) {
        auto& field = Control<QLineEdit>(Page(1), name);
        return field.palette().color(QPalette::Active, QPalette::Base) !=
               Dialog->palette().color(QPalette::Active, QPalette::Base);
    };
    Control<QLineEdit>(Page(1), "txtValue1").setText(QStringLiteral("x"));
    EXPECT_TRUE(marked("txtValue1"));
    EXPECT_FALSE(marked("txtValue4"));
    ClickLinear(1);
    EXPECT_FALSE(marked("txtValue1"));
    EXPECT_TRUE(marked("txtValue4"));  // 0
}

TEST_F(FrmObsWeights, NoGoesBackToTheDoubtfulFieldAndSavesNothing) {
    const std::string former = FileContent("C:\\WINDOWS\\dv_input.ini");
    OpenDialog();
    Control<QLineEdit>(Page(4), "txtValue2").setText(QStringLiteral("-1"));
    Desktop.ExpectMessage("Doubtful Weights",
                          "No standard error above zero :\r\n\r\nDirections, Zenith Angle : \"-1\" is below "
                          "zero\r\n\r\nDo you wish to save the weights all the same?",
                          Answer::No);
    Click(*Dialog, "cmdOK");
    ASSERT_FALSE(Dialog.isNull());
    EXPECT_EQ(Tabs().currentIndex(), 3);
    EXPECT_EQ(Dialog->focusWidget(), &Control<QWidget>(Page(4), "txtValue2"));
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_input.ini"), former);
    Desktop.ExpectMessageTitled("Doubtful Weights", Answer::Yes);
    Click(*Dialog, "cmdOK");
    EXPECT_TRUE(Dialog.isNull());
    EXPECT_EQ(Key("Angle", "ZAngle1"), "-1");
}

TEST_F(FrmObsWeights, OpensEmptyWithoutInputTypes) {
    PutProfile("dv_input.ini", {});
    OpenDialog();
    EXPECT_EQ(Tabs().count(), 0);
    Click(*Dialog, "cmdOK");
    EXPECT_EQ(Saved, true);
}

}  // namespace
}  // namespace Dorvane::Testing
