// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ProjectLists.h"

#include <algorithm>

#include "core/Text.h"
#include "input/InputFiles.h"
#include "input/TreeFolders.h"

namespace Dorvane {

namespace {

constexpr const char* EndMark = "End";

std::vector<std::string> SelectedTexts(const std::vector<ListEntry>& entries) {
    std::vector<std::string> texts;
    for (const ListEntry& entry : entries)
        if (entry.Selected)
            texts.push_back(entry.Text);
    return texts;
}

// The lists as an opening finds them, which takes every line with those letters for the end of a list.
ProjectLists ReadBack(const ProjectLists& saved) {
    std::vector<std::string> lines;
    for (const std::vector<std::string>& list : saved) {
        lines.insert(lines.end(), list.begin(), list.end());
        lines.push_back(EndMark);
    }
    ProjectLists read;
    std::size_t list = 0;
    for (const std::string& line : lines) {
        if (!EndsAList(line))
            read.at(list).push_back(line);
        else if (++list == read.size())
            break;
    }
    return read;
}

}  // namespace

ProjectLists ListsOf(const InputScreen& screen) {
    List1<std::string> typeNames;
    List1<std::string> folders;
    const std::int16_t count = GetTreeFolders(screen.trvInput, screen.Model.Types, typeNames, folders);
    ProjectLists lists;
    for (int i = 1; i <= count; ++i)
        lists[0].push_back(typeNames[i] + ">" + folders[i]);
    lists[1] = SelectedTexts(screen.lstCoordDirectorys);
    lists[2] = SelectedTexts(screen.lstCoordTypes);
    return lists;
}

std::string ProjectText(const InputScreen& screen) {
    std::string text;
    AddLine(text, screen.txtProject);
    AddLine(text, screen.txtTask);
    AddLine(text, std::to_string(screen.icmbDimension));
    for (const std::vector<std::string>& list : ListsOf(screen)) {
        for (const std::string& entry : list)
            AddLine(text, entry);
        AddLine(text, EndMark);
    }
    return text;
}

bool EndsAList(const std::string& line) {
    return ContainsIgnoringCase(line, EndMark);
}

std::vector<std::string> Lost(const ProjectLists& saved) {
    const ProjectLists read = ReadBack(saved);
    std::vector<std::string> lost;
    for (std::size_t list = 0; list < saved.size(); ++list)
        for (const std::string& entry : saved[list])
            if (std::find(read[list].begin(), read[list].end(), entry) == read[list].end())
                lost.push_back(entry);
    return lost;
}

std::string FirstThatEndsAList(const ProjectLists& lists) {
    for (const std::vector<std::string>& list : lists)
        for (const std::string& entry : list)
            if (EndsAList(entry))
                return entry;
    return "";
}

}  // namespace Dorvane
