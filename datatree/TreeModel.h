// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace Dorvane {

/// One folder of a tree control.
struct TreeNode {
    std::string Key;     // the folder's full path, ending in a backslash
    std::string Parent;  // the key of the node above, empty for the top node
    std::string Caption;
    std::string Image = "clsfolder";
    std::string ExpandedImage = "opnfolder";
    bool Expanded = false;

    bool operator==(const TreeNode&) const = default;
};

/// Raised by a tree model for a key that it holds already.
constexpr int KeyNotUnique = 35602;

/// The nodes of a tree control, a parent before its children. Keys are unique and compared as they stand.
class TreeModel {
  public:
    /// Error 35602, "Key is not unique in collection", for a key that is held already; the tree stays as it
    /// is.
    void Add(TreeNode node);

    /// The node of a key, or nothing; valid until the tree changes.
    TreeNode* Find(const std::string& key);
    const TreeNode* Find(const std::string& key) const;

    /// All nodes in the order of their adding.
    const std::vector<TreeNode>& Nodes() const { return Items; }

    void Clear();

    /// Takes away the node of a key and all nodes below it; nothing happens when there is none.
    void Remove(const std::string& key);

  private:
    std::vector<TreeNode> Items;
    std::unordered_map<std::string, std::size_t> PlaceOfKey;
};

}  // namespace Dorvane
