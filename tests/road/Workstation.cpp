// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/road/Workstation.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/basMain.h"
#include "core/widgets/ScreenText.h"
#include "datatree/DirectoryTree.h"
#include "tests/app/PrintServer.h"

namespace Dorvane::Testing {

namespace {

QWidget* FindScreen(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String(name))
            return window;
    return nullptr;
}

void ChooseDrive(QWidget& screen, const char* list, const char* letter) {
    auto& drives = Control<QComboBox>(screen, list);
    drives.setCurrentIndex(drives.findText(QLatin1String(letter), Qt::MatchStartsWith));
}

}  // namespace

Workstation::Workstation() {
    setenv("DORVANE_DRIVES", Site.HostFolder().c_str(), 1);
    ForgetPrintServer();  // a journey that prints brings up its own
    InstallProgram();
    Desk = std::make_unique<QtDesktop>();
}

Workstation::~Workstation() {
    Navigator.reset();
    HandleEvents();
    unsetenv("DORVANE_DRIVES");
}

// The program's own folder, with what is only read as links to the finished one.
void Workstation::InstallProgram() {
    namespace fs = std::filesystem;
    MakeFolders(Global().ProgramFolder);
    const fs::path folder = Drives::HostPath(Global().ProgramFolder);
    for (const fs::directory_entry& entry : fs::directory_iterator(DORVANE_FOLDER))
        if (entry.path().filename() == "Keld")
            fs::copy(entry.path(), folder / "Keld");
        else if (entry.path().filename() != "ERROR.LOG")
            fs::create_symlink(entry.path(), folder / entry.path().filename());
}

void Workstation::WhenOpen(const char* name, const std::function<void(QWidget&)>& act) {
    auto* looker = new QTimer(qApp);
    QObject::connect(looker, &QTimer::timeout, looker, [looker, name, act] {
        QWidget* screen = FindScreen(name);
        if (screen == nullptr)
            return;
        looker->stop();
        looker->deleteLater();
        act(*screen);
    });
    looker->start(5);
}

void Workstation::Start() {
    Navigator = std::make_unique<AppNavigator>();
    WhenOpen("frmSplash", [](QWidget& splash) { QTest::keyClick(&splash, Qt::Key_Space); });
    WhenOpen("frmInit", [](QWidget& init) {
        ChooseDrive(init, "drvMain", "D");
        ChooseDrive(init, "drvLocal", "C");
        PressKey(init, "cmdOK");
    });
    const bool first = Main(
        {[&] { Navigator->ShowSplash(); }, [&] { Navigator->ShowInit(); }, [&] { Navigator->ShowMain(); }});
    ASSERT_TRUE(first);
    HandleEvents();
}

QWidget& Workstation::Screen(const char* name) {
    QWidget* screen = FindScreen(name);
    if (screen == nullptr)
        throw std::runtime_error(std::string("not open: ") + name);
    return *screen;
}

bool Workstation::IsOpen(const char* name) {
    return FindScreen(name) != nullptr;
}

void Workstation::LayDownStructures() {
    const std::string shipped = Global().ProgramFolder + "samples\\site\\INIT\\";
    for (const Drives::Entry& entry : Drives::List(shipped))
        Drives::CopyFile(shipped + entry.Name, Global().Init_path + entry.Name);
}

void Workstation::AddSurvey(const std::string& location, const std::vector<std::string>& types,
                            const std::string& epoch, const std::string& history) {
    Click(Screen("frmMain"), "cmdMain0");
    Click(Screen("frmSysOption"), "cmdData");
    Click(Screen("frmTree"), "cmdAdd");
    QWidget& dialog = Screen("frmAddSurvey");
    ClickItem(dialog, "lstRoot", "DAM");
    ClickItem(dialog, "lstLocation", location);
    for (const std::string& type : types)
        ClickItem(dialog, "lstTypeMulti", type);
    ClickItem(dialog, "lstEpoch", epoch);
    Type(dialog, "txtHistory", history);
    Person.ExpectMessageTitled("Survey Added");
    Click(dialog, "cmdOK");
    PressKey(Screen("frmTree"), "cmdHome");
}

void Workstation::ChooseFolder(QWidget& screen, const std::string& folder) {
    auto& tree = Control<DirectoryTree>(screen, "trvDirectory");
    tree.expandAll();
    QTreeWidgetItemIterator item(&tree);
    for (; *item != nullptr; ++item)
        if ((tree.setCurrentItem(*item), tree.ChosenKey() == folder))
            break;
    if (*item == nullptr)
        throw std::runtime_error("no node of " + folder);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(*item).center());
    HandleEvents();
}

void Workstation::PressKey(QWidget& screen, const char* button) {
    auto& control = Control<QAbstractButton>(screen, button);
    if (!control.isVisibleTo(&screen) || !control.isEnabled())
        throw std::runtime_error(std::string("cannot be pressed: ") + button);
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_Space);
    HandleEvents();
}

void Workstation::Type(QWidget& screen, const char* field, const std::string& text) {
    auto& control = Control<QLineEdit>(screen, field);
    control.setFocus();
    QInputMethodEvent typed;
    typed.setCommitString(ToScreen(text));
    QApplication::sendEvent(&control, &typed);
}

}  // namespace Dorvane::Testing
