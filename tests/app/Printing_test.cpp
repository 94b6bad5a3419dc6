// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QPrinter>
#include <QPushButton>
#include <QTest>

#include "app/QtDesktop.h"
#include "app/QtPrinting.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "tests/app/PrintServer.h"
#include "tests/support/Operator.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

using Lines = std::vector<std::string>;

int NumberRaised(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace

class Printing : public testing::Test {
  protected:
    /// The lines of a page as they stand behind the left edge of the text. The reader of the page leaves out
    /// trailing blanks, and the margin counts from the text furthest to the left.
    static Lines Text(const Lines& page) {
        std::size_t margin = std::string::npos;
        for (const std::string& line : page)
            if (line.find_first_not_of(' ') != std::string::npos)
                margin = std::min(margin, line.find_first_not_of(' '));
        Lines text;
        for (const std::string& line : page)
            text.push_back(line.size() < margin ? "" : line.substr(margin));
        return text;
    }

    TestSite Site;
    QtDesktop Screen;
    Operator Hands;
};

TEST_F(Printing, PrintsAFileUnderItsHeadingSetIn) {
    PrintServer server;
    server.AddQueue("Office");
    PutFile("D:\\DATA\\NOTES.TXT",
            "first line\r\n\r\n  set in by two\r\n\xE9t\xE9 \xB1 5 \xB5m, 12.5\xB0\r\n");
    EXPECT_EQ(PrintGenFile("D:\\DATA\\", "NOTES.TXT", "D:\\SHOWN\\"), 1);
    const std::vector<Lines> pages = server.PrintedPages("Office");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(Text(pages[0]), (Lines{"File Name : D:\\SHOWN\\NOTES.TXT", "", "first line", "",
                                     "  set in by two", "\u00E9t\u00E9 \u00B1 5 \u00B5m, 12.5\u00B0"}));
}

TEST_F(Printing, GoesOnOnANewPageWithoutAHead) {
    PrintServer server;
    server.AddQueue("Office");
    std::string content;
    for (int i = 1; i <= 70; ++i)
        content += "line " + std::to_string(i) + "\r\n";
    PutFile("D:\\LONG.TXT", content);
    EXPECT_EQ(PrintGenFile("D:\\", "LONG.TXT", "D:\\"), 1);
    const std::vector<Lines> pages = server.PrintedPages("Office");
    ASSERT_EQ(pages.size(), 2U) << pages[0].size() << " lines on the first page";
    Lines expected{"File Name : D:\\LONG.TXT", ""};
    for (int i = 1; i <= 70; ++i)
        expected.push_back("line " + std::to_string(i));
    Lines printed = Text(pages[0]);
    const Lines second = Text(pages[1]);
    EXPECT_EQ(second.front(), expected[printed.size()]);
    printed.insert(printed.end(), second.begin(), second.end());
    EXPECT_EQ(printed, expected);
}

TEST_F(Printing, PutsNoLineBelowThePagesLowerEdge) {
    PrintServer server;
    server.AddQueue("Office");
    const std::unique_ptr<QPrinter> printer = OpenDefaultPrinter();
    QFont font(QStringLiteral("Courier"), 12);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    const QFontMetricsF metrics(font, printer.get());
    const double height = printer->pageRect(QPrinter::DevicePixel).height();
    const auto most = static_cast<std::size_t>((height - metrics.height()) / metrics.lineSpacing()) + 1;
    const std::unique_ptr<PrintJob> job = Screen.BeginPrint("Courier", 12);
    for (int i = 1; i <= 100; ++i)
        job->Line("line " + std::to_string(i));
    job->End();
    EXPECT_EQ(Text(server.PrintedPages("Office").at(0)).size(), most);
}

TEST_F(Printing, LeadsByATabToTheNextColumnOfEight) {
    PrintServer server;
    server.AddQueue("Office");
    const std::unique_ptr<PrintJob> job = Screen.BeginPrint("Courier", 12);
    for (const char* line : {"1234567\tA", "12345678\tB", "\tC"})
        job->Line(line);
    job->End();
    EXPECT_EQ(Text(server.PrintedPages("Office").at(0)),
              (Lines{"1234567 A", "12345678        B", "        C"}));
}

TEST_F(Printing, CutsALongLineAtThePagesEdge) {
    PrintServer server;
    server.AddQueue("Office");
    PutFile("D:\\WIDE.TXT", std::string(1000, 'x') + "\r\nnext\r\n");
    EXPECT_EQ(PrintGenFile("D:\\", "WIDE.TXT", "D:\\"), 1);
    const std::vector<Lines> pages = server.PrintedPages("Office");
    ASSERT_EQ(pages.size(), 1U);
    const Lines text = Text(pages[0]);
    ASSERT_EQ(text.size(), 4U);
    EXPECT_GT(text[2].size(), 60U);
    EXPECT_LT(text[2].size(), 100U);
    EXPECT_EQ(text[3], "next");
}

TEST_F(Printing, PrintsNothingOfADocumentThatIsDropped) {
    PrintServer server;
    server.AddQueue("Office");
    {
        const std::unique_ptr<PrintJob> job = Screen.BeginPrint("Courier", 12);
        job->Line("never to be seen");
    }
    EXPECT_TRUE(server.NothingPrinted());
    PutFile("D:\\A.TXT", "seen");
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\"), 1);
    EXPECT_EQ(server.PrintedPages("Office").size(), 1U);
}

TEST_F(Printing, CountsThePrinters) {
    PrintServer server;
    EXPECT_EQ(Screen.PrinterCount(), 0);
    server.AddQueue("Office");
    server.AddQueue("Field");
    EXPECT_EQ(Screen.PrinterCount(), 2);
}

TEST_F(Printing, FindsNoPrinterWhereNoPrintSystemRuns) {
    ForgetPrintServer();
    EXPECT_EQ(Screen.PrinterCount(), 0);
    EXPECT_EQ(NumberRaised([&] { Screen.BeginPrint("Courier", 12); }), DeviceUnavailable);
}

TEST_F(Printing, TakesThePrinterChosenInThePrinterSetupFromThenOn) {
    PrintServer server;
    server.AddQueue("Broken");
    server.AddQueue("Office");
    server.MakeDefault("Broken");
    server.Reject("Broken");
    Hands.ExpectDialog("Printer Setup", [](QWidget& box) {
        auto* const printers = box.findChild<QComboBox*>(QStringLiteral("printers"));
        ASSERT_NE(printers, nullptr);
        EXPECT_EQ(printers->currentText(), QStringLiteral("Broken"));
        printers->setCurrentIndex(printers->findText(QStringLiteral("Office")));
        QTest::mouseClick(box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    int copies = 0;
    int from = 0;
    int to = 0;
    EXPECT_TRUE(PrinterSetup(copies, from, to));
    EXPECT_EQ(copies, 1);
    PutFile("D:\\A.TXT", "here");
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\"), 1);
    EXPECT_EQ(server.PrintedPages("Office").size(), 1U);
}

TEST_F(Printing, OpensThePrinterSetupWithWhatWasSetBefore) {
    PrintServer server;
    server.AddQueue("Office");
    const std::unique_ptr<QPrinter> printer = OpenDefaultPrinter();
    printer->setDuplex(QPrinter::DuplexLongSide);
    ASSERT_EQ(printer->duplex(), QPrinter::DuplexLongSide);
    printer->setCopyCount(3);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setColorMode(QPrinter::GrayScale);
    const std::unique_ptr<QPrinter> other = OpenPrinterLike(*printer);
    EXPECT_EQ(other->printerName(), printer->printerName());
    EXPECT_EQ(other->duplex(), QPrinter::DuplexLongSide);
    EXPECT_EQ(other->copyCount(), 3);
    EXPECT_EQ(other->pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(other->colorMode(), QPrinter::GrayScale);
}

TEST_F(Printing, LeavesThePrinterAsItIsWhenThePrinterSetupIsCancelled) {
    PrintServer server;
    server.AddQueue("Broken");
    server.AddQueue("Office");
    server.MakeDefault("Office");
    Hands.ExpectDialog("Printer Setup", [](QWidget& box) {
        auto* const printers = box.findChild<QComboBox*>(QStringLiteral("printers"));
        printers->setCurrentIndex(printers->findText(QStringLiteral("Broken")));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    int copies = 0;
    int from = 0;
    int to = 0;
    EXPECT_FALSE(PrinterSetup(copies, from, to));
    server.Reject("Broken");
    PutFile("D:\\A.TXT", "here");
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\"), 1);
    EXPECT_EQ(server.PrintedPages("Office").size(), 1U);
}

TEST_F(Printing, ReportsAPrinterThatRefusesTheDocument) {
    PrintServer server;
    server.AddQueue("Office");
    server.Reject("Office");
    PutFile("D:\\A.TXT", "never");
    Hands.ExpectMessage(
        "Program Error",
        "Error : 57\r\n\r\nInternal disk error.\r\n\r\nSource : Dorvane-basPrint-PrintGenFile",
        Answer::Cancel);
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\"), 0);
    EXPECT_TRUE(server.NothingPrinted());
}

TEST_F(Printing, ReportsAPrinterThatIsGoneAndTriesAgain) {
    PrintServer server;
    server.AddQueue("Office");
    const std::unique_ptr<PrintJob> job = Screen.BeginPrint("Courier", 12);
    job->Line("at last");
    server.RemoveQueue("Office");
    EXPECT_EQ(NumberRaised([&] { job->End(); }), DeviceUnavailable);
    server.AddQueue("Office");
    job->End();
    const std::vector<Lines> pages = server.PrintedPages("Office");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(Text(pages[0]), Lines{"at last"});
}

TEST_F(Printing, ReportsADiskThatIsTooFullForTheDocument) {
    PrintServer server;
    server.AddQueue("Office");
    MakeFolders("D:\\SMALL\\");
    const std::unique_ptr<PrintJob> job = Screen.BeginPrint("Courier", 12);
    job->Line("never");
    const std::string small = Drives::HostPath("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 512, [&] {
        qputenv("TMPDIR", small.c_str());
        EXPECT_EQ(NumberRaised([&] { job->End(); }), DiskFull);
    });
    EXPECT_TRUE(server.NothingPrinted());
}

}  // namespace Dorvane
