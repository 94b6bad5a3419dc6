// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeSelection.h"

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

std::string FileIcon(const std::string& key, const std::string& name) {
    const bool numbered = IsNumeric(Right(name, 3));
    const std::string_view text = name;
    if (text.ends_with(".DIR") || (numbered && Contains(key, "DIRECT")))
        return "direct";
    if (text.ends_with(".TC2") || text.ends_with(".DST") || (numbered && Contains(key, "DIST")))
        return "dist";
    if (text.ends_with(".IVL") || text.ends_with(".LVL"))
        return "level";
    if (text.ends_with(".RES"))
        return "reduce";
    if (text.ends_with(".INP") || text.ends_with(".1") || text.ends_with(".2"))
        return "input";
    return "form";
}

bool LookUpHistory(const List1<PathRecord>& records, const std::string& key, std::string& created,
                   std::string& usage) {
    bool found = false;
    for (const PathRecord& record : records) {
        const std::string folder = Global().Data_drive + record.Root + "\\" + record.Location + "\\" +
                                   record.Type + "\\" + record.Epoch + "\\";
        if (folder != key)
            continue;
        created = record.Created;
        usage = record.Usage;
        found = true;
    }
    return found;
}

void ClickNode(TreeSelection& selection, const std::string& key) {
    Guarded("frmTree-trvDirectory_NodeClick", [&](Guard&) {
        selection.Files.Clear();
        selection.File.clear();
        selection.Directory = key;
        List1<FileEntry> files;
        if (GetFiles(files, key, "*.*") == 0) {
            selection.CreationDate.clear();
            selection.History.clear();
            return;
        }
        for (const FileEntry& file : files)
            selection.Files.Add({file.Name, FileIcon(key, file.Name)});
        LookUpHistory(Global().PathRecords, key, selection.CreationDate, selection.History);
    });
}

std::vector<std::string> AncestorChain(const std::string& folder) {
    const std::string whole = folder.empty() || folder.back() == '\\' ? folder : folder + "\\";
    std::vector<std::string> chain;
    for (std::size_t end = whole.find('\\'); end != std::string::npos; end = whole.find('\\', end + 1))
        chain.push_back(whole.substr(0, end + 1));
    return chain;
}

void GoToDirectory(TreeModel& tree, TreeSelection& selection, const std::string& folder) {
    if (folder.empty())
        return;
    Guarded("frmTree-lblTempDirectory_Change", [&](Guard&) {
        selection.Directory = folder;
        for (const std::string& key : AncestorChain(folder)) {
            TreeNode* node = tree.Find(key);
            if (node == nullptr)
                continue;
            node->Expanded = true;
            ClickNode(selection, key);
        }
    });
}

void PrintTreeFile(const std::string& directory, const std::string& file) {
    Guarded("frmTree-cmdPrint_Click", [&](Guard&) {
        const std::string extension = UpperCase(BehindFirstPoint(file));
        const std::string program = IniReadString("dv_datatype.ini", "File Types", extension + "_Print");
        const std::string programPath = AppPath() + "Programs\\" + program;
        if (!program.empty() && FileExists(programPath))
            RunAndWait(programPath + " " + directory + file);
        else
            PrintGenFile(directory, file, directory);
        TheDesktop().ShowMessage(
            {.Text = "File " + file + " sent to selected printer.", .Title = "Printing Complete"});
    });
}

}  // namespace Dorvane
