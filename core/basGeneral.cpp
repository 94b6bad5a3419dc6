// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basGeneral.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ProfileStore.h"
#include "core/ProgramPath.h"
#include "core/ReportError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr int MostWords = 50;

constexpr bool IsDelimiter(char c) {
    return c == ' ' || c == ',' || c == '\t';
}

}  // namespace

bool FolderExists(std::string& path) {
    if (path.empty())
        return false;
    if (path.back() != '\\')
        path += '\\';
    try {
        Drives::Entry entry;
        // The floppy drive without a disk counts as found.
        if (path == "A:\\")
            return Drives::HasDrive('A');
        return Drives::Find(path, entry) && entry.IsFolder;
    } catch (const RunTimeError&) {
        return false;
    }
}

bool FileExists(std::string_view path) {
    try {
        const std::size_t slash = path.find_last_of('\\');
        const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
        if (name.empty())
            return false;
        Drives::Entry found;
        if (name.find_first_of("*?") == std::string_view::npos)
            return Drives::Find(path, found) && !found.IsFolder;
        const std::string_view folder = slash == std::string_view::npos ? "" : path.substr(0, slash + 1);
        for (const Drives::Entry& entry : Drives::List(folder, name))
            if (!entry.IsFolder)
                return true;
        return false;
    } catch (const RunTimeError&) {
        return false;
    }
}

void RunAndWait(const std::string& commandLine) {
    TheDesktop().RunAndWait(commandLine);
}

int FindLastChar(std::string_view text, char character) {
    const std::string compared = UpperCase(Trim(text));
    const std::size_t found = compared.find_last_of(character);
    return found == std::string::npos ? 0 : static_cast<int>(compared.size() - found);
}

void SplitFolderFile(std::string_view path, std::string& folder, std::string& file) {
    const std::string whole(path);
    const int fromRight = FindLastChar(whole, '\\');
    folder = Left(whole, static_cast<int>(whole.size()) - fromRight + 1);
    if (fromRight == 0)
        throw RunTimeError(InvalidProcedureCall);
    file = Right(whole, fromRight - 1);
}

std::int16_t SplitPathParts(std::string_view path, List1<std::string>& parts) {
    parts.Clear();
    parts.Add("");
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != '\\')
            parts[parts.Count()] += path[i];
        else if (i + 1 < path.size())
            parts.Add("");
    }
    return parts.Count();
}

std::string AppPath() {
    std::string& folder = Global().ProgramFolder;
    if (folder.empty())
        folder = Drives::DrivePath(Host::ProgramFolder());
    if (folder.back() != '\\')
        folder += '\\';
    return folder;
}

std::int16_t ParseFields(List1<std::string>& fields, std::string_view line) {
    fields.Clear();
    std::size_t i = 0;
    for (;;) {
        while (i < line.size() && IsDelimiter(line[i]))
            ++i;
        if (i == line.size())
            return fields.Count();
        const std::size_t start = i;
        while (i < line.size() && !IsDelimiter(line[i]))
            ++i;
        if (fields.Count() == MostWords)
            throw RunTimeError(SubscriptOutOfRange);
        fields.Add(UpperCase(line.substr(start, i - start)));
    }
}

std::string ReplaceFirst(std::string_view text, std::string_view target, std::string_view replacement) {
    const std::size_t found = target.empty() ? std::string_view::npos : text.find(target);
    if (found == std::string_view::npos)
        return "";
    std::string_view behind = text.substr(found + target.size());
    if (behind.size() == 1)
        behind = "";  // one last character is lost, which is meant
    return std::string(text.substr(0, found)) + std::string(replacement) + std::string(behind);
}

bool PrinterSetup(int& copies, int& fromPage, int& toPage) {
    PrinterChoice choice{copies, fromPage, toPage};
    const bool confirmed = TheDesktop().SetupPrinter(choice);
    copies = choice.Copies;
    fromPage = choice.FromPage;
    toPage = choice.ToPage;
    return confirmed;
}

bool PrinterSetup() {
    int copies = 0;
    int fromPage = 0;
    int toPage = 0;
    return PrinterSetup(copies, fromPage, toPage);
}

std::string BrowseForFolder(std::string startFolder, const std::string& defaultFileName,
                            const std::string& title) {
    FileDialog dialog;
    dialog.Title = title;
    dialog.Folder = std::move(startFolder);
    dialog.FileName = defaultFileName;
    dialog.Flags = 256;
    const std::optional<std::string> chosen = TheDesktop().AskFile(dialog);
    if (!chosen || chosen->empty())
        return "";
    std::string folder;
    std::string file;
    SplitFolderFile(*chosen, folder, file);
    return folder;
}

int PauseFor(int minutes, int seconds, bool* cancel) {
    const auto now = [] {
        const DateTime moment = TheDesktop().Now();
        return SecondsOf(ShortDate(moment), LongTime(moment));
    };
    const long long target = now() + minutes * 60LL + seconds;
    while (now() < target) {
        TheDesktop().YieldEvents();
        if (cancel != nullptr && *cancel) {
            *cancel = false;
            return 1;
        }
    }
    return 0;
}

std::string GetWindowsPath() {
    std::string folder = "C:\\WINDOWS\\";
    return FolderExists(folder) ? folder : "";
}

std::string StripAtNul(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
}

GeneralEditor ReadGeneralEditor() {
    return {ExpandAppPath(IniReadString("dv_tarvex.ini", "General Editor", "Path")),
            IniReadString("dv_tarvex.ini", "General Editor", "Name")};
}

bool HasGeneralEditor(const GeneralEditor& editor) {
    if (!Trim(editor.Program()).empty())
        return true;
    TheDesktop().ShowMessage({.Text = "Editor not found in INI file.  Can not edit file.",
                              .Title = "Editor Not Found",
                              .Picture = Icon::Exclamation});
    return false;
}

}  // namespace Dorvane
