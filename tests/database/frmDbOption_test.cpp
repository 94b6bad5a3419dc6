// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frmDbOption.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "tests/database/DatabaseScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Texts = std::vector<std::string>;

class frmDbOptionTest : public DatabaseScreenSite<frmDbOption> {};

TEST_F(frmDbOptionTest, HasItsCaptions) {
    frmDbOption& screen = Open();
    EXPECT_EQ(TextOf(screen), "Coordinate Database Options");
    EXPECT_EQ(TextOf(screen, "fra_old_tarvex"), "Database Options");
    EXPECT_EQ(TextOf(screen, "lblRetrieve"), "Retrieve Data");
    EXPECT_EQ(TextOf(screen, "lblUpload"), "Update Data");
    EXPECT_EQ(TextOf(screen, "cmdHome"), "Go Home");
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(screen.focusWidget()->objectName(), QLatin1String("cmdRetrieve"));
    for (const char* button : {"cmdRetrieve", "cmdUpdate", "cmdHome"}) {
        EXPECT_FALSE(Control<QPushButton>(screen, button).toolTip().isEmpty()) << button;
        EXPECT_FALSE(Control<QPushButton>(screen, button).icon().isNull()) << button;
    }
    ExpectNoneTwice(Mnemonics<QLabel>(screen) + Mnemonics<QPushButton>(screen));
}

TEST_F(frmDbOptionTest, ForksToRetrievalUpdateAndHome) {
    Click(Open(), "cmdRetrieve");
    EXPECT_TRUE(Opened.isNull());
    Click(Open(), "cmdUpdate");
    EXPECT_TRUE(Opened.isNull());
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, (Texts{"OpenRetrieval", "OpenUpdate", "ShowHome"}));
}

TEST_F(frmDbOptionTest, GoesHomeByEscapeAndTheWindowsOwnButton) {
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    Open().close();
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, (Texts{"ShowHome", "ShowHome"}));
}

TEST_F(frmDbOptionTest, RetrievesByEnterAndUpdatesByTheLettersOfItsLabel) {
    QTest::keyClick(&Open(), Qt::Key_Return);
    HandleEvents();
    EXPECT_EQ(Nav.Calls, (Texts{"OpenRetrieval"}));
    QTest::keyClick(&Open(), Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Nav.Calls.size() == 2; }));
    EXPECT_EQ(Nav.Calls.back(), "OpenUpdate");
    HandleEvents();
}

TEST_F(frmDbOptionTest, NamesItsButtonsWithoutPictures) {
    for (const char* picture : {"retrieve.svg", "update.svg", "home.svg"})
        Drives::DeleteFile(std::string("P:\\DORVANE\\graphics\\") + picture);
    frmDbOption& screen = Open();
    EXPECT_EQ(TextOf(screen, "lblRetrieve"), "Retrieve Data");
    EXPECT_EQ(Control<QPushButton>(screen, "cmdRetrieve").accessibleName(), QLatin1String("Retrieve Data"));
    Click(screen, "cmdRetrieve");
    EXPECT_EQ(Nav.Calls, (Texts{"OpenRetrieval"}));
}

}  // namespace
}  // namespace Dorvane::Testing
