// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "core/ReportError.h"
#include "datatree/basTree.h"

namespace Dorvane {

namespace {

enum Level { RootLevel, LocationLevel, TypeLevel, EpochLevel, SurveyLevel };

Level FirstDifference(const PathRecord& before, const PathRecord& record) {
    if (record.Root != before.Root)
        return RootLevel;
    if (record.Location != before.Location)
        return LocationLevel;
    if (record.Type != before.Type)
        return TypeLevel;
    if (record.Epoch != before.Epoch)
        return EpochLevel;
    return SurveyLevel;
}

// Adds the nodes of a record from a level downward; those above are in the tree. A deeper folder without a
// name is no folder, but when it alone is to be added it is meant to be added untested.
void AddNodes(TreeModel& tree, const PathRecord& record, Level first) {
    // A project folder has no description of its own; it shows its name.
    const std::string& epochCaption = record.Type == "ADJUST" ? record.Epoch : record.EpochDesc;
    const std::array<const std::string*, 5> names{&record.Root, &record.Location, &record.Type, &record.Epoch,
                                                  &record.Survey};
    const std::array<const std::string*, 5> captions{&record.RootDesc, &record.LocationDesc, &record.TypeDesc,
                                                     &epochCaption, &record.Survey};
    std::string parent = Global().Data_drive;
    for (std::size_t level = RootLevel; level <= SurveyLevel; ++level) {
        if (level == SurveyLevel && first != SurveyLevel && record.Survey.empty())
            return;
        std::string key = parent + *names[level] + "\\";
        if (level >= first) {
            TreeNode node;
            node.Key = key;
            node.Parent = parent;
            node.Caption = *captions[level];
            tree.Add(std::move(node));
        }
        parent = std::move(key);
    }
}

}  // namespace

void TarvexTreeSetup(const List1<PathRecord>& records, int count, TreeModel& tree) {
    Guarded("basTree-TarvexTreeSetup", [&](Guard&) {
        TreeNode top;
        top.Key = Global().Data_drive;
        top.Caption = "Data Drive";
        top.Expanded = true;
        tree.Add(std::move(top));
        for (int i = 1; i <= count; ++i)
            AddNodes(tree, records[i], i == 1 ? RootLevel : FirstDifference(records[i - 1], records[i]));
    });
}

}  // namespace Dorvane
