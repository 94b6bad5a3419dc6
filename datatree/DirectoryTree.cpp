// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/DirectoryTree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <utility>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

// One node. Its tool tip, the folder, is made only when it is asked for.
class DirectoryItem : public QTreeWidgetItem {
  public:
    explicit DirectoryItem(const TreeNode& node) : QTreeWidgetItem(UserType), Key(node.Key) {
        setText(0, ToScreen(node.Caption));
    }

    QVariant data(int column, int role) const override {
        if (role == Qt::ToolTipRole)
            return ToTip(Key);
        return QTreeWidgetItem::data(column, role);
    }

    const std::string Key;
};

const std::string& KeyOf(const QTreeWidgetItem& item) {
    return static_cast<const DirectoryItem&>(item).Key;
}

}  // namespace

DirectoryTree::DirectoryTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
}

void DirectoryTree::Build(const TreeModel& tree, const QIcon& folder) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    clear();
    ItemOfKey.clear();
    ItemOfKey.reserve(tree.Nodes().size());
    QList<QTreeWidgetItem*> tops;
    std::vector<std::string> expanded;
    for (const TreeNode& node : tree.Nodes()) {
        auto* item = new DirectoryItem(node);
        item->setIcon(0, folder);
        const auto parent = ItemOfKey.find(node.Parent);
        if (parent == ItemOfKey.end())
            tops.append(item);
        else
            parent->second->addChild(item);
        ItemOfKey.emplace(node.Key, item);
        if (node.Expanded)
            expanded.push_back(node.Key);
    }
    addTopLevelItems(tops);
    Expand(expanded);
    if (!tops.empty())
        setCurrentItem(tops.first());
}

void DirectoryTree::Expand(const std::vector<std::string>& keys) {
    for (const std::string& key : keys)
        if (const auto found = ItemOfKey.find(key); found != ItemOfKey.end())
            found->second->setExpanded(true);
}

std::vector<std::string> DirectoryTree::ExpandedKeys() const {
    std::vector<std::string> keys;
    for (const auto& [key, item] : ItemOfKey)
        if (item->isExpanded())
            keys.push_back(key);
    return keys;
}

void DirectoryTree::Choose(const std::string& key) {
    const QScopedValueRollback<bool> quiet(Quiet, true);
    const auto found = ItemOfKey.find(key);
    if (found == ItemOfKey.end())
        return clearSelection();
    setCurrentItem(found->second);
    scrollToItem(found->second);
}

std::string DirectoryTree::ChosenKey() const {
    const QList<QTreeWidgetItem*> chosen = selectedItems();
    return chosen.empty() ? "" : KeyOf(*chosen.first());
}

void DirectoryTree::Click(QTreeWidgetItem* item) {
    Clicked = true;
    if (item != nullptr && !Quiet)
        emit NodeClicked(KeyOf(*item));
}

void DirectoryTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeWidget::currentChanged(current, previous);
    Click(itemFromIndex(current));
}

void DirectoryTree::mousePressEvent(QMouseEvent* event) {
    Clicked = false;
    QTreeWidget::mousePressEvent(event);
    QTreeWidgetItem* item = currentItem();
    // The arrow in front of a node, which expands it, is no click on it.
    if (!Clicked && item != nullptr && visualItemRect(item).contains(event->position().toPoint()))
        Click(item);
}

void DirectoryTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit Confirmed();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags DirectoryTree::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

}  // namespace Dorvane
