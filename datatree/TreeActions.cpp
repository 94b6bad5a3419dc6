// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeActions.h"

#include <memory>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/TreeMode.h"

namespace Dorvane {

namespace {

// The path to copy to; empty when the dialog was cancelled or the file there is to be kept.
std::string AskCopyTarget(const std::string& file) {
    FileDialog dialog;
    dialog.Purpose = FileDialog::Kind::Save;
    dialog.Title = "Copy File To";
    dialog.Folder = Global().Temp_path;
    dialog.FileName = file;
    dialog.Filter = "All Files (*.*)|*.*";
    dialog.Flags = 4;
    const std::string target = TheDesktop().AskFile(dialog).value_or("");
    if (target.empty() || !FileExists(target))
        return target;
    const Answer answer =
        TheDesktop().ShowMessage({.Text = "File " + target + " already exists.  Do you wish to overwrite?",
                                  .Title = "File Already Exists",
                                  .Choices = Buttons::YesNo});
    return answer == Answer::Yes ? target : "";
}

}  // namespace

void RememberTreeFolder(const std::string& directory) {
    if (!directory.empty())
        StoreLastTreePath(directory);
}

TreeAnswer ConfirmTreeFolder(const std::string& title, const std::string& directory) {
    RememberTreeFolder(directory);
    // A title that nobody sets; the comparison is meant to stay without effect.
    if (title == "Access Subdirectory Selection")
        return TreeAnswer::Stay;
    switch (TreeModeOf(title)) {
        case TreeMode::Upload: return TreeAnswer::Upload;
        case TreeMode::Input: return TreeAnswer::Input;
        case TreeMode::Reduce: break;
        case TreeMode::Browse:
        case TreeMode::Configure:
        case TreeMode::Other: return TreeAnswer::Stay;
    }
    if (Contains(directory, "SRV"))
        return TreeAnswer::Reduce;
    TheDesktop().ShowMessage(
        {.Text = "The directory selected must contain the data to be reduced.  In the old TARVEX structure "
                 "only the SRV? directories contain data.  Please correct.",
         .Title = "Incomplete Selection",
         .Picture = Icon::Exclamation});
    return TreeAnswer::Stay;
}

void EditTreeFile(const std::string& directory, const std::string& file) {
    Guarded("frmTree-cmdEdit_Click", [&](Guard&) {
        const GeneralEditor editor = ReadGeneralEditor();
        if (editor.Path.empty() || editor.Name.empty()) {
            TheDesktop().ShowMessage(
                {.Text = "Editor not found in INI file.  Can not edit file.", .Title = "Editor Not Found"});
            return;
        }
        TheDesktop().StartProgram(editor.Program() + " " + directory + file);
    });
}

void CopyTreeFile(const std::string& directory, const std::string& file, Navigator& navigator) {
    Guarded("frmTree-cmdCopy_Click", [&](Guard& guard) {
        const std::string target = AskCopyTarget(file);
        if (target.empty())
            return;
        const std::string source = directory + file;
        const std::unique_ptr<FileMeter> meter = navigator.CopyMeter("Copying File ...");
        OpenMeter open(*meter, 1);
        open.Begin(source, target);
        guard.Run([&] { Drives::CopyFile(source, target); });
        open.Advance(1);
    });
}

}  // namespace Dorvane
