// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QTreeWidget>
#include <string>
#include <unordered_map>
#include <vector>

#include "datatree/TreeModel.h"

namespace Dorvane {

/// A tree control of folders: the nodes of a tree model, each known by its key, the folder's path. Choosing a
/// node by the mouse or the keyboard is a click on it, and so is the mouse on the node that is chosen
/// already.
class DirectoryTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit DirectoryTree(QWidget* parent = nullptr);

    /// Shows the nodes of a model in place of those before; the first is chosen, without a click.
    void Build(const TreeModel& tree, const QIcon& folder);

    /// Expands the nodes of these keys, as far as there are such nodes.
    void Expand(const std::vector<std::string>& keys);
    std::vector<std::string> ExpandedKeys() const;

    /// Chooses the node of a key, without a click. Without such a node none stands selected.
    void Choose(const std::string& key);

    /// The key of the chosen node, empty when there is none.
    std::string ChosenKey() const;

  signals:
    void NodeClicked(const std::string& key);
    /// Enter was pressed.
    void Confirmed();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The current node is the chosen one, whatever keys are held down.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    void Click(QTreeWidgetItem* item);

    std::unordered_map<std::string, QTreeWidgetItem*> ItemOfKey;
    bool Quiet = false;    // choices are made by the program
    bool Clicked = false;  // the mouse press at work has clicked a node
};

}  // namespace Dorvane
