// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryTable.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "core/Text.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int IdRole = Qt::UserRole;

// A field that takes no more than a column holds.
class FieldDelegate : public QStyledItemDelegate {
  public:
    FieldDelegate(const EntryColumn& column, QObject* parent) : QStyledItemDelegate(parent), Column(column) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
        auto* edit = new QLineEdit(parent);
        edit->setFrame(false);
        if (Column.Longest > 0)
            edit->setMaxLength(Column.Longest);
        return edit;
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        std::string text = Trim(FromScreen(static_cast<QLineEdit*>(editor)->text()));
        if (Column.UpperCase)
            text = UpperCase(text);
        if (ToScreen(text) != index.data().toString())
            model->setData(index, ToScreen(text));
    }

  private:
    EntryColumn Column;
};

}  // namespace

EntryTable::EntryTable(QWidget* parent)
    : QWidget(parent),
      Grid(new QTableWidget(this)),
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
    outer->addLayout(buttons);
    AddButton->setObjectName(QStringLiteral("cmdAdd"));
    AddButton->setToolTip(tr("Add a line behind the chosen one (Ins)"));
    RemoveButton->setObjectName(QStringLiteral("cmdRemove"));
    RemoveButton->setToolTip(tr("Remove the chosen line (Del)"));
    UpButton->setObjectName(QStringLiteral("cmdUp"));
    UpButton->setToolTip(tr("Move the chosen line up (Ctrl+Up)"));
    DownButton->setObjectName(QStringLiteral("cmdDown"));
    DownButton->setToolTip(tr("Move the chosen line down (Ctrl+Down)"));
    Grid->setObjectName(QStringLiteral("grdEntries"));
    Grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid->setTabKeyNavigation(false);
    Grid->setWordWrap(false);
    Grid->setMinimumHeight(fontMetrics().lineSpacing() * 10);
    setFocusProxy(Grid);
    connect(AddButton, &QPushButton::clicked, this, &EntryTable::Add);
    connect(RemoveButton, &QPushButton::clicked, this, &EntryTable::Remove);
    connect(UpButton, &QPushButton::clicked, this, [this] { Move(-1); });
    connect(DownButton, &QPushButton::clicked, this, [this] { Move(1); });
    ConnectKeys();
    connect(Grid, &QTableWidget::currentCellChanged, this, [this](int row, int, int former, int) {
        ShowButtons();
        if (!Quiet && row != former)
            emit LineChosen();
    });
    connect(Grid, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem* item) {
        if (!Quiet && Columns[static_cast<std::size_t>(item->column())].Check)
            emit Marked();
    });
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
    Grid->setColumnCount(static_cast<int>(columns.size()));
    QStringList titles;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int column = static_cast<int>(i);
        titles.append(columns[i].Title);
        if (!columns[i].Check)
            Grid->setItemDelegateForColumn(column, new FieldDelegate(columns[i], Grid));
        const int characters = std::max(columns[i].Longest, static_cast<int>(columns[i].Title.size())) +
                               (columns[i].Check ? 3 : 6);
        if (i + 1 < columns.size())  // the last one takes the room that is left
            Grid->setColumnWidth(column, fontMetrics().averageCharWidth() * characters);
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
        const std::string text = i < line.Texts.size() ? line.Texts[i] : "";
        if (Columns[i].Check) {
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(text == "1" ? Qt::Checked : Qt::Unchecked);
        } else {
            item->setText(ToScreen(text));
            if (i == 0 && line.FirstIsFixed)
                item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        }
        if (i == 0)
            item->setData(IdRole, line.Id);
        Grid->setItem(row, static_cast<int>(i), item);
    }
}

EntryTable::Line EntryTable::LineAt(int row) const {
    Line line;
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        const QTableWidgetItem* item = Grid->item(row, static_cast<int>(i));
        if (Columns[i].Check)
            line.Texts.emplace_back(item->checkState() == Qt::Checked ? "1" : "");
        else
            line.Texts.push_back(FromScreen(item->text()));
    }
    line.Id = Grid->item(row, 0)->data(IdRole).toInt();
    line.FirstIsFixed = (Grid->item(row, 0)->flags() & Qt::ItemIsEditable) == 0;
    return line;
}

void EntryTable::SetLines(const std::vector<Line>& lines) {
    {
        const QScopedValueRollback<bool> quiet(Quiet, true);
        Grid->setRowCount(0);
        for (const Line& line : lines) {
            Insert(Grid->rowCount(), line);
            LastId = std::max(LastId, line.Id);
        }
        if (!lines.empty())
            Grid->setCurrentCell(0, 0);
    }
    ShowButtons();
}

std::vector<EntryTable::Line> EntryTable::Lines() const {
    std::vector<Line> lines;
    for (int row = 0; row < Grid->rowCount(); ++row)
        lines.push_back(LineAt(row));
    return lines;
}

int EntryTable::ChosenId() const {
    const QTableWidgetItem* item = Grid->item(Grid->currentRow(), 0);
    return item == nullptr ? 0 : item->data(IdRole).toInt();
}

// An open field is taken when it loses the keyboard.
void EntryTable::FinishTyping() {
    Grid->setFocus();
}

void EntryTable::Add() {
    FinishTyping();
    const int row = Grid->currentRow() + 1;
    Line line;
    line.Id = ++LastId;
    for (const EntryColumn& column : Columns)
        line.Texts.emplace_back(column.Check ? "1" : "");
    Insert(row, line);
    Grid->setCurrentCell(row, 0);
    ShowButtons();
    Grid->editItem(Grid->item(row, 0));
}

void EntryTable::Remove() {
    {
        const QScopedValueRollback<bool> quiet(Quiet, true);
        Grid->removeRow(Grid->currentRow());
    }
    ShowButtons();
    emit LineChosen();
}

void EntryTable::Move(int step) {
    FinishTyping();
    const int row = Grid->currentRow();
    const Line line = LineAt(row);
    const QScopedValueRollback<bool> quiet(Quiet, true);
    Grid->removeRow(row);
    Insert(row + step, line);
    Grid->setCurrentCell(row + step, 0);
    ShowButtons();
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
