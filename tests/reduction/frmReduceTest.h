// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <QListWidget>

#include "reduction/TabPages.h"
#include "tests/reduction/ReductionScreenSite.h"

namespace Dorvane::Testing {

/// The reduction screen, read by its controls.
struct frmReduceTest : ReductionScreenSite {
    using Texts = std::vector<std::string>;

    static QListWidget& Results(QWidget& screen, const char* name = "lstReductionResults0") {
        return Control<QListWidget>(screen, name);
    }
    static Texts Epochs(QWidget& screen, const char* name) {
        auto& combo = Control<QComboBox>(screen, name);
        Texts texts;
        for (int i = 0; i < combo.count(); ++i)
            texts.push_back(FromScreen(combo.itemText(i)));
        return texts;
    }
    static TabPages& Tabs(QWidget& screen) { return Control<TabPages>(screen, "sstabReduction"); }
    static Texts Captions(QWidget& screen) {
        Texts captions;
        for (int i = 0; i < Tabs(screen).TabCount(); ++i)
            captions.push_back(TextOf(screen, ("tab" + std::to_string(i)).c_str()));
        return captions;
    }
    static void Calibrations(const Texts& typesAndEpochs) {
        Texts lines;
        for (const std::string& entry : typesAndEpochs)
            lines.push_back(" *       CALIB     " + entry);
        PutLines("D:\\TARVEX\\INIT\\CALIB.PTH", lines);
    }
    static void Editor() {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=C:\\ED\\", "Name=ED.EXE"});
    }
};

}  // namespace Dorvane::Testing
