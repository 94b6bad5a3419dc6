// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/ChoiceCheck.h"

#include <algorithm>

#include "core/Globals.h"
#include "programs/editors/CalibEdit.h"
#include "programs/editors/FolderUse.h"

namespace Dorvane {

namespace {

std::vector<CodeEntry> EntriesOfSystems(const std::vector<SystemEdit>& systems) {
    std::vector<CodeEntry> entries;
    for (const SystemEdit& system : systems)
        entries.push_back({system.Name, system.Description});
    return entries;
}

const SystemEdit* Find(const std::vector<SystemEdit>& systems, const std::string& name) {
    const auto found = std::find_if(systems.begin(), systems.end(),
                                    [&](const SystemEdit& system) { return system.Name == name; });
    return found == systems.end() ? nullptr : &*found;
}

std::ptrdiff_t Count(const std::vector<CodeEntry>& entries, const std::string& code) {
    return std::count_if(entries.begin(), entries.end(),
                         [&](const CodeEntry& entry) { return entry.Code == code; });
}

bool Holds(const std::vector<CodeEntry>& entries, const std::string& code) {
    return Count(entries, code) > 0;
}

CodeRule RuleOfSystems(const ChoiceEdit& choices) {
    return [&choices](const std::string& code) {
        const SystemEdit* system = Find(choices.Systems, code);
        return SystemFault(code, system != nullptr && system->IsData());
    };
}

CodeRule RuleOfGroup(const ChoiceEdit& choices, std::size_t group) {
    if (group == 0)
        return LocationFault;
    if (group == 2)
        return EpochFault;
    return [&choices](const std::string& code) { return DataTypeFault(choices.Known, code); };
}

std::string CannotRemove(const std::string& group, const std::string& code, const std::string& use) {
    return use.empty() ? "" : group + ": " + code + " is in use and cannot be removed: " + use + ".";
}

// The first other data system with a location of this name, which then has the same coordinate database.
const SystemEdit* OtherWithLocation(const ChoiceEdit& choices, const SystemEdit& system,
                                    const std::string& location) {
    for (const SystemEdit& other : choices.Systems)
        if (other.Name != system.Name && other.IsData() && Holds(other.Structure.Groups[0], location))
            return &other;
    return nullptr;
}

// What is doubtful about a location, in words behind its name.
std::string LocationDoubt(const ChoiceEdit& choices, const SystemEdit& system, const std::string& code) {
    if (code.empty())
        return "";
    if (const SystemEdit* other = OtherWithLocation(choices, system, code); other != nullptr)
        return "is also a location of " + other->Name + ", and both share the coordinate database " +
               Global().Coord_path + code + "\\";
    return MisleadingName(choices.Known, code);
}

void Append(std::vector<std::string>& to, const std::vector<std::string>& more) {
    to.insert(to.end(), more.begin(), more.end());
}

// A system that becomes another kind: a data system with a free folder, or one whose folders leave the tree.
std::string KindProblem(const ChoiceEdit& choices, const SystemEdit& system) {
    const SystemEdit* former = Find(choices.Former, system.Name);
    if (former == nullptr || former->IsData() == system.IsData())
        return "";
    if (system.IsData()) {
        const std::string fault = SystemFault(system.Name, true);
        return fault.empty() ? "" : "Systems: " + system.Name + " " + fault + ".";
    }
    const std::string use = UseOfName(system.Name, NameLevel::System, system.Name);
    return use.empty() ? "" : "Systems: " + system.Name + " has to stay a data system: " + use + ".";
}

std::vector<std::string> StructureProblems(const ChoiceEdit& choices, const SystemEdit& system) {
    std::vector<std::string> problems;
    for (std::size_t i = 0; i < DataGroups; ++i) {
        const std::string title = system.Name + ", " + GroupTitles[i];
        const std::vector<CodeEntry>& former = system.Former.Groups[i];
        Append(problems, GroupProblems(title, system.Structure.Groups[i], former, RuleOfGroup(choices, i)));
        for (const std::string& code : RemovedCodes(system.Structure.Groups[i], former))
            if (const std::string problem = WhyEntryStays(system, i, code); !problem.empty())
                problems.push_back(problem);
    }
    return problems;
}

}  // namespace

std::string WhySystemStays(const ChoiceEdit& choices, const SystemEdit& system) {
    const SystemEdit* former = Find(choices.Former, system.Name);
    if (former == nullptr || system.Name.empty() || Count(EntriesOfSystems(choices.Systems), system.Name) > 1)
        return "";
    const std::string& name = system.Name;
    if (former->IsData())
        return CannotRemove("Systems", name, UseOfName(name, NameLevel::System, name));
    if (name == CalibSystemName(Global().Calib_path))
        return CannotRemove("Systems", name, UseOfCalibName(name, NameLevel::System, name));
    return "";
}

std::string WhyEntryStays(const SystemEdit& system, std::size_t group, const std::string& code) {
    if (code.empty() || !Holds(system.Former.Groups[group], code) ||
        Count(system.Structure.Groups[group], code) > 1)
        return "";
    static constexpr NameLevel levels[DataGroups] = {NameLevel::Location, NameLevel::Type, NameLevel::Epoch};
    return CannotRemove(system.Name + ", " + GroupTitles[group], code,
                        UseOfName(system.Name, levels[group], code));
}

std::vector<std::string> ChoiceProblems(const ChoiceEdit& choices) {
    if (!choices.Problem.empty())
        return {"CHOICES.SYS: " + choices.Problem};
    std::vector<std::string> problems =
        GroupProblems("Systems", EntriesOfSystems(choices.Systems), EntriesOfSystems(choices.Former),
                      RuleOfSystems(choices));
    for (const SystemEdit& former : choices.Former)
        if (Find(choices.Systems, former.Name) == nullptr)
            if (const std::string problem = WhySystemStays(choices, former); !problem.empty())
                problems.push_back(problem);
    for (const SystemEdit& system : choices.Systems) {
        if (const std::string problem = KindProblem(choices, system); !problem.empty())
            problems.push_back(problem);
        if (system.IsData() && system.Problem.empty())
            Append(problems, StructureProblems(choices, system));
    }
    return problems;
}

std::vector<std::string> ChoiceWarnings(const ChoiceEdit& choices) {
    std::vector<std::string> warnings;
    for (const SystemEdit& system : choices.Systems) {
        if (!system.IsData() || !system.Problem.empty())
            continue;
        if (const std::string doubt = MisleadingName(choices.Known, system.Name);
            system.IsNew() && !doubt.empty())
            warnings.push_back("Systems: " + system.Name + " " + doubt + ".");
        for (const CodeEntry& location : system.Structure.Groups[0])
            if (const std::string doubt = LocationDoubt(choices, system, location.Code);
                !doubt.empty() && !Holds(system.Former.Groups[0], location.Code))
                warnings.push_back(system.Name + ", Locations: " + location.Code + " " + doubt + ".");
    }
    return warnings;
}

std::vector<std::string> SystemNotes(const ChoiceEdit& choices) {
    const std::vector<CodeEntry> entries = EntriesOfSystems(choices.Systems);
    std::vector<std::string> notes = EntryFaults(entries, RuleOfSystems(choices));
    for (std::size_t i = 0; i < notes.size(); ++i) {
        if (notes[i].empty() && choices.Systems[i].IsData())
            notes[i] = MisleadingName(choices.Known, entries[i].Code);
        if (!notes[i].empty())
            notes[i] = NoteOf(entries[i], notes[i]);
    }
    return notes;
}

std::vector<std::string> EntryNotes(const ChoiceEdit& choices, const SystemEdit& system, std::size_t group) {
    const std::vector<CodeEntry>& entries = system.Structure.Groups[group];
    std::vector<std::string> notes = EntryFaults(entries, RuleOfGroup(choices, group));
    for (std::size_t i = 0; i < notes.size(); ++i) {
        if (notes[i].empty() && group == 0)
            notes[i] = LocationDoubt(choices, system, entries[i].Code);
        if (!notes[i].empty())
            notes[i] = NoteOf(entries[i], notes[i]);
    }
    return notes;
}

}  // namespace Dorvane
