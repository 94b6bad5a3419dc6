// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/InputRowTree.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>
#include <map>
#include <unordered_map>

#include "core/Text.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int RowRole = Qt::UserRole;

// The columns of the numbers of a row, in the order in which they stand in the file.
struct NumberColumns {
    QStringList Titles;
    int Distance = 1;
    int Angles = 1;
};

NumberColumns ColumnsOf(NoteKind kind) {
    const QStringList distance{InputRowTree::tr("Distance m"), InputRowTree::tr("Error m")};
    const QStringList angles{InputRowTree::tr("Direction gon"), InputRowTree::tr("Zenith gon"),
                             InputRowTree::tr("Dir. error"), InputRowTree::tr("Zen. error")};
    switch (kind) {
        case NoteKind::Station:
        case NoteKind::Point:
            return {{QStringLiteral("X m"), QStringLiteral("Y m"), QStringLiteral("Z m"),
                     InputRowTree::tr("Observations")}};
        case NoteKind::Tracker:
        case NoteKind::Total: return {distance + angles, 1, 3};
        case NoteKind::Angle: return {angles};
        case NoteKind::Height: return {{InputRowTree::tr("Difference m"), InputRowTree::tr("Error m")}};
        default: return {distance};
    }
}

bool IsListed(NoteKind kind) {
    return kind == NoteKind::Station || kind == NoteKind::Point;
}

// How many observations are made on each station, or name each point.
std::unordered_map<std::string, int> CountUses(const InputText& text, NoteKind kind) {
    std::unordered_map<std::string, int> uses;
    for (const InputRow& row : text.Rows) {
        if (!row.IsObservation() || (kind == NoteKind::Station && row.Kind == RowKind::Height))
            continue;
        if (kind == NoteKind::Station || row.Kind == RowKind::Height)
            ++uses[row.Name];
        if (kind == NoteKind::Point)
            ++uses[row.Target];
    }
    return uses;
}

}  // namespace

InputRowTree::InputRowTree(QWidget* parent) : QTreeWidget(parent) {
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setMinimumHeight(fontMetrics().lineSpacing() * 8);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (!Quiet && column == 0)
            TakeChange(item);
    });
}

void InputRowTree::SetRows(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    clear();
    Leaves.clear();
    QStringList titles = ColumnsOf(kind).Titles;
    titles.prepend(IsListed(kind)             ? tr("Name")
                   : kind == NoteKind::Height ? tr("From, to")
                                              : tr("Station, target"));
    titles.append(tr("Line"));
    setHeaderLabels(titles);
    setRootIsDecorated(!IsListed(kind));
    if (IsListed(kind))
        AddListed(text, kinds, kind);
    else
        AddObservations(text, kinds, kind);
    expandAll();
    header()->setStretchLastSection(false);
    for (int column = 0; column < columnCount(); ++column) {
        headerItem()->setTextAlignment(column,
                                       (column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        resizeColumnToContents(column);
        setColumnWidth(column, columnWidth(column) + fontMetrics().averageCharWidth() * 2);
    }
    setColumnWidth(0, std::max(columnWidth(0), fontMetrics().averageCharWidth() * 22));
}

void InputRowTree::AddLeaf(QTreeWidgetItem* item, std::size_t row) {
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    item->setData(0, RowRole, static_cast<qulonglong>(row));
    for (int column = 1; column < columnCount(); ++column)
        item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    Leaves.push_back({item, row, Fate::Stays});
}

void InputRowTree::AddListed(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind) {
    const std::unordered_map<std::string, int> uses = CountUses(text, kind);
    QList<QTreeWidgetItem*> items;
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        if (kinds[i] != kind)
            continue;
        const InputRow& row = text.Rows[i];
        auto* item = new QTreeWidgetItem;
        item->setText(0, ToScreen(row.Name));
        for (std::size_t value = 0; value < row.Values.size(); ++value)
            item->setText(static_cast<int>(value) + 1, ToScreen(row.Values[value]));
        const auto found = uses.find(row.Name);
        item->setText(4, QString::number(found == uses.end() ? 0 : found->second));
        item->setText(5, QString::number(row.Line));
        AddLeaf(item, i);
        items.append(item);
    }
    addTopLevelItems(items);
}

// Below a station, what leads to the same target stands together.
void InputRowTree::AddObservations(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind) {
    const NumberColumns columns = ColumnsOf(kind);
    std::unordered_map<std::string, int> order;
    std::map<std::pair<int, int>, std::vector<std::size_t>> rows;  // by station and target
    const auto place = [&order](const std::string& name) {
        return order.emplace(name, static_cast<int>(order.size())).first->second;
    };
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        if (kinds[i] != kind)
            continue;
        const int station = place(text.Rows[i].Name);
        rows[{station, place(text.Rows[i].Target)}].push_back(i);
    }
    QList<QTreeWidgetItem*> groups;
    int shown = -1;
    for (const auto& [names, group] : rows)
        for (const std::size_t i : group) {
            const InputRow& row = text.Rows[i];
            if (names.first != shown) {
                shown = names.first;
                groups.append(new QTreeWidgetItem);
                groups.last()->setText(0, ToScreen(row.Name));
                groups.last()->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
                groups.last()->setCheckState(0, Qt::Unchecked);
            }
            auto* item = new QTreeWidgetItem(groups.last());
            item->setText(0, ToScreen(row.Target));
            const int first = row.Kind == RowKind::Angle ? columns.Angles : columns.Distance;
            for (std::size_t value = 0; value < row.Values.size(); ++value)
                item->setText(first + static_cast<int>(value), ToScreen(row.Values[value]));
            item->setText(columnCount() - 1, QString::number(row.Line));
            AddLeaf(item, i);
        }
    addTopLevelItems(groups);
}

