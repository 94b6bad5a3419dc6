// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmDownload.h"

#include <QSignalBlocker>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmDownload.h"
#include "upload/FolderChoice.h"

namespace Dorvane {

frmDownload::frmDownload(Navigator& navigator) : Nav(navigator), Form(std::make_unique<Ui::frmDownload>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    connect(Form->lstOptions, &QListWidget::itemSelectionChanged, this,
            [this] { On("lstOptions_Click", [&] { ChooseOption(); }); });
    connect(Form->cmdBrowse, &QPushButton::clicked, this, [this] {
        On("cmdBrowse_Click", [&] { Form->lblDirectory->setText(ToScreen(AskDownloadFolder())); });
    });
    connect(Form->cmdComPort, &QPushButton::clicked, this, [this] {
        On("cmdComPort_Click", [&] {
            Nav.OpenConstruct("Comport Download",
                              "Option Under Construction: In the future this option will allow the "
                              "downloading of data through the comport.");
        });
    });
    connect(Form->cmdDownload, &QPushButton::clicked, this, [this] {
        On("cmdDownload_Click", [&] {
            Nav.OpenConstruct("Download Programs",
                              "Option Under Construction: In the future this option will allow the "
                              "downloading of programs.");
        });
    });
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] { On("cmdHome_Click", [&] { GoHome(); }); });
    connect(Form->mnuGoHome, &QAction::triggered, this, [this] { On("mnuGoHome_Click", [&] { GoHome(); }); });
    LoadForm();
}

frmDownload::~frmDownload() = default;

void frmDownload::On(const char* event, const std::function<void()>& body) {
    Guarded(std::string("frmDownload-") + event, [&](Guard&) { body(); });
}

void frmDownload::LoadForm() {
    On("LoadForm", [&] {
        SetOptionalPicture(*Form->cmdBrowse, "browse.svg");
        SetOptionalPicture(*Form->cmdComPort, "comport.svg");
        SetOptionalPicture(*Form->cmdDownload, "download.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
    LoadDownloadState(State);
    QListWidget& options = *Form->lstOptions;
    const QSignalBlocker quiet(options);
    for (const DownloadGroup& group : State.Groups)
        options.addItem(ToScreen(group.Title));
    if (!State.Option.empty())
        options.setCurrentRow(0);
    ShowFiles();
    options.setFocus();
}

void frmDownload::GoHome() {
    Unload();
    Nav.ShowHome();
}

void frmDownload::ChooseOption() {
    const QModelIndexList chosen = Form->lstOptions->selectionModel()->selectedIndexes();
    if (chosen.isEmpty())
        return;
    ChooseDownloadGroup(State, State.Groups[chosen.first().row() + 1].Title);
    ShowFiles();
}

void frmDownload::ShowFiles() {
    Form->lblOptions->setText(ToScreen(State.Option));
    QStringList names;
    for (const std::string& name : State.Files)
        names.append(ToScreen(name));
    Form->lstFiles->clear();
    Form->lstFiles->addItems(names);
}

}  // namespace Dorvane
