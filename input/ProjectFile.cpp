// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ProjectFile.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "input/InputTypes.h"
#include "input/ProjectLists.h"
#include "input/TreeFolders.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr std::size_t MostTold = 12;  // lines of what will be lost, so that the message fits the desk
constexpr int IndexOutOfBounds = 35600;
constexpr std::int16_t DimensionCount = 3;

std::optional<std::string> AskProject(FileDialog::Kind purpose) {
    FileDialog dialog;
    dialog.Purpose = purpose;
    dialog.Filter = "All Files (*.*)|*.*|Project Files(*.gpf)|*.gpf|";
    dialog.FilterIndex = 2;
    dialog.Flags = 4;
    const std::string last = IniReadString(InputProfile, "Project", "Last");
    if (FileExists(last))
        dialog.FileName = last;
    return TheDesktop().AskFile(dialog);
}

bool MayOverwrite(const std::string& path) {
    const Message question{.Text = "Project " + path + " already exists!  Do you wish to overwrite?",
                           .Title = "Project Exists",
                           .Picture = Icon::Question,
                           .Choices = Buttons::YesNo,
                           .Default = Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

// Asks before a project is written that an opening would not bring back whole.
bool MayLose(const ProjectLists& lists) {
    const std::vector<std::string> lost = Lost(lists);
    if (lost.empty())
        return true;
    std::string text = "The letters \"End\" in " + FirstThatEndsAList(lists) +
                       " end a list of the project when it is opened.  These will be lost then:\r\n";
    for (std::size_t i = 0; i < std::min(lost.size(), MostTold); ++i)
        text += "\r\n" + lost[i];
    if (lost.size() > MostTold)
        text += "\r\nand " + std::to_string(lost.size() - MostTold) + " more";
    const Message question{.Text = text + "\r\n\r\nDo you wish to save the project all the same?",
                           .Title = "Project Incomplete",
                           .Picture = Icon::Exclamation,
                           .Choices = Buttons::YesNo,
                           .Default = Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

// Nothing that is worth being asked about: no folder, no description and no selection.
bool IsBlank(const InputScreen& screen) {
    const ProjectLists lists = ListsOf(screen);
    return screen.txtProject.empty() && screen.txtTask.empty() &&
           std::all_of(lists.begin(), lists.end(), [](const auto& list) { return list.empty(); });
}

void ClearSelection(std::vector<ListEntry>& entries) {
    for (ListEntry& entry : entries)
        entry.Selected = false;
}

void Select(std::vector<ListEntry>& entries, const std::string& text) {
    for (ListEntry& entry : entries) {
        if (entry.Text == text) {
            entry.Selected = true;
            return;
        }
    }
}

std::int16_t DimensionOf(const std::string& line) {
    const std::int16_t index = LeadingInteger(line);
    if (index < 1 || index > DimensionCount) {
        RunTimeError error(IndexOutOfBounds);
        error.Description = "Index out of bounds";
        throw error;
    }
    return index;
}

void AddFolderLine(InputScreen& screen, const std::string& line) {
    const int mark = InStr(line, ">");
    if (mark == 0)
        throw RunTimeError(InvalidProcedureCall);
    // A folder that can not be added is left out, and those behind it are read.
    Guarded("frmInput-mnuOpenProject",
            [&](Guard&) { AddTreeFolder(screen.trvInput, Left(line, mark - 1), Mid(line, mark + 1)); });
}

void ReadProject(Guard& guard, InputScreen& screen, const std::string& path) {
    GuardedReader file(guard, path);
    std::int16_t section = 1;
    while (!file.AtEnd()) {
        const std::string& line = file.ReadLine();
        // The end is tested before the line is handled, so the last line is never looked at; meant.
        if (file.AtEnd() || !TakeProjectLine(screen, section, line, path))
            return;
    }
}

}  // namespace

bool SaveProject(InputScreen& screen, const InputServices& services) {
    bool saved = false;
    Guarded("frmInput-mnuSaveProject", [&](Guard& guard) {
        const std::optional<std::string> path = AskProject(FileDialog::Kind::Save);
        if (!path || path->empty())
            return;
        if ((Drives::IsFile(*path) && !MayOverwrite(*path)) || !MayLose(ListsOf(screen))) {
            services.ShowStatus("Project " + *path + " NOT saved");
            return;
        }
        const std::string text = ProjectText(screen);
        guard.Run([&] { Drives::WriteFile(*path, text); });
        screen.SavedProject = text;
        saved = true;
        services.ShowStatus("Project " + *path + " saved");
        IniWriteString(InputProfile, "Project", "Last", *path);
    });
    return saved;
}

bool MayLeave(InputScreen& screen, const InputServices& services) {
    if (IsBlank(screen) || ProjectText(screen) == screen.SavedProject)
        return true;
    const Message question{.Text =
                               "The set-up of this adjustment is not saved.  It will be gone when you leave "
                               "the screen.\r\n\r\nDo you wish to save it as a project?",
                           .Title = "Project Not Saved",
                           .Picture = Icon::Question,
                           .Choices = Buttons::YesNoCancel};
    switch (TheDesktop().ShowMessage(question)) {
        case Answer::Yes: return SaveProject(screen, services);
        case Answer::No: return true;
        default: return false;
    }
}

void OpenProject(InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-mnuOpenProject", [&](Guard&) {
        const std::optional<std::string> path = AskProject(FileDialog::Kind::Open);
        if (!path || path->empty())
            return;
        if (!FileExists(*path)) {
            ShowWarning("File " + *path + " does not exist.  Can not open project", "Not Found");
            return;
        }
        IniWriteString(InputProfile, "Project", "Last", *path);
        services.ShowStatus("Project " + *path + " opened");
        ClearSelection(screen.lstCoordDirectorys);
        ClearSelection(screen.lstCoordTypes);
        ClearTreeFolders(screen.trvInput, screen.Model.Types.Count(), screen.Model.Types);
        Guarded("frmInput-mnuOpenProject", [&](Guard& reading) { ReadProject(reading, screen, *path); });
        screen.SavedProject = ProjectText(screen);
    });
}

bool TakeProjectLine(InputScreen& screen, std::int16_t& section, const std::string& line,
                     const std::string& path) {
    // Those letters end a section wherever they stand in the line, also in a folder named APPEND; meant.
    const bool isEnd = EndsAList(line);
    switch (section) {
        case 1:
            screen.txtProject = Trim(line);
            ++section;
            return true;
        case 2:
            screen.txtTask = Trim(line);
            ++section;
            return true;
        case 3:
            screen.icmbDimension = DimensionOf(line);
            ++section;
            return true;
        case 4:
            if (isEnd)
                ++section;
            else
                AddFolderLine(screen, line);
            return true;
        case 5:
            if (isEnd)
                ++section;
            else
                Select(screen.lstCoordDirectorys, line);
            return true;
        case 6:
            if (!isEnd)
                Select(screen.lstCoordTypes, line);
            return !isEnd;
        default:
            ShowWarning("Error in reading project file " + path + ".  Can not continue.", "Error Reading");
            return false;
    }
}

}  // namespace Dorvane
