// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/MeterWindow.h"

#include <QLabel>
#include <QProgressBar>

#include "core/widgets/Animation.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

void MeterWindow::Open(int fileCount) {
    LoadForm();
    OpenLoaded(fileCount);
}

void MeterWindow::OpenLoaded(int fileCount) {
    QProgressBar& bar = *Controls().Bar;
    bar.setRange(0, fileCount);
    bar.setValue(0);
    Wait.emplace();
    ShowAtOnce();
}

void MeterWindow::ShowFile(const std::string& from, const std::string& to) {
    const MeterControls controls = Controls();
    controls.From->setText(ToScreen(from));
    controls.From->repaint();
    if (controls.To == nullptr)
        return;
    controls.To->setText(ToScreen(to));
    controls.To->repaint();
}

void MeterWindow::Advance(int filesDone) {
    Controls().Bar->setValue(filesDone);
}

void MeterWindow::Close() {
    Controls().Picture->Stop();
    hide();
    Wait.reset();
}

}  // namespace Dorvane
