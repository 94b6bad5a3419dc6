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
    system.Former = system.Structure;
}

// Why a system in the list has no structure file of its own to be read; empty when it has.
std::string NameProblem(const std::vector<SystemEdit>& systems, std::size_t place) {
    const std::string& name = systems[place].Name;
    std::string problem = CodeProblem(name);
    if (problem.empty())
        problem = SystemFault(name, false);
    for (std::size_t i = 0; i < place && problem.empty(); ++i)
        if (systems[i].Name == name)
            problem = "stands there twice";
    return problem.empty() ? "" : "The system " + problem + ".";
}

void OpenStructure(ChoiceEdit& choices, std::size_t place) {
    SystemEdit& system = choices.Systems[place];
    const std::string path = choices.Folder + system.Name + ".STR";
    system.Problem = NameProblem(choices.Systems, place);
    if (!system.Problem.empty()) {
        system.File.Path = path;
        return;
    }
    system.File = OpenEditedFile(path);
    if (system.IsData())
        ReadStructure(system);
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
    for (std::size_t i = 0; i < choices.Systems.size(); ++i)
        OpenStructure(choices, i);
    choices.Former = choices.Systems;
    choices.Known = ReadKnownNames();
    return choices;
}

void SetDataSystem(SystemEdit& system, bool data) {
    if (data == system.IsData())
        return;
    system.Kind = data ? "1" : "0";
    if (data)
        ReadStructure(system);
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
        system.Former = system.Structure;
        system.File = files[i];
        system.FormerDescription = system.Description;
    }
    choices.Former = choices.Systems;
    return "";
}

}  // namespace Dorvane
