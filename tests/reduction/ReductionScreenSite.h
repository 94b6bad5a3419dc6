// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QVariant>
#include <filesystem>
#include <string>
#include <vector>

#include "core/widgets/ScreenText.h"
#include "reduction/frmReduce.h"
#include "tests/reduction/ReductionSite.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

/// The reduction screen over a survey folder of data type LEVEL with one tab, whose program is there.
struct ReductionScreenSite : ReductionSite {
    ReductionScreenSite() {
        UseShippedPictures();
        Global().PrinterPresent = true;
        MakeFolders("P:\\DORVANE\\Programs\\");
        std::filesystem::copy_file(FAKERED, Drives::HostPath("P:\\DORVANE\\Programs\\FAKERED.EXE"));
        Desktop.RunsPrograms = true;
        Configure({"LEV_SrvIdx=TRUE", "LEV_Reduce=fakered.exe one.res two.res", "LEV_Param=angle fake.par"});
        Put(Index, IndexHead + IndexLine);
        Put("DAY1.LEV", "x");
    }
    ~ReductionScreenSite() override {
        if (!Screen.isNull())
            Screen->Unload();
        HandleEvents();
    }

    /// The data type LEVEL with the extension LEV, and further keys of it.
    static void Configure(std::vector<std::string> keys, const std::string& extensions = "LEV") {
        std::vector<std::string> lines = {
            "[Data Types]", "Epochs=TOTAL LEVEL",      "[TOTAL]",           "Extension=GSI", "GSI_Name=T",
            "[LEVEL]",      "Extension=" + extensions, "LEV_Name=Levelling"};
        lines.insert(lines.end(), keys.begin(), keys.end());
        DataTypeProfile(lines);
    }

    /// The data type LEVEL with so many tabs, "Tab 1" and on.
    static void ConfigureTabs(int count) {
        std::string extensions = "LEV";
        std::vector<std::string> keys;
        for (int i = 2; i <= count; ++i) {
            extensions += " E" + std::to_string(i);
            keys.push_back("E" + std::to_string(i) + "_Name=Tab " + std::to_string(i));
        }
        Configure(keys, extensions);
    }

    frmReduce& Open(const std::string& folder = Folder) {
        Screen = new frmReduce(Navigator);
        Screen->setUpdatesEnabled(Painted);
        Screen->SetSelectedDirectory(folder);
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }

    static std::string TagOf(QWidget& screen, const char* picture) {
        return FromScreen(Control<QWidget>(screen, picture).property("Tag").toString());
    }

    RecordingNavigator Navigator;
    QPointer<frmReduce> Screen;
    bool Painted = true;  // not in a child process, which lacks the threads that the toolkit paints with
};

}  // namespace Dorvane::Testing
