// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputTree.h"

#include <QKeyEvent>
#include <set>
#include <unordered_map>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

// One node. Its tool tip is made only when it is asked for.
class InputItem : public QTreeWidgetItem {
  public:
    explicit InputItem(const TreeNode& node) : QTreeWidgetItem(UserType), Key(node.Key) {
        setText(0, ToScreen(node.Caption));
    }

    QVariant data(int column, int role) const override {
        return role == Qt::ToolTipRole ? ToTip(Key) : QTreeWidgetItem::data(column, role);
    }

    const std::string Key;
};

const std::string& KeyOf(const QTreeWidgetItem& item) {
    return static_cast<const InputItem&>(item).Key;
}

// What of a tree outlives its being built anew.
struct Remembered {
    std::set<std::string> Keys;
    std::set<std::string> Expanded;
    std::string Current;
};

Remembered Remember(QTreeWidget& tree) {
    Remembered former;
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        former.Keys.insert(KeyOf(**it));
        if ((*it)->isExpanded())
            former.Expanded.insert(KeyOf(**it));
    }
    if (tree.currentItem() != nullptr)
        former.Current = KeyOf(*tree.currentItem());
    return former;
}

}  // namespace

InputTree::InputTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { Click(item); });
}

void InputTree::Build(const TreeModel& tree, TypePictures& pictures) {
    const Remembered former = Remember(*this);
    clear();
    std::unordered_map<std::string, QTreeWidgetItem*> itemOfKey;
    std::set<std::string> expanded = former.Expanded;
    std::vector<QTreeWidgetItem*> added;
    for (const TreeNode& node : tree.Nodes()) {
        auto* item = new InputItem(node);
        item->setIcon(0, pictures.Of(node.Image, node.ExpandedImage));
        if (const auto parent = itemOfKey.find(node.Parent); parent != itemOfKey.end())
            parent->second->addChild(item);
        else
            addTopLevelItem(item);
        itemOfKey.emplace(node.Key, item);
        if (node.Expanded)
            expanded.insert(node.Key);
        if (!former.Keys.contains(node.Key)) {
            added.push_back(item);
            expanded.insert(node.Parent);
        }
    }
    for (const auto& [key, item] : itemOfKey)
        item->setExpanded(expanded.contains(key));
    const auto current = itemOfKey.find(former.Current);
    if (added.size() == 1)
        setCurrentItem(added.front());
    else
        setCurrentItem(current != itemOfKey.end() ? current->second : topLevelItem(0));
    scrollToItem(currentItem());
}

void InputTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Click(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

void InputTree::Click(const QTreeWidgetItem* item) {
    if (item == nullptr)
        return;
    const std::string key = KeyOf(*item);  // the item may go while the click is dealt with
    emit NodeClicked(key);
}

}  // namespace Dorvane