void InputRowTree::ShowFates(const std::vector<Fate>& fates) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    for (Leaf& leaf : Leaves)
        ShowFate(leaf, fates[leaf.Row]);
    ShowGroups();
}

void InputRowTree::ShowFate(Leaf& leaf, Fate fate) {
    // A tick that the operator has just set is there already.
    leaf.Item->setCheckState(0, fate == Fate::Stays ? Qt::Unchecked : Qt::Checked);
    if (fate == leaf.Shown)
        return;
    leaf.Shown = fate;
    const bool falls = fate == Fate::Falls;
    Qt::ItemFlags flags = leaf.Item->flags();
    flags.setFlag(Qt::ItemIsEnabled, !falls);
    leaf.Item->setFlags(flags);
    leaf.Item->setToolTip(0, falls ? tr("Goes with its station or point") : QString());
    QFont struck = font();
    struck.setStrikeOut(fate != Fate::Stays);
    for (int column = 0; column < columnCount(); ++column)
        leaf.Item->setFont(column, struck);
}

void InputRowTree::ShowGroups() {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = topLevelItem(i);
        if (group->childCount() == 0)
            continue;
        int ticked = 0;
        for (int child = 0; child < group->childCount(); ++child) {
            ticked += group->child(child)->checkState(0) == Qt::Checked ? 1 : 0;
        }
        group->setCheckState(0, ticked == 0                     ? Qt::Unchecked
                                : ticked == group->childCount() ? Qt::Checked
                                                                : Qt::PartiallyChecked);
    }
}

void InputRowTree::TakeChange(QTreeWidgetItem* item) {
    const bool taken = item->checkState(0) == Qt::Checked;
    std::vector<std::size_t> rows;
    if (item->childCount() == 0)
        rows.push_back(item->data(0, RowRole).toULongLong());
    for (int child = 0; child < item->childCount(); ++child)
        if (item->child(child)->flags() & Qt::ItemIsEnabled)
            rows.push_back(item->child(child)->data(0, RowRole).toULongLong());
    emit Ticked(rows, taken);
}

void InputRowTree::ShowOnly(const QString& part) {
    const auto holds = [&part](const QTreeWidgetItem* item) {
        return item->text(0).contains(part, Qt::CaseInsensitive);
    };
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = topLevelItem(i);
        const bool all = holds(group);
        bool any = all;
        for (int child = 0; child < group->childCount(); ++child) {
            const bool shown = all || holds(group->child(child));
            group->child(child)->setHidden(!shown);
            any = any || shown;
        }
        group->setHidden(!any);
    }
}

}  // namespace Dorvane
