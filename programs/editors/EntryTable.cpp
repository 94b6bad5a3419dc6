// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryTable.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int IdRole = Qt::UserRole;

}  // namespace

EntryTable::EntryTable(QWidget* parent)
    : QWidget(parent),
      Grid(new EntryGrid(this)),
      MarkText(new QLabel(this)),
      AddButton(new QPushButton(tr("Add"), this)),
      RemoveButton(new QPushButton(tr("Remove"), this)),
      UpButton(new QPushButton(tr("Up"), this)),
      DownButton(new QPushButton(tr("Down"), this)) {
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {AddButton, RemoveButton, UpButton, DownButton}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(Grid);
    outer->addWidget(MarkText);
    outer->addLayout(buttons);
    AddButton->setObjectName(QStringLiteral("cmdAdd"));
    AddButton->setToolTip(tr("Add a line behind the chosen one (Ins)"));
    RemoveButton->setObjectName(QStringLiteral("cmdRemove"));
    RemoveButton->setToolTip(tr("Remove the chosen line (Del)"));
    UpButton->setObjectName(QStringLiteral("cmdUp"));
    UpButton->setToolTip(tr("Move the chosen line up (Ctrl+Up)"));
    DownButton->setObjectName(QStringLiteral("cmdDown"));
    DownButton->setToolTip(tr("Move the chosen line down (Ctrl+Down)"));
    MarkText->setObjectName(QStringLiteral("lblMark"));
    MarkText->setTextFormat(Qt::PlainText);
    MarkText->setWordWrap(true);
    MarkText->hide();
    Grid->setObjectName(QStringLiteral("grdEntries"));
    Grid->setMinimumHeight(fontMetrics().lineSpacing() * 10);
    setFocusProxy(Grid);
    connect(AddButton, &QPushButton::clicked, this, &EntryTable::Add);
    connect(RemoveButton, &QPushButton::clicked, this, &EntryTable::Remove);
    connect(UpButton, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(DownButton, &QPushButton::clicked, this, [this] { Move(1); });
    ConnectKeys();
    connect(Grid, &QTableWidget::currentCellChanged, this, [this](int row, int, int former, int) {
        ShowButtons();
        ShowMark();
        if (!Quiet && row != former)
            emit LineChosen();
    });
    connect(Grid, &QTableWidget::itemChanged, this, [this] {
        if (!Quiet)
            emit Edited();
    });
    Grid->NewLine = [this] {
        const int row = Grid->rowCount();
        return row < Most && !IsBlank(LineAt(row - 1)) && AddLine(row) == row;
    };
}

void EntryTable::ConnectKeys() {
    const std::pair<QKeySequence, QPushButton*> keys[] = {
        {Qt::Key_Insert, AddButton},
        {Qt::Key_Delete, RemoveButton},
        {QKeySequence(Qt::CTRL | Qt::Key_Up), UpButton},
        {QKeySequence(Qt::CTRL | Qt::Key_Down), DownButton}};
    for (const auto& [key, button] : keys)
        connect(new QShortcut(key, Grid, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, button,
                &QPushButton::click);
}

void EntryTable::SetUp(const std::vector<EntryColumn>& columns, int most, bool canMove) {
    Columns = columns;
    Most = most;
    UpButton->setVisible(canMove);
    DownButton->setVisible(canMove);
    Grid->SetColumns(columns);
    QStringList titles;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        titles.append(columns[i].Title);
        const int characters = std::max(columns[i].Longest, static_cast<int>(columns[i].Title.size())) + 6;
        if (i + 1 < columns.size())  // the last one takes the room that is left
            Grid->setColumnWidth(static_cast<int>(i), fontMetrics().averageCharWidth() * characters);
    }
    Grid->setHorizontalHeaderLabels(titles);
    Grid->horizontalHeader()->setStretchLastSection(true);
    Grid->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() * 3 / 2);
    ShowButtons();
}

void EntryTable::Insert(int row, const Line& line) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    Grid->insertRow(row);
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        auto* item = new QTableWidgetItem;
        item->setText(ToScreen(i < line.Texts.size() ? line.Texts[i] : ""));
        if (Columns[i].Fixed || (i == 0 && line.FirstIsFixed))
            item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        if (i == 0)
            item->setData(IdRole, line.Id);
        Grid->setItem(row, static_cast<int>(i), item);
    }
}

