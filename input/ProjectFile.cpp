// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ProjectFile.h"

#include "core/LineWriter.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "input/InputTypes.h"
#include "input/TreeFolders.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* EndMark = "End";
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

void WriteSelected(LineWriter& file, const std::vector<ListEntry>& entries) {
    for (const ListEntry& entry : entries)
        if (entry.Selected)
            file.Line(entry.Text);
    file.Line(EndMark);
}

void WriteProject(const InputScreen& screen, const std::string& path) {
    List1<std::string> typeNames;
    List1<std::string> folders;
    const std::int16_t count = GetTreeFolders(screen.trvInput, screen.Model.Types, typeNames, folders);
    LineWriter file(path);
    file.Line(screen.txtProject);
    file.Line(screen.txtTask);
    file.Line(std::to_string(screen.icmbDimension));
    for (int i = 1; i <= count; ++i)
        file.Line(typeNames[i] + ">" + folders[i]);
    file.Line(EndMark);
    WriteSelected(file, screen.lstCoordDirectorys);
    WriteSelected(file, screen.lstCoordTypes);
    file.Close();
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
    AddTreeFolder(screen.trvInput, Left(line, mark - 1), Mid(line, mark + 1));
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

void SaveProject(const InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-mnuSaveProject", [&](Guard& guard) {
        const std::optional<std::string> path = AskProject(FileDialog::Kind::Save);
        if (!path || path->empty())
            return;
        if (FileExists(*path) && !MayOverwrite(*path)) {
            services.ShowStatus("Project " + *path + " NOT saved");
            return;
        }
        guard.Run([&] { WriteProject(screen, *path); });
        services.ShowStatus("Project " + *path + " saved");
        IniWriteString(InputProfile, "Project", "Last", *path);
    });
}

void OpenProject(InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-mnuOpenProject", [&](Guard& guard) {
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
        ReadProject(guard, screen, *path);
    });
}

bool TakeProjectLine(InputScreen& screen, std::int16_t& section, const std::string& line,
                     const std::string& path) {
    // Those letters end a section wherever they stand in the line, also in a folder named APPEND; meant.
    const bool isEnd = ContainsIgnoringCase(line, EndMark);
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
