// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeModel.h"

#include <unordered_set>
#include <utility>

#include "core/RunTimeError.h"

namespace Dorvane {

void TreeModel::Add(TreeNode node) {
    if (!PlaceOfKey.emplace(node.Key, Items.size()).second) {
        RunTimeError error(KeyNotUnique);
        error.Description = "Key is not unique in collection";
        throw error;
    }
    Items.push_back(std::move(node));
}

TreeNode* TreeModel::Find(const std::string& key) {
    const auto place = PlaceOfKey.find(key);
    return place == PlaceOfKey.end() ? nullptr : &Items[place->second];
}

const TreeNode* TreeModel::Find(const std::string& key) const {
    const auto place = PlaceOfKey.find(key);
    return place == PlaceOfKey.end() ? nullptr : &Items[place->second];
}

void TreeModel::Clear() {
    Items.clear();
    PlaceOfKey.clear();
}

void TreeModel::Remove(const std::string& key) {
    const auto place = PlaceOfKey.find(key);
    if (place == PlaceOfKey.end())
        return;
    const std::size_t first = place->second;
    std::unordered_set<std::string> gone{key};
    std::vector<TreeNode> former = std::exchange(Items, {});
    PlaceOfKey.clear();
    for (std::size_t i = 0; i < former.size(); ++i) {
        const bool below = i > first && gone.contains(former[i].Parent);
        if (below)
            gone.insert(former[i].Key);
        if (!below && i != first)
            Add(std::move(former[i]));
    }
}

}  // namespace Dorvane
