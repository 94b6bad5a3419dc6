// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReducePage.h"

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_ReducePage.h"

namespace Dorvane {

namespace {

constexpr int PictureSize = 32;

void KeepPlaceWhenHidden(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

QString DataMeaning(const std::string& tag) {
    return tag == "0" ? QStringLiteral("No data") : QStringLiteral("Data present");
}

QString ReductionMeaning(const std::string& tag) {
    if (tag == "0")
        return QStringLiteral("No results");
    return tag == "1" ? QStringLiteral("Results present and up to date")
                      : QStringLiteral("Results present, but some data is newer");
}

}  // namespace

const QIcon& StatePictures::Of(const std::string& name, const char* procedure) {
    const auto [place, isNew] = Read.try_emplace(name);
    if (isNew)
        Guarded(procedure, [&, &icon = place->second](Guard&) { icon = LoadPicture(name); });
    return place->second;
}

ReducePage::ReducePage(int index, StatePictures& pictures, QWidget* parent)
    : QWidget(parent), Pictures(pictures), Form(std::make_unique<Ui::ReducePage>()) {
    Form->setupUi(this);
    setObjectName(QStringLiteral("ReducePage%1").arg(index));
    const std::initializer_list<QWidget*> controls = {Form->lblDataTitle,
                                                      Form->imgData,
                                                      Form->lblReductionTitle,
                                                      Form->imgReduction,
                                                      Form->cmbCalibEpoch,
                                                      Form->lblCalibEpochTitle,
                                                      Form->lblReductionResults,
                                                      Form->lstReductionResults,
                                                      Form->cmdEdit,
                                                      Form->cmdPrint,
                                                      Form->cmdReduce};
    for (QWidget* control : controls)
        control->setObjectName(control->objectName() + QString::number(index));
    KeepPlaceWhenHidden(*Form->lblCalibEpochTitle);
    KeepPlaceWhenHidden(*Form->cmbCalibEpoch);
    Form->cmbCalibEpoch->setMinimumContentsLength(12);
    Form->cmdPrint->setEnabled(Global().PrinterPresent);
    connect(Form->cmdReduce, &QPushButton::clicked, this, &ReducePage::RunClicked);
    connect(Form->cmdEdit, &QPushButton::clicked, this, &ReducePage::EditClicked);
    connect(Form->cmdPrint, &QPushButton::clicked, this, &ReducePage::PrintClicked);
    connect(Form->lstReductionResults, &QListWidget::itemActivated, Form->cmdEdit, &QPushButton::click);
}

ReducePage::~ReducePage() = default;

void ReducePage::ShowTab(const ReduceTab& tab) {
    ShowCalibration(tab);
    Form->cmdReduce->setIcon({});
    Form->cmdReduce->setToolTip(ToTip(tab.RunTip));
    Guarded("frmReduce-lblSelectedDirectory_Change", [&](Guard&) {
        SetOptionalPicture(*Form->cmdReduce, tab.RunPicture);
        SetOptionalPicture(*Form->cmdEdit, "edit.svg");
        SetOptionalPicture(*Form->cmdPrint, "printer.svg");
    });
    ShowState(*Form->imgData, tab.Data, DataMeaning(tab.Data.Tag), "basReduce-DataIconSetup");
    ShowReduction(tab.Reduction);
}

void ReducePage::ShowCalibration(const ReduceTab& tab) {
    Form->cmbCalibEpoch->clear();
    for (const std::string& epoch : tab.Epochs)
        Form->cmbCalibEpoch->addItem(ToScreen(epoch));
    Form->cmbCalibEpoch->setCurrentIndex(tab.Epoch - 1);
    const bool calibrated = !tab.CalibrationType.empty();
    Form->lblCalibEpochTitle->setVisible(calibrated);
    Form->cmbCalibEpoch->setVisible(calibrated);
}

void ReducePage::ShowReduction(const ReductionState& state) {
    const std::string& tag = state.Picture.Tag;
    ShowState(*Form->imgReduction, state.Picture, ReductionMeaning(tag), "basReduce-ReduceIconSetup");
    Form->lstReductionResults->clear();
    for (const std::string& file : state.ResultFiles)
        Form->lstReductionResults->addItem(ToScreen(file));
    Form->cmdEdit->setEnabled(state.CanEdit);
    Form->cmdPrint->setEnabled(state.CanPrint);
}

// Where there is no picture the words stand for it.
void ReducePage::ShowState(QLabel& picture, const StatePicture& state, const QString& meaning,
                           const char* procedure) {
    const QIcon& icon = Pictures.Of(state.Picture, procedure);
    if (icon.isNull())
        picture.setText(meaning);
    else
        picture.setPixmap(icon.pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF()));
    picture.setToolTip(meaning);
    picture.setAccessibleName(meaning);
    picture.setProperty("Tag", ToScreen(state.Tag));
}

QWidgetList ReducePage::Stops() const {
    return {Form->cmbCalibEpoch, Form->cmdReduce, Form->lstReductionResults, Form->cmdEdit, Form->cmdPrint};
}

int ReducePage::Epoch() const {
    return Form->cmbCalibEpoch->currentIndex() + 1;
}

List1<std::string> ReducePage::Selected() const {
    List1<std::string> files;
    for (int row = 0; row < Form->lstReductionResults->count(); ++row) {
        const QListWidgetItem& item = *Form->lstReductionResults->item(row);
        if (item.isSelected())
            files.Add(FromScreen(item.text()));
    }
    return files;
}

}  // namespace Dorvane
