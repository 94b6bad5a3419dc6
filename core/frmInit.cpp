// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmInit.h"

#include "core/DriveLinks.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basMain.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/WaitCursor.h"
#include "ui_frmInit.h"

namespace Dorvane {

namespace {

// The folder that a drive leads to or, on a host with letters of its own, the drive.
std::string HostFolderOf(char letter) {
    if (Drives::CanLayOut())
        for (const Drives::Link& link : Drives::Links())
            if (link.Letter == letter)
                return link.Folder;
    return Drives::HostPath(std::string(1, letter) + ":\\");
}

}  // namespace

frmInit::frmInit() : Form(std::make_unique<Ui::frmInit>()) {
    Form->setupUi(this);
    Form->lblDescription->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    ReturnsBy(Form->cmdCancel);
    ShowDrives();
    Form->cmdDrives->setVisible(Drives::CanLayOut());
    connect(Form->cmdDrives, &QPushButton::clicked, this, [this] { cmdDrives_Click(); });
    connect(Form->cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(Form->cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}

frmInit::~frmInit() = default;

void frmInit::ShowDrives() {
    Guarded("frmInit-LoadForm", [&](Guard& guard) {
        guard.Run([&] { FillDrives(*Form->drvMain, 'D'); });
        guard.Run([&] { FillDrives(*Form->drvLocal, 'C'); });
    });
}

// The choice that was made stays where its drive is still there.
void frmInit::cmdDrives_Click() {
    Guarded("frmInit-cmdDrives_Click", [&](Guard&) {
        const QString local = Form->drvLocal->currentText();
        TheDesktop().RunAndWait(AppPath() + "Programs\\EditDrives.exe");
        Form->drvMain->clear();
        Form->drvLocal->clear();
        ShowDrives();
        if (const int place = Form->drvLocal->findText(local); place >= 0)
            Form->drvLocal->setCurrentIndex(place);
    });
}

// A drive is listed as "D: [where it lies on this computer]".
void frmInit::FillDrives(QComboBox& list, char preferred) {
    for (const char letter : Drives::DriveLetters()) {
        const QString place = QString::fromStdString(HostFolderOf(letter));
        list.addItem(QStringLiteral("%1: [%2]").arg(QChar::fromLatin1(letter)).arg(place));
        if (letter == preferred)
            list.setCurrentIndex(list.count() - 1);
    }
}

void frmInit::cmdOK_Click() {
    const WaitCursor wait;
    if (CreateDefaultFolders(FromScreen(Form->drvMain->currentText()),
                             FromScreen(Form->drvLocal->currentText())))
        Unload();
}

void frmInit::cmdCancel_Click() {
    Global().InitFailed = true;
    Unload();
}

}  // namespace Dorvane
