// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QToolButton>
#include <algorithm>

#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basHelp.h"
#include "core/widgets/Later.h"
#include "core/widgets/PathTypeMenu.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "ui_frmMain.h"

namespace Dorvane {

namespace {

bool AnyWindowIsOpen() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && (window->windowFlags() & Qt::WindowType_Mask) != Qt::ToolTip;
    });
}

constexpr int ButtonWidth = 45;
constexpr int ButtonHeight = 42;
constexpr int PictureSize = 32;
constexpr int ButtonsPerRow = 5;

void OnClick(QAction* action, const char* event, const std::function<void()>& click) {
    QObject::connect(action, &QAction::triggered, action,
                     [event, click] { Guarded(event, [&](Guard&) { click(); }); });
}

}  // namespace

frmMain::frmMain(Navigator& navigator, std::function<void()> loadTree)
    : Nav(navigator), ReadTree(std::move(loadTree)), Form(std::make_unique<Ui::frmMain>()) {
    Form->setupUi(this);
    BuildButtons();
    ConnectMenus();
    ConnectProfileEditors();
    LoadForm();
}

frmMain::~frmMain() = default;

void frmMain::BuildButtons() {
    const auto buttons = ReadHomeButtons();
    for (int i = 0; i < HomeButtonCount; ++i) {
        const auto place = static_cast<std::size_t>(i);
        auto* button = new QToolButton(Form->centralWidget);
        button->setObjectName(QStringLiteral("cmdMain%1").arg(i));
        button->setFixedSize(ButtonWidth, ButtonHeight);
        button->setIconSize({PictureSize, PictureSize});
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolTip(ToTip(buttons[place].Tip));
        button->setAccessibleName(ToScreen(buttons[place].Title));
        button->setShortcut(QKeySequence(QString::number((i + 1) % HomeButtonCount)));
        connect(button, &QToolButton::clicked, this, [this, i] { cmdMain_Click(i); });
        auto* label = new QLabel(ToScreen(buttons[place].Title), Form->centralWidget);
        label->setObjectName(QStringLiteral("lblMain%1").arg(i));
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        cmdMain[place] = button;
        lblMain[place] = label;
        if (!buttons[place].Icon.empty())
            Guarded("frmMain-LoadForm", [&](Guard& guard) {
                guard.Run([&] { button->setIcon(LoadPicture(buttons[place].Icon)); });
            });
    }
    LayOutButtons();
}

// Captions make the columns equally wide, so that the buttons stand in a regular pattern.
void frmMain::LayOutButtons() {
    int widest = fontMetrics().averageCharWidth() * 12;
    for (const QLabel* label : lblMain)
        widest = std::max(widest, label->sizeHint().width());
    QGridLayout& grid = *Form->buttonLayout;
    for (int i = 0; i < HomeButtonCount; ++i) {
        const int row = i / ButtonsPerRow;
        const int column = i % ButtonsPerRow;
        auto* cell = new QVBoxLayout;
        cell->setSpacing(6);
        cell->addWidget(cmdMain[static_cast<std::size_t>(i)], 0, Qt::AlignHCenter);
        cell->addWidget(lblMain[static_cast<std::size_t>(i)]);
        grid.addLayout(cell, row, column);
        grid.setColumnMinimumWidth(column, widest);
        grid.setColumnStretch(column, 1);
    }
}

void frmMain::ConnectMenus() {
    OnClick(Form->mnuPrinterSetup, "frmMain-mnuPrinterSetup_Click", [] { PrinterSetup(); });
    OnClick(Form->mnuExit, "frmMain-mnuExit_Click", [this] { Nav.EndProgram(); });
    OnClick(Form->mnuHelpContents, "frmMain-mnuHelpContents_Click", [] { ShowHelpContents("Main"); });
    OnClick(Form->mnuHelpIndex, "frmMain-mnuHelpIndex_Click", [] { ShowHelpIndex("Main"); });
    OnClick(Form->mnuHelpSearch, "frmMain-mnuHelpSearch_Click", [] { SearchHelp(); });
    OnClick(Form->mnuAbout, "frmMain-mnuAbout_Click", [this] { Nav.OpenAbout(); });
}

