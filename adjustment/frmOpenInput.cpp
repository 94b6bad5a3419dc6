// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/frmOpenInput.h"

#include <QStyledItemDelegate>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmOpenInput.h"

namespace Dorvane {

namespace {

// Shows the beginning of an entry: to lay out the endless lines of a damaged note takes seconds.
class EntryBeginning : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& /*locale*/) const override {
        constexpr int longest = 2000;
        return value.toString().left(longest);
    }
};

void Fill(QListWidget& list, const List1<std::string>& entries) {
    QStringList texts;
    for (const std::string& entry : entries)
        texts.append(ToScreen(entry));
    list.clear();
    list.addItems(texts);
}

}  // namespace

frmOpenInput::frmOpenInput() : Form(std::make_unique<Ui::frmOpenInput>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdOK);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 110, metrics.lineSpacing() * 32);
    Guarded("frmOpenInput-LoadForm", [&](Guard&) { SetOptionalPicture(*Form->cmdOK, "ok.svg"); });
    for (QListWidget* list : Form->fraRemovedData->findChildren<QListWidget*>())
        list->setItemDelegate(new EntryBeginning(list));
    ClearVersionLists();
    connect(Form->cmbVersion, &QComboBox::activated, this, &frmOpenInput::cmbVersion_Click);
    connect(Form->cmdOK, &QPushButton::clicked, this, [this] { Unload(); });
    Form->cmbVersion->setFocus();
}

frmOpenInput::~frmOpenInput() = default;

void frmOpenInput::SetVersion(const std::string& version) {
    Form->lblVersion->setText(ToScreen(version));
}

void frmOpenInput::SetDirectory(const std::string& inputPath) {
    Form->lblDirectory->setText(ToScreen(inputPath));
    OpenVersions(State, inputPath, FromScreen(Form->lblVersion->text()));
    Form->lblPath->setText(ToScreen(State.lblPath));
    Form->lblMaster->setText(ToScreen(State.lblMaster));
    Form->cmbVersion->clear();
    for (const std::string& version : State.cmbVersion.Entries)
        Form->cmbVersion->addItem(ToScreen(version));
    Form->cmbVersion->setCurrentIndex(State.cmbVersion.Selected - 1);
    ShowVersionFile();
}

void frmOpenInput::cmbVersion_Click(int index) {
    Guarded("frmOpenInput-cmbVersion_Click", [&](Guard&) {
        ClearVersionLists();
        ClickBrowsedVersion(State, index + 1);
        ShowVersionFile();
    });
}

void frmOpenInput::ShowVersionFile() {
    Fill(*Form->lstStations, State.Lists.Stations);
    Fill(*Form->lstPoints, State.Lists.Points);
    Fill(*Form->lstTracker, State.Lists.Tracker);
    Fill(*Form->lstTotal, State.Lists.Total);
    Fill(*Form->lstAngle, State.Lists.Angle);
    Fill(*Form->lstDistance, State.Lists.Distance);
    Fill(*Form->lstHeight, State.Lists.Height);
    Fill(*Form->lstGyro, State.Lists.Gyro);
}

void frmOpenInput::ClearVersionLists() {
    for (QListWidget* list : Form->fraRemovedData->findChildren<QListWidget*>())
        list->clear();
}

}  // namespace Dorvane
