// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>
#include <string>

#include "datatree/TreeModel.h"
#include "input/TypePictures.h"

namespace Dorvane {

/// The tree control of the input screen: the input types, each with its own picture, and the folders put
/// under them. The mouse clicks a node, and so does Enter on the one where the keyboard stands. Moving there
/// is no click, since the click of a folder asks the operator something.
class InputTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit InputTree(QWidget* parent = nullptr);

    /// Shows the nodes of a model in place of those before. What was expanded stays so, and a node is
    /// expanded when something comes under it. A node that comes alone is the chosen one.
    void Build(const TreeModel& tree, TypePictures& pictures);

  signals:
    void NodeClicked(const std::string& key);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Click(const QTreeWidgetItem* item);
};

}  // namespace Dorvane
