// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ImportFolder.h"

#include "core/DateText.h"
#include "core/PathType.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"
#include "input/InputTypes.h"
#include "input/TreeFolders.h"
#include "upload/DataTypes.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* DataTypeProfile = "dv_datatype.ini";

// The listed result file that comes first among the words from the second on; nothing when none is listed.
const FileEntry* FirstListed(const List1<std::string>& words, const List1<FileEntry>& results) {
    for (int i = 2; i <= words.Count(); ++i)
        for (const FileEntry& result : results)
            if (UpperCase(result.Name) == UpperCase(words[i]))
                return &result;
    return nullptr;
}

ResDates CompareListed(const std::string& folder, const List1<std::string>& words,
                       const std::string& extension) {
    List1<FileEntry> results;
    List1<FileEntry> data;
    GetFiles(results, folder, "*.RES");
    GetFiles(data, folder, "*." + extension);
    if (results.Empty())
        return NoResultFiles;
    if (data.Empty())
        return NoDataFiles;
    const FileEntry* reference = FirstListed(words, results);
    if (reference == nullptr)
        return NoResultFiles;
    for (const FileEntry& file : data)
        if (IsNewer(reference->Date, reference->Time, file.Date, file.Time))
            return DataIsNewer;
    return ResultsUpToDate;
}

// Asks for the folder and puts it into lblDirectory. False when the operator gave none.
bool AskFolder(InputScreen& screen, const InputServices& services, const InputType& type,
               const List1<std::string>& locations) {
    std::string path = LastTreePath();
    if (locations.Count() == 1)
        path = ProposePath(path, locations[1]);
    std::optional<std::string> folder =
        ChooseFolder(services, "Input " + type.Name + " field data from", path, "RES");
    if (!folder)
        return false;
    if (Global().Path_type != 1 && FolderExists(*folder))
        StoreLastManualPath(*folder);
    screen.lblDirectory = *folder;
    return true;
}

// One word is the location; of more, the last one that the folder's path holds. Empty when none does.
std::string LocationOf(const List1<std::string>& words, const std::string& folder) {
    if (words.Count() == 1)
        return words[1];
    std::string location;
    for (const std::string& word : words)
        if (Contains(folder, word))
            location = word;
    return location;
}

void TellNoResults(const std::string& folder) {
    ShowWarning("No *.RES file(s) exist in the choosen directory " + folder + ".  Can not add to project.",
                "No Reduction File(s)");
}

// Compares the dates of every extension. True when one of them marks the folder good; the comparison is a
// warning and keeps no folder with result files out.
bool ResultsAreGood(const std::string& folder, const std::string& location,
                    const List1<std::string>& extensions) {
    bool good = false;
    for (const std::string& extension : extensions) {
        switch (CompareResDates(folder, location, extension)) {
            case NothingToCompare: continue;
            case NoResultFiles: TellNoResults(folder); return false;
            case ResultsUpToDate: break;
            case DataIsNewer:
                ShowWarning(
                    "Some files with extension " + extension +
                        " are newer than the *.RES files.  May need to update by running data reductions.",
                    "Newer Dates");
                break;
            case NoDataFiles:
                ShowWarning("No data files with extension " + extension + " exist for date comparasion.",
                            "No Data Files");
                break;
        }
        good = true;
    }
    if (!good)
        TellNoResults(folder);
    return good;
}

}  // namespace

ResDates CompareResDates(const std::string& folder, const std::string& location,
                         const std::string& extension) {
    ResDates result = NothingToCompare;
    Guarded("basInput-CompareResDates", [&](Guard&) {
        List1<std::string> words;
        if (ParseFields(words, ReadTypeKey(location, extension, "_Reduce")) >= 2)
            result = CompareListed(folder, words, extension);
    });
    return result;
}

std::string ProposePath(const std::string& lastPath, const std::string& word) {
    List1<std::string> parts;
    const std::int16_t count = SplitPathParts(lastPath, parts);
    return count >= 5 ? ReplaceFirst(lastPath, parts[count - 1], word) : lastPath;
}

std::optional<std::string> ChooseFolder(const InputServices& services, const std::string& caption,
                                        const std::string& treePath, const std::string& proposedName) {
    if (Global().Path_type == 1)
        return services.PickFolder(caption, treePath);
    const std::string folder = BrowseForFolder(LastManualPath(), proposedName, caption);
    return folder.empty() ? std::nullopt : std::optional(folder);
}

void ImportFolder(InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-cmdImport_Click", [&](Guard&) {
        if (screen.icmbInput < 1)
            return;
        const InputType& type = screen.Model.Types[screen.icmbInput];
        List1<std::string> locations;
        ParseFields(locations, type.Location);
        if (!AskFolder(screen, services, type, locations))
            return;
        const std::string location = LocationOf(locations, screen.lblDirectory);
        List1<std::string> extensions;
        if (ParseFields(extensions, IniReadString(DataTypeProfile, location, "Extension")) == 0) {
            ShowWarning(
                "Can not find extension information for location " + location + ".  Can not add to project.",
                "Extensions Not Found");
            return;
        }
        if (!ResultsAreGood(screen.lblDirectory, location, extensions))
            return;
        AddTreeFolder(screen.trvInput, type.Name, screen.lblDirectory);
        IniWriteString(InputProfile, "Project", "Last Type", type.Name);
        services.ShowStatus("Folder " + screen.lblDirectory + " added to " + type.Name);
    });
}

}  // namespace Dorvane
