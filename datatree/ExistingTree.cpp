// SPDX-License-Identifier: GPL-3.0-or-later
#include <unordered_map>
#include <utility>

#include "core/ReportError.h"
#include "datatree/basRead.h"
#include "datatree/basTree.h"

namespace Dorvane {

namespace {

using TextOf = std::unordered_map<std::string, std::string>;

constexpr const char* ProjectType = "ADJUST";

void Fill(std::string& text, const TextOf& texts, const std::string& code) {
    const auto found = texts.find(code);
    if (found != texts.end())
        text = found->second;
}

// The descriptions of all codes. Systems are entered in their order, so that of a code that two systems share
// the later description stays.
struct Descriptions {
    TextOf Root, Location, Type, Epoch;

    void Enter(const StructureRecord& system) {
        Root[system.Name] = system.Description;
        for (int i = 1; i <= system.LocationCount; ++i)
            Location[system.Location[i]] = system.LocationDesc[i];
        for (int i = 1; i <= system.TypeCount; ++i) {
            // Each data type of another name describes the project folders anew.
            Type[ProjectType] = "Adjustment files";
            Type[system.Type[i]] = system.TypeDesc[i];
        }
        for (int i = 1; i <= system.EpochCount; ++i)
            Epoch[system.Epoch[i]] = system.EpochDesc[i];
    }

    void Describe(PathRecord& record) const {
        Fill(record.RootDesc, Root, record.Root);
        Fill(record.LocationDesc, Location, record.Location);
        Fill(record.TypeDesc, Type, record.Type);
        Fill(record.EpochDesc, Epoch, record.Epoch);
    }
};

// The last event of each folder in all histories.
struct Histories {
    std::unordered_map<std::string, std::pair<std::string, std::string>> EventOf;
    bool Any = false;

    void Enter(const HistoryRecord& history) {
        for (int k = 1; k <= history.Count; ++k)
            EventOf[history.Subdirectory[k]] = {history.Created[k], history.Usage[k]};
        Any = Any || history.Count > 0;
    }

    void Date(PathRecord& record) const {
        if (record.Type == ProjectType) {
            // It is meant that project folders have their fixed texts only when some history has an entry.
            if (Any) {
                record.Created = "\?\?-\?\?-\?\?";
                record.Usage = "Adjustment input files";
            }
            return;
        }
        const auto found =
            EventOf.find(record.Root + "\\" + record.Location + "\\" + record.Type + "\\" + record.Epoch);
        if (found != EventOf.end()) {
            record.Created = found->second.first;
            record.Usage = found->second.second;
        }
    }
};

}  // namespace

std::int16_t GetExistingTree(List1<PathRecord>& records, Sorter& sorter) {
    records.Clear();
    const bool finished = Guarded("basTree-GetExistingTree", [&](Guard&) {
        const std::string& folder = Global().Init_path;
        List1<ChoiceRecord> systems;
        const int count = ReadChoiceFile(systems, folder, "CHOICES.SYS");
        List1<StructureRecord> structures;
        List1<HistoryRecord> histories;
        structures.Resize(count);
        histories.Resize(count);
        List1<PathRecord> ofSystem;
        for (int i = 1; i <= count; ++i) {
            if (systems[i].Kind == 1) {
                ReadPthFile(ofSystem, folder, systems[i].Name + ".PTH", sorter);
                for (PathRecord& record : ofSystem)
                    records.Add(std::move(record));
            }
            ReadStrFile(structures, i, folder, systems[i].Name + ".STR");
            ReadHisFile(histories, i, folder, systems[i].Name + ".HIS");
        }
        Descriptions descriptions;
        for (const StructureRecord& structure : structures)
            descriptions.Enter(structure);
        Histories events;
        for (const HistoryRecord& history : histories)
            events.Enter(history);
        for (PathRecord& record : records) {
            descriptions.Describe(record);
            events.Date(record);
        }
    });
    if (!finished)
        records.Clear();
    return records.Count();
}

void ReloadPathRecords(const WaitingWindow& waiting, const std::string& text) {
    if (waiting.Show)
        waiting.Show(text);
    TheDesktop().YieldEvents();
    Sorter sorter;
    GetExistingTree(Global().PathRecords, sorter);
    if (waiting.Close)
        waiting.Close();
}

}  // namespace Dorvane