EntryTable::Line EntryTable::LineAt(int row) const {
    Line line;
    for (std::size_t i = 0; i < Columns.size(); ++i)
        line.Texts.push_back(FromScreen(Grid->item(row, static_cast<int>(i))->text()));
    line.Id = Grid->item(row, 0)->data(IdRole).toInt();
    line.FirstIsFixed = !Columns[0].Fixed && (Grid->item(row, 0)->flags() & Qt::ItemIsEditable) == 0;
    return line;
}

void EntryTable::SetLines(const std::vector<Line>& lines) {
    {
        const QScopedValueRollback<bool> quiet(Quiet, true);
        Grid->setRowCount(0);
        Marks.clear();
        for (const Line& line : lines) {
            Insert(Grid->rowCount(), line);
            LastId = std::max(LastId, line.Id);
        }
        LastGiven = LastId;
        if (!lines.empty())
            Grid->setCurrentCell(0, 0);
    }
    ShowButtons();
    ShowMark();
}

std::vector<EntryTable::Line> EntryTable::Lines() const {
    std::vector<Line> lines;
    for (int row = 0; row < Grid->rowCount(); ++row)
        lines.push_back(LineAt(row));
    return lines;
}

bool EntryTable::IsBlank(const Line& line) const {
    if (line.Id <= LastGiven)
        return false;
    for (std::size_t i = 0; i < Columns.size(); ++i)
        if (!Columns[i].Fixed && line.Texts[i] != Columns[i].Default)
            return false;
    return true;
}

void EntryTable::ShowMarks(const std::map<int, std::string>& marks) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    Marks = marks;
    const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    for (int row = 0; row < Grid->rowCount(); ++row) {
        const auto mark = Marks.find(LineAt(row).Id);
        const QString text = mark == Marks.end() ? QString() : ToScreen(mark->second);
        Grid->item(row, 0)->setIcon(text.isEmpty() ? QIcon() : warning);
        for (int column = 0; column < Grid->columnCount(); ++column)
            Grid->item(row, column)->setToolTip(text.toHtmlEscaped());
    }
    ShowMark();
}

// The room of the text stays as long as any line is marked, so that the table does not jump.
void EntryTable::ShowMark() {
    const auto mark = Marks.find(ChosenId());
    MarkText->setText(mark == Marks.end() ? QString() : ToScreen(mark->second));
    MarkText->setVisible(!Marks.empty());
}

void EntryTable::SetText(int id, int column, const std::string& text) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    for (int row = 0; row < Grid->rowCount(); ++row)
        if (LineAt(row).Id == id)
            Grid->item(row, column)->setText(ToScreen(text));
}

int EntryTable::ChosenId() const {
    const QTableWidgetItem* item = Grid->item(Grid->currentRow(), 0);
    return item == nullptr ? 0 : item->data(IdRole).toInt();
}

// An open field is taken when it loses the keyboard.
void EntryTable::FinishTyping() {
    Grid->setFocus();
}

int EntryTable::AddLine(int row) {
    Line line;
    line.Id = ++LastId;
    for (const EntryColumn& column : Columns)
        line.Texts.push_back(column.Default);
    Insert(row, line);
    emit Edited();
    return row;
}

void EntryTable::Add() {
    FinishTyping();
    const int row = AddLine(Grid->currentRow() + 1);
    Grid->setCurrentCell(row, 0);
    ShowButtons();
    Grid->editItem(Grid->item(row, 0));
}

void EntryTable::Remove() {
    FinishTyping();
    if (MayRemove && !MayRemove(LineAt(Grid->currentRow())))
        return;
    {
        const QScopedValueRollback<bool> quiet(Quiet, true);
        Grid->removeRow(Grid->currentRow());
    }
    ShowButtons();
    ShowMark();
    emit Edited();
    emit LineChosen();
}

void EntryTable::Move(int step) {
    FinishTyping();
    const int row = Grid->currentRow();
    const Line line = LineAt(row);
    {
        const QScopedValueRollback<bool> quiet(Quiet, true);
        Grid->removeRow(row);
        Insert(row + step, line);
        Grid->setCurrentCell(row + step, 0);
    }
    ShowButtons();
    ShowMarks(Marks);
}

void EntryTable::ShowButtons() {
    const int row = Grid->currentRow();
    const int count = Grid->rowCount();
    AddButton->setEnabled(count < Most);
    RemoveButton->setEnabled(row >= 0);
    UpButton->setEnabled(row > 0);
    DownButton->setEnabled(row >= 0 && row + 1 < count);
}

}  // namespace Dorvane
