// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/TreeFolders.h"

#include <unordered_set>

#include "core/ReportError.h"

namespace Dorvane {

std::int16_t GetTreeFolders(const TreeModel& tree, const List1<InputType>& inputTypes,
                            List1<std::string>& typeNames, List1<std::string>& folders) {
    typeNames.Clear();
    folders.Clear();
    Guarded("basInput-GetTreeFolders", [&](Guard&) {
        for (const InputType& type : inputTypes) {
            for (const TreeNode& node : tree.Nodes()) {
                if (node.Parent != type.Name)
                    continue;
                folders.Add(node.Caption);
                typeNames.Add(type.Name);
            }
        }
    });
    return typeNames.Count();
}

void ClearTreeFolders(TreeModel& tree, std::int16_t typeCount, const List1<InputType>& inputTypes) {
    Guarded("basInput-ClearTreeFolders", [&](Guard&) {
        std::unordered_set<std::string> types;
        for (int i = 1; i <= typeCount; ++i)
            types.insert(inputTypes[i].Name);
        const std::vector<TreeNode> former = tree.Nodes();
        tree.Clear();
        for (const TreeNode& node : former)
            if (!types.contains(node.Parent))
                tree.Add(node);
    });
}

void AddTreeFolder(TreeModel& tree, const std::string& typeName, const std::string& folder) {
    // Below another folder, or below the root, a folder would be shown and never be read.
    const TreeNode* const type = tree.Find(typeName);
    if (type == nullptr || type->Parent != TreeRoot) {
        RunTimeError error(ElementNotFound);
        error.Description = "Element not found";
        throw error;
    }
    TreeNode node;
    node.Key = folder;
    node.Parent = typeName;
    node.Caption = folder;
    node.Image = "sclsfolder";
    node.ExpandedImage = "";
    tree.Add(node);
}

}  // namespace Dorvane
