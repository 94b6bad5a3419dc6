// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/frmReduce.h"

#include <QLabel>
#include <QScopedValueRollback>

#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/HomeLook.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "reduction/ReductionEnd.h"
#include "reduction/ReductionRun.h"
#include "reduction/ResultFiles.h"
#include "reduction/TabPages.h"
#include "ui_frmReduce.h"
#include "upload/FolderChoice.h"

namespace Dorvane {

namespace {

constexpr int DesignedTabsPerRow = 3;
constexpr int InputErrand = 5;

}  // namespace

frmReduce::frmReduce(Navigator& navigator) : Nav(navigator), Form(std::make_unique<Ui::frmReduce>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    StatePanel = AddPanel(*Form->sbrReduce, QStringLiteral("sbrReducePanel1"), 1);
    TypePanel = AddPanel(*Form->sbrReduce, QStringLiteral("sbrReducePanel2"));
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 100, metrics.lineSpacing() * 32);
    ConnectCommands();
    LoadForm();
}

frmReduce::~frmReduce() = default;

void frmReduce::LoadForm() {
    Form->mnuPrinter->setEnabled(Global().PrinterPresent);
    Guarded("frmReduce-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdChangeDir, "back.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
        DressLikeHome(*Form->cmdInputCreator, InputErrand);
    });
    AddPage();
}

void frmReduce::ConnectCommands() {
    connect(Form->sstabReduction, &TabPages::CurrentChanged, this, &frmReduce::sstabReduction_Click);
    connect(Form->cmdChangeDir, &QPushButton::clicked, this, &frmReduce::cmdChangeDir_Click);
    connect(Form->cmdInputCreator, &QPushButton::clicked, this, [this] {
        Guarded("frmReduce-cmdInputCreator_Click", [&](Guard&) {
            Unload();
            Nav.OpenInput();
        });
    });
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] { GoHome("frmReduce-cmdHome_Click"); });
    connect(Form->mnuGoHome, &QAction::triggered, this, [this] { GoHome("frmReduce-mnuGoHome_Click"); });
    connect(Form->mnuPrinter, &QAction::triggered, this,
            [] { Guarded("frmReduce-mnuPrinter_Click", [](Guard&) { PrinterSetup(); }); });
}

void frmReduce::AddPage() {
    const int index = static_cast<int>(Pages.size());
    auto* page = new ReducePage(index, Pictures);
    connect(page, &ReducePage::RunClicked, this, [this, index] { cmdReduce_Click(index); });
    connect(page, &ReducePage::EditClicked, this, [this, index] { cmdEdit_Click(index); });
    connect(page, &ReducePage::PrintClicked, this, [this, index] { cmdPrint_Click(index); });
    Form->sstabReduction->AddPage(page);
    Pages.push_back(page);
}

void frmReduce::SetSelectedDirectory(const std::string& folder) {
    const WaitCursor wait;
    Form->lblSelectedDirectory->setText(ToScreen(folder));
    // A set-up that failed leaves no tab to work on, so that nothing is run or edited that is not shown.
    if (!SetupReduceTabs(folder, State))
        State.Tabs.Clear();
    ShowTabs();
}

void frmReduce::ShowTabs() {
    QStringList captions;
    for (int i = 1; i <= State.Tabs.Count(); ++i) {
        if (static_cast<std::size_t>(i) > Pages.size())
            AddPage();
        Pages[static_cast<std::size_t>(i) - 1]->ShowTab(State.Tabs[i]);
        captions.append(ToCaption(State.Tabs[i].Name));
    }
    {
        const QScopedValueRollback<bool> settingUp(SettingUp, true);
        Form->sstabReduction->SetTabs(captions,
                                      State.TabsPerRow == 0 ? DesignedTabsPerRow : State.TabsPerRow);
        if (!State.Tabs.Empty())
            Form->sstabReduction->SetCurrent(LastUsedTab(State) - 1);
    }
    OrderStops();
    Form->sstabReduction->FocusTabs();
    TypePanel->setText(ToScreen(State.DataTypeName));
    ShowStatus();
}

// The Tab key goes from the tabs to the page behind them, and then to the ways out.
void frmReduce::OrderStops() {
    QWidgetList stops = Form->sstabReduction->TabWidgets();
    for (const ReducePage* page : Pages)
        stops += page->Stops();
    stops += {Form->cmdChangeDir, Form->cmdInputCreator, Form->cmdHome};
    for (int i = 1; i < stops.size(); ++i)
        setTabOrder(stops[i - 1], stops[i]);
}

// A tab that the operator chose is proposed when the screen opens again.
void frmReduce::sstabReduction_Click(int tab) {
    ShowStatus();
    if (!SettingUp)
        Guarded("frmReduce-sstabReduction_Click", [&](Guard&) { RememberTab(State, tab + 1); });
}

void frmReduce::ShowStatus() {
    const int current = Form->sstabReduction->Current();
    StatePanel->setText(current < 0 ? QStringLiteral("Nothing to reduce")
                                    : ToScreen(ReductionStatus(State.Tabs[current + 1])));
}

void frmReduce::cmdReduce_Click(int page) {
    bool ran = false;
    Guarded("frmReduce-cmdReduce_Click", [&](Guard&) { ran = RunTab(page); });
    ShowStatus();
    if (ran)
        TellReductionEnd(State, page + 1);
}

bool frmReduce::RunTab(int page) {
    ReducePage& tab = *Pages[static_cast<std::size_t>(page)];
    State.Tabs[page + 1].Epoch = tab.Epoch();
    const WaitCursor wait;
    // Painted at once, since nothing is painted while the program runs.
    StatePanel->setText(QStringLiteral("Running the reduction program ..."));
    StatePanel->repaint();
    if (!RunReduction(State, page + 1))
        return false;
    tab.ShowReduction(State.Tabs[page + 1].Reduction);
    return true;
}

void frmReduce::cmdEdit_Click(int page) {
    EditResults(State, page + 1, Pages[static_cast<std::size_t>(page)]->Selected());
}

void frmReduce::cmdPrint_Click(int page) {
    PrintResults(State, page + 1, Pages[static_cast<std::size_t>(page)]->Selected());
}

void frmReduce::cmdChangeDir_Click() {
    Guarded("frmReduce-cmdChangeDir_Click", [&](Guard&) {
        if (Global().Path_type == 1) {
            const std::string last = LastTreePath();
            Unload();
            Nav.OpenTree("Data Reduction Directory Selection", last);
        } else if (Global().Path_type == 2) {
            ChangeByHand();
        }
    });
}

// The screen lives on, so that a folder of two or more tabs may ask for the copied controls a second time,
// which fails; it is meant to be so.
void frmReduce::ChangeByHand() {
    hide();
    std::string folder;
    if (AskReductionFolder(folder))
        SetSelectedDirectory(folder);
    ShowModal();
}

void frmReduce::GoHome(const char* event) {
    Guarded(event, [&](Guard&) {
        Unload();
        Nav.ShowHome();
    });
}

}  // namespace Dorvane
