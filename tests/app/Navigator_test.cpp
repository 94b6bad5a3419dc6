// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <stdexcept>

#include "app/AppNavigator.h"
#include "core/Globals.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

// How the real screens open one another and hand on what was chosen.
namespace Dorvane {

using namespace Testing;

class Navigation : public testing::Test {
  protected:
    Navigation() {
        Site.LayOut();
        UseShippedPictures();
        Navigator.ShowMain();
        HandleEvents();
    }

    static QWidgetList Windows(const char* name) {
        QWidgetList windows;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->objectName() == QLatin1String(name))
                windows.append(window);
        return windows;
    }
    static QWidget& Only(const char* name) {
        const QWidgetList windows = Windows(name);
        if (windows.size() != 1)
            throw std::runtime_error(std::string(name) + " is open " + std::to_string(windows.size()) +
                                     " times");
        return *windows.first();
    }

    TestSite Site;
    ScriptedDesktop Desk;
    AppNavigator Navigator;
};

TEST_F(Navigation, TheFolderOfTheTreeReachesTheUploadScreenThatIsLoaded) {
    Navigator.OpenUpload();
    QWidget& upload = Only("frmUploadMenu");
    upload.hide();
    Navigator.ReturnToUpload("D:\\TARVEX\\COORD\\");
    EXPECT_EQ(&Only("frmUploadMenu"), &upload);
    EXPECT_EQ(TextOf(upload, "lblToPath"), "D:\\TARVEX\\COORD\\");
}

TEST_F(Navigation, TheFolderOfTheTreeReachesTheInputScreenThatIsLoaded) {
    Navigator.OpenInput();
    QWidget& input = Only("frmInput");
    input.hide();
    Navigator.ReturnToInput("D:\\TARVEX\\COORD\\");
    EXPECT_EQ(&Only("frmInput"), &input);
    EXPECT_EQ(TextOf(input, "lblDirectory"), "D:\\TARVEX\\COORD\\");
}

TEST_F(Navigation, AWaitingWindowComesAnewBehindOneThatWent) {
    Navigator.ShowSearch("first");
    Navigator.CloseSearch();
    Navigator.ShowSearch("second");
    HandleEvents();
    EXPECT_EQ(TextOf(Only("frmSearch"), "lblSearch"), "second");
    Navigator.CloseSearch();
    EXPECT_TRUE(Windows("frmSearch").empty());
}

TEST_F(Navigation, TheCopyMeterBearsTheCaptionItIsGiven) {
    const std::unique_ptr<FileMeter> meter = Navigator.CopyMeter("Copying File ...");
    meter->Open(1);
    EXPECT_EQ(TextOf(Only("frmCopyMeter")), "Copying File ...");
    meter->Close();
}

TEST_F(Navigation, ANoticeIsFollowedByWhatWaitsForItsEnd) {
    bool followed = false;
    Navigator.OpenConstruct("Title", "Text", [&] { followed = true; });
    HandleEvents();
    EXPECT_FALSE(followed);
    EXPECT_EQ(TextOf(Only("frmConstruct")), "Title");
    Click(Only("frmConstruct"), "cmdHome");
    HandleEvents();
    EXPECT_TRUE(followed);
}

TEST_F(Navigation, TheEndOfTheProgramLeavesNoWindow) {
    Navigator.OpenDownload();
    Navigator.OpenAbout();
    QTimer::singleShot(0, qApp, [this] { Navigator.EndProgram(); });
    EXPECT_EQ(QApplication::exec(), 0);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
}

}  // namespace Dorvane
