// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/CalibTree.h"

#include <algorithm>
#include <utility>

#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/Sorter.h"
#include "datatree/basTree.h"

namespace Dorvane {

namespace {

// The description of a code in one group of a structure, empty when the group does not hold it.
std::string DescriptionOf(const std::string& code, const List1<std::string>& codes,
                          const List1<std::string>& descriptions, int count) {
    for (int i = 1; i <= count; ++i)
        if (codes[i] == code)
            return descriptions[i];
    return "";
}

void Describe(PathRecord& record, const StructureRecord& structure) {
    record.RootDesc = structure.Description;
    record.LocationDesc =
        DescriptionOf(record.Location, structure.Location, structure.LocationDesc, structure.LocationCount);
    record.TypeDesc = DescriptionOf(record.Type, structure.Type, structure.TypeDesc, structure.TypeCount);
}

std::string TypeFolder(const PathRecord& record) {
    return Global().Calib_path + record.Location;
}
std::string EpochFolder(const PathRecord& record) {
    return TypeFolder(record) + "\\" + record.Type;
}

// A node that the structure does not describe still has to be told from its neighbours.
std::string Caption(const std::string& description, const std::string& code) {
    return Trim(description).empty() ? code : description;
}

void AddTypeNode(TreeModel& nodes, const PathRecord& record) {
    TreeNode node;
    node.Key = TypeFolder(record) + "\\";
    node.Parent = Global().Calib_path;
    node.Caption = Caption(record.LocationDesc, record.Location);
    nodes.Add(std::move(node));
}

void AddEpochNode(TreeModel& nodes, const PathRecord& record) {
    TreeNode node;
    node.Key = EpochFolder(record) + "\\";
    node.Parent = TypeFolder(record) + "\\";
    node.Caption = Caption(record.TypeDesc, record.Type);
    nodes.Add(std::move(node));
}

// What of a new record is known from the records before it.
struct Known {
    bool Type = false;
    bool Epoch = false;
};

Known LookThrough(const List1<PathRecord>& records, const PathRecord& record) {
    Known known;
    for (const PathRecord& earlier : records) {
        if (earlier.Root != record.Root || earlier.Location != record.Location)
            continue;
        known.Type = true;
        known.Epoch = known.Epoch || earlier.Type == record.Type;
    }
    return known;
}

}  // namespace

bool IsRegistered(const List1<PathRecord>& records, const std::string& type, const std::string& epoch) {
    return std::any_of(records.begin(), records.end(), [&](const PathRecord& record) {
        return record.Location == type && record.Type == epoch;
    });
}

CalibRecords ReadCalibRecords() {
    CalibRecords calibrations;
    List1<std::string> parts;
    calibrations.System = parts[SplitPathParts(Global().Calib_path, parts)];
    if (calibrations.System.empty())
        return calibrations;
    List1<StructureRecord> structures;
    structures.Resize(1);
    ReadCalibStrFile(structures, 1, Global().Init_path, calibrations.System + ".STR");
    calibrations.Structure = structures[1];
    Sorter lstSort;
    ReadPthFile(calibrations.Records, Global().Init_path, calibrations.System + ".PTH", lstSort);
    for (PathRecord& record : calibrations.Records)
        Describe(record, calibrations.Structure);
    return calibrations;
}

void OpenCalibTree(CalibTree& tree) {
    Guarded("frmCalibTree-LoadForm", [&](Guard&) {
        tree = {};
        tree.Calibrations = ReadCalibRecords();
        if (tree.Calibrations.System.empty())
            return;
        TreeNode root;
        root.Key = Global().Calib_path;
        root.Caption = "Calibration Drive";
        root.Expanded = true;
        tree.Nodes.Add(std::move(root));
        for (const PathRecord& record : tree.Calibrations.Records) {
            if (tree.Nodes.Find(TypeFolder(record) + "\\") == nullptr)
                AddTypeNode(tree.Nodes, record);
            AddEpochNode(tree.Nodes, record);
        }
    });
}

void ChooseCalibNode(CalibTree& tree, const std::string& key) {
    tree.File.clear();
    tree.Directory = key;
    GetFiles(tree.Files, key, "*.*");
}

void ChooseCalibFile(CalibTree& tree, const std::string& name) {
    tree.File = name;
}

bool AddCalibration(CalibTree& tree, const CalibrationAnswer& answer) {
    if (answer.Type.empty() || answer.Epoch.empty())
        return false;
    const bool complete = Guarded("frmCalibTree-cmdAdd_Click", [&](Guard& guard) {
        CalibRecords& calibrations = tree.Calibrations;
        PathRecord record;
        record.Root = calibrations.Structure.Name;
        record.Location = answer.Type;
        record.Type = answer.Epoch;
        Describe(record, calibrations.Structure);
        const Known known = LookThrough(calibrations.Records, record);
        calibrations.Records.Add(record);
        UpdateCalibPthFileAdd(record.Root, record.Location, record.Type);
        if (!known.Type) {
            AddTypeNode(tree.Nodes, record);
            guard.Run([&] { Drives::CreateFolder(TypeFolder(record)); });
        }
        if (!known.Epoch) {
            AddEpochNode(tree.Nodes, record);
            guard.Run([&] { Drives::CreateFolder(EpochFolder(record)); });
        }
    });
    // The registry's writer reports its own failures, so the registry tells whether it holds the folder.
    return complete && IsRegistered(ReadCalibRecords().Records, answer.Type, answer.Epoch);
}

}  // namespace Dorvane
