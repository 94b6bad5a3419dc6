// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeModel.h"

#include <gtest/gtest.h>

#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

TreeNode Node(const std::string& key, const std::string& parent) {
    TreeNode node;
    node.Key = key;
    node.Parent = parent;
    return node;
}

}  // namespace

TEST(TreeModel, FindsNodesByTheirKey) {
    TreeModel tree;
    tree.Add(Node("D:\\", ""));
    tree.Add(Node("D:\\DAM\\", "D:\\"));
    ASSERT_NE(tree.Find("D:\\DAM\\"), nullptr);
    EXPECT_EQ(tree.Find("D:\\DAM\\")->Parent, "D:\\");
    EXPECT_EQ(tree.Find("D:\\dam\\"), nullptr);
}

TEST(TreeModel, GivesNodesTheFolderPictures) {
    const TreeNode node;
    EXPECT_EQ(node.Image, "clsfolder");
    EXPECT_EQ(node.ExpandedImage, "opnfolder");
    EXPECT_FALSE(node.Expanded);
}

TEST(TreeModel, RefusesAKeyThatItHolds) {
    TreeModel tree;
    tree.Add(Node("D:\\", ""));
    try {
        tree.Add(Node("D:\\", ""));
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, 35602);
        EXPECT_EQ(error.Description, "Key is not unique in collection");
    }
    EXPECT_EQ(tree.Nodes().size(), 1u);
}

TEST(TreeModel, RemovesANodeWithAllBelowIt) {
    TreeModel tree;
    tree.Add(Node("D:\\", ""));
    tree.Add(Node("D:\\A\\", "D:\\"));
    tree.Add(Node("D:\\B\\", "D:\\"));
    tree.Add(Node("D:\\A\\1\\", "D:\\A\\"));
    tree.Add(Node("D:\\A\\1\\X\\", "D:\\A\\1\\"));
    tree.Remove("D:\\A\\");
    ASSERT_EQ(tree.Nodes().size(), 2u);
    EXPECT_EQ(tree.Nodes()[1].Key, "D:\\B\\");
    EXPECT_EQ(tree.Find("D:\\A\\1\\X\\"), nullptr);
    EXPECT_EQ(tree.Find("D:\\B\\"), &tree.Nodes()[1]);
    tree.Add(Node("D:\\A\\", "D:\\"));
    EXPECT_NE(tree.Find("D:\\A\\"), nullptr);
}

TEST(TreeModel, RemovesNothingForAnUnknownKey) {
    TreeModel tree;
    tree.Add(Node("D:\\", ""));
    tree.Remove("D:\\A\\");
    EXPECT_EQ(tree.Nodes().size(), 1u);
}

TEST(TreeModel, IsEmptyAfterClear) {
    TreeModel tree;
    tree.Add(Node("D:\\", ""));
    tree.Clear();
    EXPECT_TRUE(tree.Nodes().empty());
    EXPECT_EQ(tree.Find("D:\\"), nullptr);
}

}  // namespace Dorvane
