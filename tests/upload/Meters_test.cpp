// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "core/widgets/Animation.h"
#include "tests/upload/UploadScreenSite.h"
#include "upload/MeterLayout.h"
#include "upload/frmCopyMeter.h"
#include "upload/frmDeleteMeter.h"
#include "upload/frmSearch.h"

namespace Dorvane::Testing {
namespace {

// Counts how often a widget is painted.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Count = 0;
};

struct MetersTest : UploadScreenSite {
    static QRect RectOf(const MeterBox& box) { return {box.Left, box.Top, box.Width, box.Height}; }
    static MeterLayout Layout(QWidget& meter, const std::vector<int>& groups, bool hasBar = true) {
        return LayOutMeter(272, 60, MeterUnits(meter.fontMetrics().height()), groups, hasBar);
    }
    static QRect Place(QWidget& meter, const char* name) { return Control<QWidget>(meter, name).geometry(); }
    static void TryToClose(QWidget& meter) {
        meter.close();
        QTest::keyClick(&meter, Qt::Key_Escape);
        QTest::keyClick(&meter, Qt::Key_Return);
        QApplication::processEvents();
    }
};
using frmMoveMeterTest = MetersTest;
using frmCopyMeterTest = MetersTest;
using frmDeleteMeterTest = MetersTest;
using frmSearchTest = MetersTest;

TEST_F(frmMoveMeterTest, LosesItsCaptionWhenItIsLoaded) {
    frmMoveMeter meter("LEVEL");
    EXPECT_EQ(TextOf(meter), "Moving File");
    meter.Open(3);
    EXPECT_EQ(TextOf(meter), "");
}

TEST_F(frmMoveMeterTest, OpensShownModalAndAtNothing) {
    frmMoveMeter meter("LEVEL");
    meter.Open(3);
    EXPECT_TRUE(meter.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &meter);
    EXPECT_EQ(meter.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(TextOf(meter, "lblFromTitle"), "From");
    EXPECT_EQ(TextOf(meter, "lblFrom"), " ");
    EXPECT_EQ(TextOf(meter, "lblToTitle"), "To");
    EXPECT_EQ(TextOf(meter, "lblTo"), " ");
    const auto& bar = Control<QProgressBar>(meter, "pbrMoveMeter");
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(bar.maximum(), 3);
    meter.Close();
    EXPECT_FALSE(meter.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(frmMoveMeterTest, LaysItselfOutByTheAnimationAndTheText) {
    frmMoveMeter meter("LEVEL");
    meter.Open(3);
    const MeterLayout layout = Layout(meter, {2, 2});
    EXPECT_EQ(Place(meter, "aniMoveMeter"), QRect(5, 5, 272, 60));
    EXPECT_EQ(Place(meter, "lblFromTitle"), RectOf(layout.Rows[0]));
    EXPECT_EQ(Place(meter, "lblFrom"), RectOf(layout.Rows[1]));
    EXPECT_EQ(Place(meter, "lblToTitle"), RectOf(layout.Rows[2]));
    EXPECT_EQ(Place(meter, "lblTo"), RectOf(layout.Rows[3]));
    EXPECT_EQ(Place(meter, "pbrMoveMeter"), RectOf(layout.Bar));
    EXPECT_EQ(meter.size(), QSize(282, layout.ClientHeight));
}

TEST_F(frmMoveMeterTest, IsPaintedAtOnceAndOnceForEachFile) {
    constexpr int files = 500;
    frmMoveMeter meter("LEVEL");
    PaintCounter window(meter);
    PaintCounter from(Control<QWidget>(meter, "lblFrom"));
    PaintCounter to(Control<QWidget>(meter, "lblTo"));
    meter.Open(files);
    EXPECT_GE(window.Count, 1);
    EXPECT_GE(from.Count, 1);

    auto& bar = Control<QProgressBar>(meter, "pbrMoveMeter");
    PaintCounter barPaints(bar);
    QSignalSpy values(&bar, &QProgressBar::valueChanged);
    from.Count = 0;
    to.Count = 0;
    for (int i = 1; i <= files; ++i) {
        meter.ShowFile(From + std::to_string(i) + ".LEV", To + std::to_string(i) + ".LEV");
        EXPECT_EQ(from.Count, i);
        EXPECT_EQ(to.Count, i);
        meter.Advance(i);
        EXPECT_EQ(barPaints.Count, i);
    }
    EXPECT_EQ(values.count(), files);
    EXPECT_EQ(bar.value(), files);
}

TEST_F(frmMoveMeterTest, CannotBeClosedByTheOperator) {
    frmMoveMeter meter("LEVEL");
    meter.Open(3);
    TryToClose(meter);
    EXPECT_TRUE(meter.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &meter);
    EXPECT_TRUE(meter.findChildren<QAbstractButton*>().isEmpty());
}

TEST_F(frmMoveMeterTest, TakesTheOtherScreensOutOfReachUntilItCloses) {
    frmUploadMenu& screen = Open();
    const auto clickHome = [&] {
        auto& home = Control<QAbstractButton>(screen, "cmdHome");
        QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, {},
                          home.mapTo(&screen, home.rect().center()));
        HandleEvents();
    };
    frmMoveMeter meter("LEVEL");
    meter.Open(3);
    clickHome();
    EXPECT_FALSE(IsUnloaded());
    meter.Close();
    clickHome();
    EXPECT_TRUE(IsUnloaded());
}

TEST_F(frmMoveMeterTest, ShowsNamesAsTheyStandAndLongPathsElided) {
    frmMoveMeter meter("LEVEL");
    meter.Open(1);
    const std::string from = "C:\\<b>" + std::string(200, 'X') + "\\\xE9&A.LEV";
    const QSize size = meter.size();
    meter.ShowFile(from, To + "A.LEV");
    EXPECT_EQ(TextOf(meter, "lblFrom"), from);
    EXPECT_EQ(Control<QLabel>(meter, "lblFrom").textFormat(), Qt::PlainText);
    EXPECT_EQ(meter.size(), size);
}

TEST_F(frmMoveMeterTest, PlaysTheDataTypesOwnAnimationAndTakesItsSize) {
    PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", "FileCopy=own.svg"});
    PutFile("P:\\DORVANE\\graphics\\own.svg",
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"300\" height=\"80\"></svg>");
    frmMoveMeter own("LEVEL");
    own.Open(1);
    EXPECT_EQ(Place(own, "aniMoveMeter"), QRect(5, 5, 300, 80));
    EXPECT_EQ(own.width(), 310);
    own.Close();
    frmMoveMeter other("TOTAL");
    other.Open(1);
    EXPECT_EQ(Place(other, "aniMoveMeter"), QRect(5, 5, 272, 60));
}

TEST_F(frmMoveMeterTest, ShowsTheShippedAnimationForOneOfTheTypeThatCannotBePlayed) {
    PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", "FileCopy=own.avi"});
    PutFile("P:\\DORVANE\\graphics\\own.avi", "no film");
    frmMoveMeter meter("LEVEL");
    meter.Open(2);
    EXPECT_EQ(Place(meter, "aniMoveMeter"), QRect(5, 5, 272, 60));
}

TEST_F(frmMoveMeterTest, ReportsThatNoAnimationCanBePlayedAndShowsTheRest) {
    PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", "FileCopy=own.avi"});
    PutFile("P:\\DORVANE\\graphics\\own.avi", "no film");
    PutFile("P:\\DORVANE\\graphics\\filecopy.svg", "no drawing");
    Desktop.ExpectMessageTitled("Program Error");
    frmMoveMeter meter("LEVEL");
    meter.Open(2);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 481"), std::string::npos);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Source : Dorvane-frmMoveMeter-LoadForm"), std::string::npos);
    EXPECT_TRUE(meter.isVisible());
    EXPECT_EQ(meter.width(), 282);
}

TEST_F(frmMoveMeterTest, CanBeOpenedAgain) {
    frmMoveMeter meter("LEVEL");
    meter.Open(2);
    meter.ShowFile("A", "B");
    meter.Advance(2);
    meter.Close();
    meter.Open(5);
    EXPECT_EQ(Control<QProgressBar>(meter, "pbrMoveMeter").value(), 0);
    EXPECT_EQ(Control<QProgressBar>(meter, "pbrMoveMeter").maximum(), 5);
    EXPECT_EQ(TextOf(meter, "lblFrom"), " ");
}

TEST_F(frmMoveMeterTest, ShowsTheWaitCursorAsLongAsItStands) {
    frmMoveMeter meter("LEVEL");
    meter.Open(2);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    meter.Close();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(frmCopyMeterTest, TakesItsCallersCaptionInPlaceOfItsOwnTwo) {
    frmCopyMeter meter("", "Copying File ...");
    EXPECT_EQ(TextOf(meter), "Copying File");
    meter.Open(1);
    EXPECT_EQ(TextOf(meter), "Copying File ...");
    meter.Close();
    frmCopyMeter untitled("", "");
    untitled.Open(1);
    EXPECT_EQ(TextOf(untitled), "Uploading File");
}

TEST_F(frmCopyMeterTest, CountsItsOneFile) {
    frmCopyMeter meter("", "Copying File ...");
    meter.Open(1);
    EXPECT_EQ(QApplication::activeModalWidget(), &meter);
    EXPECT_EQ(TextOf(meter, "lblFromTitle"), "From");
    EXPECT_EQ(TextOf(meter, "lblToTitle"), "To");
    meter.ShowFile("C:\\A", "D:\\B");
    EXPECT_EQ(TextOf(meter, "lblFrom"), "C:\\A");
    EXPECT_EQ(TextOf(meter, "lblTo"), "D:\\B");
    meter.Advance(1);
    EXPECT_EQ(Control<QProgressBar>(meter, "prbCopyMeter").value(), 1);
    EXPECT_EQ(Place(meter, "prbCopyMeter"), RectOf(Layout(meter, {2, 2}).Bar));
    EXPECT_EQ(Place(meter, "aniCopyMeter"), QRect(5, 5, 272, 60));
    TryToClose(meter);
    EXPECT_TRUE(meter.isVisible());
}

TEST_F(frmCopyMeterTest, ReportsAMissingAnimationUnderItsOwnName) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\filecopy.svg");
    Desktop.ExpectMessageTitled("Program Error");
    frmCopyMeter meter("", "Copying File ...");
    meter.Open(1);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Source : Dorvane-frmCopyMeter-LoadForm"), std::string::npos);
    EXPECT_EQ(TextOf(meter), "Copying File ...");
    EXPECT_TRUE(meter.isVisible());
}

TEST_F(frmDeleteMeterTest, ShowsWhatIsDeleted) {
    frmDeleteMeter meter;
    EXPECT_EQ(TextOf(meter), "Delete File");
    meter.Open(2);
    EXPECT_EQ(TextOf(meter), "Deleting 999 Files");
    EXPECT_EQ(TextOf(meter, "lblDeleteTitle"), "Deleting ...");
    EXPECT_EQ(TextOf(meter, "lblDelete"), " ");
    meter.ShowFile("C:\\A.999", "");
    EXPECT_EQ(TextOf(meter, "lblDelete"), "C:\\A.999");
    meter.Advance(1);
    EXPECT_EQ(Control<QProgressBar>(meter, "prbDeleteMeter").value(), 1);
    EXPECT_EQ(Control<QProgressBar>(meter, "prbDeleteMeter").maximum(), 2);
    const MeterLayout layout = Layout(meter, {2});
    EXPECT_EQ(Place(meter, "aniDeleteMeter"), QRect(5, 5, 272, 60));
    EXPECT_EQ(Place(meter, "lblDelete"), RectOf(layout.Rows[1]));
    EXPECT_EQ(Place(meter, "prbDeleteMeter"), RectOf(layout.Bar));
    EXPECT_EQ(meter.size(), QSize(282, layout.ClientHeight));
    TryToClose(meter);
    EXPECT_TRUE(meter.isVisible());
}

TEST_F(frmSearchTest, SearchesUntilItsCallerTellsMore) {
    const frmSearch search;
    EXPECT_EQ(search.findChild<QLabel*>(QStringLiteral("lblSearch"))->text(), QLatin1String("Searching ..."));
}

TEST_F(frmSearchTest, ShowsItsTextPaintedAndCannotBeClosed) {
    auto* search = new frmSearch;
    const QPointer<frmSearch> alive(search);
    PaintCounter text(Control<QWidget>(*search, "lblSearch"));
    search->ShowText("Searching for existing Tarvex data folders.");
    EXPECT_GE(text.Count, 1);
    EXPECT_EQ(TextOf(*search), "");
    EXPECT_EQ(TextOf(*search, "lblSearch"), "Searching for existing Tarvex data folders.");
    EXPECT_EQ(QApplication::activeModalWidget(), search);
    EXPECT_EQ(Place(*search, "aniSearch"), QRect(5, 5, 272, 60));
    EXPECT_EQ(search->width(), 282);
    TryToClose(*search);
    EXPECT_TRUE(search->isVisible());
    const int paints = text.Count;
    search->ShowText("Updating Tarvex data folders.");
    EXPECT_GT(text.Count, paints);
    EXPECT_EQ(TextOf(*search, "lblSearch"), "Updating Tarvex data folders.");
    search->Unload();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    HandleEvents();
    EXPECT_TRUE(alive.isNull());
}

TEST_F(frmSearchTest, GivesALongTextTheRowsThatItNeeds) {
    frmSearch search;
    search.ShowText("Updating");
    const int height = search.height();
    EXPECT_EQ(height, Layout(search, {1}, false).ClientHeight);
    search.ShowText("Searching for existing Tarvex data folders on a drive with a long story to tell.");
    EXPECT_EQ(search.height(), Layout(search, {2}, false).ClientHeight);
    EXPECT_GT(search.height(), height);
}

TEST_F(frmSearchTest, ReportsAMissingAnimationAndShowsItsText) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\typcom.svg");
    Desktop.ExpectMessage("Program Error",
                          "Error : 53\r\n\r\nDescription : File not found: "
                          "P:\\DORVANE\\graphics\\typcom.avi\r\n\r\nSource : Dorvane-frmSearch-LoadForm");
    frmSearch search;
    search.ShowText("Updating Tarvex data folders.");
    EXPECT_TRUE(search.isVisible());
    EXPECT_EQ(TextOf(search, "lblSearch"), "Updating Tarvex data folders.");
}

}  // namespace
}  // namespace Dorvane::Testing
