// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/ChoiceEdit.h"

#include "core/ColumnLine.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

constexpr int KindColumn = 10;
constexpr int DescriptionColumn = 12;

std::string LostOfSystem(std::string_view line) {
    if (HasControlCharacter(line) || line.find('\t') != std::string_view::npos)
        return "has a control character";
    if (!Trim(Mid(line, LongestCode + 1, 1)).empty() || !Trim(Mid(line, KindColumn + 1, 1)).empty())
        return "has a character between its fields";
    if (!Trim(Mid(line, DescriptionColumn + LongestDescription)).empty())
        return "has text behind its description";
    return "";
}

void ReadStructure(SystemEdit& system) {
    if (system.File.Exists)
        system.Problem = ParseStructure(system.File.Content, DataGroups, system.Structure);
    else
        system.Structure = NewStructure(system.Name, system.Description, DataGroups);
}

// A description that was changed is that of both files; one that was not is left as each has it.
StructureText StructureToWrite(const SystemEdit& system) {
    StructureText structure = system.Structure;
    if (system.IsNew() || structure.Name.empty())
        structure.Name = system.Name;
    if (system.IsNew() || system.Description != system.FormerDescription)
        structure.Description = system.Description;
    return structure;
}

}  // namespace

std::string ParseChoices(const std::string& content, std::vector<SystemEdit>& systems) {
    systems.clear();
    LineReader reader = LineReader::OfText(content);
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        std::string lost = LostOfSystem(line);
        if (lost.empty() && systems.size() == MostSystems)
            lost = "is the 17th system";
        if (!lost.empty())
            return "Line " + std::to_string(reader.LineNumber()) + " " + lost + ".";
        SystemEdit system;
        system.Name = UpperCase(Trim(Left(line, LongestCode)));
        system.Kind = Trim(Mid(line, KindColumn, 1));
        system.Description = Trim(Mid(line, DescriptionColumn, LongestDescription));
        system.FormerDescription = system.Description;
        systems.push_back(std::move(system));
    }
    return "";
}

std::string FormatChoices(const std::vector<SystemEdit>& systems) {
    std::string text;
    for (const SystemEdit& system : systems) {
        ColumnLine line;
        line.At(1, system.Name);
        if (!system.Kind.empty())
            line.At(KindColumn, system.Kind);
        if (!system.Description.empty())
            line.At(DescriptionColumn, system.Description);
        text += line.Text() + "\r\n";
    }
    return text;
}

ChoiceEdit OpenChoices(const std::string& folder) {
    ChoiceEdit choices;
    choices.Folder = folder;
    choices.File = OpenEditedFile(folder + "CHOICES.SYS");
    choices.Problem = ParseChoices(choices.File.Content, choices.Systems);
    for (SystemEdit& system : choices.Systems) {
        system.File = OpenEditedFile(folder + system.Name + ".STR");
        if (system.IsData())
            ReadStructure(system);
    }
    return choices;
}

void SetDataSystem(SystemEdit& system, bool data) {
    if (data == system.IsData())
        return;
    system.Kind = data ? "1" : "0";
    if (data)
        ReadStructure(system);
}

std::vector<std::string> ChoiceProblems(const ChoiceEdit& choices) {
    if (!choices.Problem.empty())
        return {"CHOICES.SYS: " + choices.Problem};
    std::vector<CodeEntry> systems;
    for (const SystemEdit& system : choices.Systems)
        systems.push_back({system.Name, system.Description});
    std::vector<std::string> problems = GroupProblems("Systems", systems);
    static constexpr const char* titles[] = {"Locations", "Data types", "Epochs"};
    for (const SystemEdit& system : choices.Systems) {
        if (!system.IsData() || !system.Problem.empty())
            continue;
        for (std::size_t i = 0; i < DataGroups; ++i)
            for (const std::string& problem :
                 GroupProblems(system.Name + ", " + titles[i], system.Structure.Groups[i]))
                problems.push_back(problem);
        // The folder ADJUST of each location stands beside its data types.
        for (const CodeEntry& type : system.Structure.Groups[1])
            if (type.Code == "ADJUST")
                problems.push_back(system.Name + ", Data types: ADJUST is the folder of the projects.");
    }
    return problems;
}

std::string SaveChoices(ChoiceEdit& choices) {
    // A new system may find a structure file that was there before; it is read and never replaced unseen.
    std::vector<EditedFile> files;
    files.reserve(choices.Systems.size());
    std::vector<EditedChange> changes;
    for (SystemEdit& system : choices.Systems) {
        files.push_back(system.File);
        if (system.IsNew())
            files.back().Path = choices.Folder + system.Name + ".STR";
        if (system.IsData() && system.Problem.empty())
            changes.push_back({&files.back(), FormatStructure(StructureToWrite(system))});
    }
    changes.push_back({&choices.File, FormatChoices(choices.Systems)});
    const std::string problem = SaveEditedFiles(changes);
    if (!problem.empty())
        return problem;
    for (std::size_t i = 0; i < files.size(); ++i) {
        SystemEdit& system = choices.Systems[i];
        system.Structure = StructureToWrite(system);
        system.File = files[i];
        system.FormerDescription = system.Description;
    }
    return "";
}

}  // namespace Dorvane
