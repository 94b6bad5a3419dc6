// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QProcess>
#include <filesystem>

#include "core/Host.h"
#include "tests/support/TestSite.h"

// The program as a process: what its main() does before and after the screens.
namespace Dorvane::Testing {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr const char* HomeWindow = "window|frmMain|icon";

struct Ended {
    std::vector<std::string> Windows;  // what was seen at the desk, in order
    std::string Errors;
    bool Normally = false;
    int Code = -1;
};

class ProgramStart : public testing::Test {
  protected:
    ProgramStart() : Folder(Site.HostFolder() + "p:/DORVANE/") {
        namespace fs = std::filesystem;
        fs::copy_file(TEST_APP_START, Folder + "dorvane");
        for (const char* part : {"system", "graphics"})
            fs::copy(std::string(DORVANE_FOLDER) + "/" + part, Folder + part, fs::copy_options::recursive);
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_tarvex.ini",
                 {"[Tarvex Info]", "Data_drive=D:\\TARVEX\\", "Calib_path=D:\\TARVEX\\CALIB\\",
                  "Coord_path=D:\\TARVEX\\COORD\\", "Init_path=D:\\TARVEX\\INIT\\",
                  "Param_path=C:\\TARVEX\\PARAM\\", "Temp_path=C:\\TARVEX\\TEMP\\",
                  "Work_path=C:\\TARVEX\\WORK\\", "Download_path=D:\\TARVEX\\DOWNLOAD\\", "Path_type=1"});
        World = QProcessEnvironment::systemEnvironment();
        Set("DORVANE_DRIVES", Site.HostFolder());
        Set("DORVANE_TEST_INSTANCE", Global().InstanceName);
        Set("QT_QPA_PLATFORM", "offscreen");
        Set("HOME", Site.HostFolder());
        Set("XDG_CONFIG_HOME", Site.HostFolder() + "config");
    }

    void Set(const char* name, const std::string& value) {
        World.insert(QLatin1String(name), QString::fromStdString(value));
    }

    Ended Run() {
        QProcess program;
        program.setProcessEnvironment(World);
        program.start(QString::fromStdString(Folder + "dorvane"), {});
        Ended ended;
        if (!program.waitForFinished(120000)) {
            ADD_FAILURE() << "the program does not end";
            program.kill();
            program.waitForFinished();
        }
        for (const QByteArray& line : program.readAllStandardOutput().split('\n'))
            if (!line.isEmpty())
                ended.Windows.push_back(line.toStdString());
        ended.Errors = program.readAllStandardError().toStdString();
        ended.Normally = program.exitStatus() == QProcess::NormalExit;
        ended.Code = program.exitCode();
        return ended;
    }

    TestSite Site;
    const std::string Folder;
    QProcessEnvironment World;
};

// A start that was left tells why and ends with a code of its own, without an abort.
void ExpectLeft(const Ended& ended) {
    EXPECT_TRUE(ended.Normally) << ended.Errors;
    EXPECT_EQ(ended.Code, 1);
}

}  // namespace

TEST_F(ProgramStart, OpensTheHomeMenuAndEndsWithIt) {
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|icon", HomeWindow));
    EXPECT_TRUE(ended.Normally);
    EXPECT_EQ(ended.Code, 0) << ended.Errors;
}

TEST_F(ProgramStart, GoesOnWhileNoWindowIsOpenBetweenTwoScreens) {
    Set("DORVANE_TEST_WINDOWLESS", "1");
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|icon", HomeWindow, "goes on||"));
    EXPECT_EQ(ended.Code, 0) << ended.Errors;
}

TEST_F(ProgramStart, RefusesASecondCopyInWords) {
    const std::intptr_t first = Host::ClaimSingleInstance(Global().InstanceName);
    ASSERT_NE(first, -1);
    Set("TMPDIR", "/nowhere");
    const Ended ended = Run();
    EXPECT_THAT(
        ended.Windows,
        ElementsAre("message|Tarvex Already Running|Cannot load program agian.  The requested application "
                    "is already open"));
    ExpectLeft(ended);
}

TEST_F(ProgramStart, NeedsNoWindowIcon) {
    std::filesystem::remove(Folder + "graphics/dorvane.svg");
    Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|no icon", "window|frmMain|no icon"));
    EXPECT_EQ(ended.Code, 0);
    PutFile("P:\\DORVANE\\graphics\\dorvane.svg", "no picture");
    ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|no icon", "window|frmMain|no icon"));
    EXPECT_EQ(ended.Code, 0);
}

TEST_F(ProgramStart, NeedsNoTemporaryFolder) {
    Set("TMPDIR", "/nowhere");
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|icon", HomeWindow));
    EXPECT_EQ(ended.Code, 0) << ended.Errors;
}

TEST_F(ProgramStart, TellsOfAFolderOfDrivesThatCannotBe) {
    Set("DORVANE_DRIVES", "/" + std::string(300, 'x'));
    Ended ended = Run();
    EXPECT_THAT(ended.Windows,
                ElementsAre("message|Program Error|Error : 52//File Name entered is illegal.//Source : "
                            "Dorvane-basMain-Main"));
    ExpectLeft(ended);
    Set("DORVANE_DRIVES", "/dev/null/drives");
    ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre(StartsWith("message|Program Error|Error : 7")));
    ExpectLeft(ended);
}

TEST_F(ProgramStart, TellsOfAHomeThatCannotHoldTheDrives) {
    World.remove("DORVANE_DRIVES");
    World.remove("XDG_DATA_HOME");
    Set("HOME", "/dev/null");
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre(StartsWith("message|Program Error|Error : 7")));
    ExpectLeft(ended);
}

TEST_F(ProgramStart, SaysThatThereIsNoDisplay) {
    Set("QT_QPA_PLATFORM", "xcb");
    World.remove("DISPLAY");
    World.remove("WAYLAND_DISPLAY");
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, IsEmpty());
    EXPECT_THAT(ended.Errors, HasSubstr("Dorvane ends: "));
    ExpectLeft(ended);
}

TEST_F(ProgramStart, EndsInWordsOnAFailureThatNothingHandles) {
    Set("DORVANE_TEST_FAILURE", "1");
    const Ended ended = Run();
    EXPECT_THAT(ended.Windows, ElementsAre("window|frmSplash|icon", HomeWindow));
    EXPECT_THAT(ended.Errors, HasSubstr("Dorvane ends: a failure that nobody handles\n"));
    ExpectLeft(ended);
}

}  // namespace Dorvane::Testing
