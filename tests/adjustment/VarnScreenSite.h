// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QPointer>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "adjustment/frmVarn.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/Reports.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// What a package does in a test: its calls are recorded and do what the test says.
struct PackageScript {
    std::vector<std::string> Calls;
    std::function<std::int16_t()> Start = [] { return 0; };
    std::function<std::int16_t()> Go = [] { return 0; };
    std::function<void()> Stop = [] {};
};

class ScriptedPackage : public AdjustmentPackage {
  public:
    explicit ScriptedPackage(PackageScript& script) : Script(script) {}

    std::int16_t Start(std::string& inputPath) override {
        Script.Calls.push_back("start " + inputPath);
        return Script.Start();
    }
    std::int16_t Go(std::int32_t type) override {
        Script.Calls.push_back("go " + std::to_string(type));
        return Script.Go();
    }
    void Stop() override {
        Script.Calls.emplace_back("stop");
        Script.Stop();
    }

  private:
    PackageScript& Script;
};

/// The adjustment screen beside D:\ADJ\NET.INP, which is there, with a package by script.
struct VarnScreenSite : testing::Test {
    using Texts = std::vector<std::string>;

    VarnScreenSite() {
        UseShippedPictures();
        Global().PrinterPresent = true;
        PutLines(Net, {"NORL", "", "  PROJECT = North Dam", "     TASK = Level 2", "     DATE = the run",
                       "LISTING = STATS"});
    }
    ~VarnScreenSite() override {
        if (!Screen.isNull())
            Screen->Unload();
        HandleEvents();
    }

    static void Put(const std::string& name) { PutFile("D:\\ADJ\\" + name, ""); }

    /// What belongs to NET.INP: all of the master's, a listing of version 01 and nothing of version 02.
    static void PutNet() {
        for (const char* name : {"NET.PAR", "NET.OUT", "NET_v01.INP", "NET_v01.OUT", "NET_v02.INP"})
            Put(name);
    }

    frmVarn& Open(const std::string& input = "") {
        return Load([this] { return std::make_unique<ScriptedPackage>(Package); }, input);
    }
    frmVarn& OpenNet() { return Open(Net); }
    /// The screen with the package that it takes by itself.
    frmVarn& OpenOnItsOwnPackage() { return Load({}, Net); }

    frmVarn& Load(const frmVarn::PackageFactory& makePackage, const std::string& input) {
        Screen = new frmVarn(Nav, makePackage);
        if (!input.empty())
            Screen->SetInput(input);
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }

    static QComboBox& Combo(QWidget& screen, const char* name) { return Control<QComboBox>(screen, name); }
    static Texts Entries(QWidget& screen, const char* name) {
        Texts texts;
        for (int i = 0; i < Combo(screen, name).count(); ++i)
            texts.push_back(FromScreen(Combo(screen, name).itemText(i)));
        return texts;
    }
    static std::string Chosen(QWidget& screen, const char* name) {
        return FromScreen(Combo(screen, name).currentText());
    }
    /// Chooses an entry by the keyboard.
    static void Pick(QWidget& screen, const char* name, int entry) {
        QComboBox& combo = Combo(screen, name);
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int i = 1; i < entry; ++i)
            QTest::keyClick(&combo, Qt::Key_Down);
        HandleEvents();
    }

    static QAction& Item(QWidget& screen, const char* name) {
        auto* action = screen.findChild<QAction*>(QLatin1String(name));
        if (action == nullptr)
            throw std::runtime_error(std::string("no menu item ") + name);
        return *action;
    }
    static bool IsTicked(QWidget& screen, const char* name) {
        if (auto* action = screen.findChild<QAction*>(QLatin1String(name)))
            return action->isChecked();
        return Control<QAbstractButton>(screen, name).isChecked();
    }
    /// Whether the three entries that follow the listing are enabled; they must agree.
    static bool ExportsEnabled(QWidget& screen) {
        EXPECT_EQ(IsEnabled(screen, "mnuXyz"), IsEnabled(screen, "mnuInu"));
        EXPECT_EQ(IsEnabled(screen, "mnuXyz"), IsEnabled(screen, "mnuKeld"));
        return IsEnabled(screen, "mnuXyz");
    }
    static QColor Colour(QWidget& screen, const char* label) {
        return Control<QWidget>(screen, label).palette().color(QPalette::WindowText);
    }
    static bool IsRed(QWidget& screen, const char* label) {
        return Colour(screen, label) == QColor(255, 0, 0);
    }

    void InstallEditor() {
        IniWriteString("dv_tarvex.ini", "General Editor", "Path", "C:\\EDIT\\");
        IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ED.EXE");
        PutFile("C:\\EDIT\\ED.EXE", "");
    }
    static std::string LastPath() { return IniReadString("dv_tarvex.ini", "Tarvex", "Last Path"); }

    const std::string Net = "D:\\ADJ\\NET.INP";
    const std::string Output = "D:\\ADJ\\NET.OUT";
    TestSite Site;
    ScriptedDesktop Desktop;
    RecordingNavigator Nav;
    PackageScript Package;
    QPointer<frmVarn> Screen;
};

}  // namespace Dorvane::Testing
