// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>
#include <vector>

#include "programs/editors/InputRemoval.h"
#include "programs/editors/ObservationKinds.h"

namespace Dorvane {

/// The rows of one kind, each with a tick that takes it out; observations below their stations, whose ticks
/// are those of all that is below. A row that falls with others is ticked and cannot be changed.
class InputRowTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit InputRowTree(QWidget* parent = nullptr);

    void SetRows(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind);
    void ShowFates(const std::vector<Fate>& fates);
    /// Shows the rows with a name that holds `part`, ignoring case; all for an empty one.
    void ShowOnly(const QString& part);

    int RowCount() const { return static_cast<int>(Leaves.size()); }

  signals:
    /// The operator set or took away the tick of these rows.
    void Ticked(const std::vector<std::size_t>& rows, bool taken);

  private:
    struct Leaf {
        QTreeWidgetItem* Item;
        std::size_t Row;
        Fate Shown;
    };

    void AddListed(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind);
    void AddObservations(const InputText& text, const std::vector<NoteKind>& kinds, NoteKind kind);
    void AddLeaf(QTreeWidgetItem* item, std::size_t row);
    void ShowFate(Leaf& leaf, Fate fate);
    void ShowGroups();
    void TakeChange(QTreeWidgetItem* item);

    std::vector<Leaf> Leaves;
    bool Quiet = false;
};

}  // namespace Dorvane
