// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/UserDbFiles.h"

#include <algorithm>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/InputTypes.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* Section = "User Database";
constexpr std::size_t LongestValue = 127;  // of a profile

std::string KeyOf(int number) {
    return "Names" + std::to_string(number);
}

std::string ValueOf(const ListEntry& entry) {
    return Trim(entry.Text + (entry.Selected ? " 1" : " 0"));
}

// The entry of a key; an empty text when the value is none.
ListEntry ReadEntry(int number) {
    List1<std::string> words;
    if (ParseFields(words, IniReadString(InputProfile, Section, KeyOf(number))) != 2)
        return {};
    return {words[1], words[2] == "1"};
}

}  // namespace

List1<std::string> ReadUserFiles() {
    List1<std::string> files;
    for (int i = 1; i <= MostUserFiles; ++i) {
        const ListEntry entry = ReadEntry(i);
        if (entry.Selected)
            files.Add(entry.Text);
    }
    return files;
}

std::vector<ListEntry> LoadUserDbList() {
    std::vector<ListEntry> list;
    for (int i = 1; i <= MostUserFiles; ++i) {
        const ListEntry entry = ReadEntry(i);
        if (FileExists(entry.Text))
            list.push_back(entry);
    }
    return list;
}

void SaveUserDbList(const std::vector<ListEntry>& list) {
    std::vector<IniSetting> settings;
    int number = 0;
    for (const ListEntry& entry : list)
        settings.push_back({Section, KeyOf(++number), ValueOf(entry)});
    while (number < MostUserFiles)
        settings.push_back({Section, KeyOf(++number), " "});
    IniWriteSettings(InputProfile, settings);
}

std::string WhyNotKept(const std::string& path) {
    const std::string value = ValueOf({path, true});
    List1<std::string> words;
    if (ParseFields(words, value) != 2)
        return "Its path holds a blank, a comma or a tab";
    return value.size() > LongestValue ? "Its path has more than 125 characters" : "";
}

void BrowseUserDbFile(std::vector<ListEntry>& list) {
    Guarded("frmInput-cmdBrowse_Click", [&](Guard&) {
        if (list.size() >= MostUserFiles) {
            ShowWarning("Only 16 entries allowed.  You will need to remove something before adding.",
                        "List Full");
            return;
        }
        FileDialog dialog;
        dialog.Title = "Open Coordinate File";
        dialog.Filter = "All Files (*.*)|*.*|Dbase Files(*.bdd;*.dbs)|*.bdd;*.dbs|Text Files (*.txt)|*.txt|";
        const std::optional<std::string> file = TheDesktop().AskFile(dialog);
        if (!file || file->empty())
            return;
        if (const std::string reason = WhyNotKept(*file); !reason.empty()) {
            ShowWarning("File " + *file + " can not be added.  " + reason +
                            ", and the list of user files would lose it.",
                        "File Not Added");
            return;
        }
        const bool listed = std::any_of(list.begin(), list.end(), [&](const ListEntry& entry) {
            return EqualIgnoringCase(entry.Text,
                                     *file);  // the list comes back from the profile in upper case
        });
        if (listed) {
            ShowWarning("Name " + *file + " has already been selected!", "File Already Seleceted");
            return;
        }
        list.push_back({*file, true});
        SaveUserDbList(list);
    });
}

void DeleteUserDbFile(std::vector<ListEntry>& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size())
        return;
    list.erase(list.begin() + index);
    SaveUserDbList(list);
}

}  // namespace Dorvane