void frmMain::ConnectProfileEditors() {
    OnClick(Form->mnuDataTypeINI, "frmMain-mnuDataTypeINI_Click", [] { EditProfile("dv_datatype.ini"); });
    OnClick(Form->mnuDownloadINI, "frmMain-mnuDownloadINI_Click", [] { EditProfile("dv_download.ini"); });
    OnClick(Form->mnuInputINI, "frmMain-mnuInputINI_Click", [] { EditProfile("dv_input.ini"); });
    OnClick(Form->mnuMainINI, "frmMain-mnuMainINI_Click", [] { EditProfile("dv_main.ini"); });
    OnClick(Form->mnuErrorLog, "frmMain-mnuErrorLog_Click", [] { EditErrorLog(); });
    OnClick(Form->mnuTarvexINI, "frmMain-mnuTarvexINI_Click", [this] { mnuTarvexINI_Click(); });
    OnClick(Form->mnuConfigure, "frmMain-mnuConfigure_Click",
            [] { RunStructureEditor("Programs\\EditChoice.exe"); });
    OnClick(Form->mnuCalib, "frmMain-mnuCalib_Click", [] { RunStructureEditor("Programs\\EditCalib.exe"); });
    OnClick(Form->mnuBiasValues, "frmMain-mnuBiasValues_Click",
            [] { RunStructureEditor("Programs\\EditBias.exe"); });
}

void frmMain::LoadForm() {
    const QFontMetrics metrics = Form->sbrMain->fontMetrics();
    Form->sbrMain->setMinimumHeight(metrics.height() * 3 / 2);
    HomePanel = AddPanel(*Form->sbrMain, QStringLiteral("sbrMainPanel1"), 1);
    QLabel* pathPanel = AddPanel(*Form->sbrMain, QStringLiteral("sbrMainPanel2"));
    PathTypes = new PathTypeMenu("frmMain", Form->mnuTarvex, Form->mnuManual, pathPanel);
    ShowFolderState();
}

// Enables or disables what the folders of dv_tarvex.ini are needed for.
void frmMain::ShowFolderState() {
    const bool right = !Global().InitFailed;
    HomePanel->setText(right ? QStringLiteral("Home Menu") : QStringLiteral("Error in Tarvex.ini File"));
    for (const int index : ButtonsThatNeedFolders()) {
        cmdMain[static_cast<std::size_t>(index)]->setEnabled(right);
        lblMain[static_cast<std::size_t>(index)]->setEnabled(right);
    }
    for (const char* name : MenusThatNeedFolders())
        findChild<QAction*>(QLatin1String(name))->setEnabled(right);
    Form->mnuPrinterSetup->setEnabled(Global().PrinterPresent);
    PathTypes->Show();
}

void frmMain::ShowPathType() {
    PathTypes->Show();
}

void frmMain::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (!Activated && !event->spontaneous())
        CallLater(this, [this] { FirstActivation(); });
}

void frmMain::FirstActivation() {
    if (Activated)
        return;
    Activated = true;
    if (focusWidget() == nullptr)
        cmdMain[Global().InitFailed ? 5 : 0]->setFocus();
    if (!Global().InitFailed)
        Guarded("frmMain-Form_Activate", [&](Guard&) { LoadTree(); });
}

void frmMain::LoadTree() {
    const WaitCursor wait;
    ReadTree();
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    CallLater(Form->mnuExit, [exit = Form->mnuExit] { exit->trigger(); });
}

void frmMain::cmdMain_Click(int index) {
    const bool opened = Guarded("frmMain-cmdMain_Click", [&](Guard&) {
        if (index == 3)
            return OpenReduction();
        if (index == 6)
            return TheDesktop().StartProgram(AppPath() + "Programs\\utilities.exe dv_special.ini");
        if (index == 9)
            return Nav.EndProgram();
        hide();
        switch (index) {
            case 0: return Nav.OpenSystemOptions();
            case 1: return Nav.OpenDownload();
            case 2: return Nav.OpenUpload();
            case 4: return Nav.OpenInput();
            case 5: return Nav.OpenAdjustment();
            case 7: return Nav.OpenDatabase();
            default: return OpenTree("Access Subdirectories ...");
        }
    });
    // A hidden menu with no window open is a program that nobody can reach.
    if (!opened && !AnyWindowIsOpen())
        Nav.ShowHome();
}

void frmMain::OpenTree(const char* title) {
    hide();
    Nav.OpenTree(title, LastTreePath());
}

void frmMain::OpenReduction() {
    if (Global().Path_type == 1)
        return OpenTree("Data Reduction Directory Selection");
    const std::string folder = ChooseReductionFolder();
    if (folder.empty())
        return;
    hide();
    Nav.OpenReduction(folder);
}

void frmMain::mnuTarvexINI_Click() {
    const bool right = EditStartUpProfile();
    ShowFolderState();
    if (right)
        LoadTree();
}

}  // namespace Dorvane
