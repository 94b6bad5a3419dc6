// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportRun.h"

#include <optional>

#include "adjustment/Exporters.h"
#include "adjustment/InputHeader.h"
#include "adjustment/OutputReader.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

bool WriteDbs(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
              const ExportContext& context) {
    std::string project;
    std::string task;
    ProjectAndTask(context.ListingFolder, project, task);
    return WriteDbsFile(folder, fileName, results, project, task);
}

bool WriteXyz(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
              const ExportContext& context) {
    std::string inputFolder;
    std::string inputName;
    SplitFolderFile(context.InputPath, inputFolder, inputName);
    std::string project;
    std::string task;
    std::string date;
    ReadInputHeader(inputFolder, inputName, project, task, date);
    return WriteXyzFile(folder, fileName, results, project, task, date);
}

bool WriteInu(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
              const ExportContext&) {
    return WriteInuFile(folder, fileName, results);
}

bool WriteKeld(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
               const ExportContext&) {
    return WriteTrgFile(folder, fileName, results);
}

bool WriteSta(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
              const ExportContext&) {
    return WriteStaFile(folder, fileName, results);
}

std::optional<std::string> AskTarget(const ExportKind& kind, std::string folder, const std::string& listing) {
    FileDialog dialog;
    dialog.Purpose = FileDialog::Kind::Save;
    dialog.Folder = FolderExists(folder) ? folder : "";
    dialog.FileName = listing.substr(0, listing.rfind('.')) + kind.Extension;
    dialog.Filter = kind.Filter;
    dialog.FilterIndex = 2;
    dialog.Flags = 4;
    return TheDesktop().AskFile(dialog);
}

bool MayWrite(const std::string& path) {
    if (!FileExists(path))
        return true;
    Message question{"File " + path + " already exists!  Do you wish to overwrite?", "Project Exists",
                     Icon::Question, Buttons::YesNo, Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

// True when the file was written and told so.
bool Export(const ExportKind& kind, const std::string& listing, const std::string& inputPath, Guard& guard) {
    ExportContext context{"", inputPath};
    std::string name;
    SplitFolderFile(listing, context.ListingFolder, name);
    AdjustmentResults results;
    if (ReadOutputFile(context.ListingFolder, name, results, kind.ReadAll) < 1)
        return false;
    const std::optional<std::string> chosen = AskTarget(kind, context.ListingFolder, name);
    if (!chosen || !MayWrite(*chosen))
        return false;
    std::string folder;
    std::string file;
    SplitFolderFile(*chosen, folder, file);
    bool written = false;
    guard.Run([&] { written = kind.Write(folder, file, results, context); });
    if (written)
        TheDesktop().ShowMessage({kind.Text + folder + file + " completed.", "Finished", Icon::Information});
    return written;
}

// Shows the wait cursor until the click ends.
struct WaitCursor {
    explicit WaitCursor(const std::function<void(bool)>& show) : Show(show) { Tell(true); }
    ~WaitCursor() { Tell(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    void Tell(bool waiting) const {
        if (Show)
            Show(waiting);
    }

    const std::function<void(bool)>& Show;
};

}  // namespace

const ExportKind ExportDbs = {"mnuDbs", ".DBS",      "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs|",
                              true,     "Dbs file ", &VarnState::mnuDbs,
                              &WriteDbs};
const ExportKind ExportXyz = {"mnuXyz", ".XYZ",      "All Files (*.*)|*.*|XYZ Files(*.xyz)|*.xyz|",
                              true,     "Xyz file ", &VarnState::mnuXyz,
                              &WriteXyz};
const ExportKind ExportInu = {"mnuInu", ".INU",           "All Files (*.*)|*.*|7Fit INU Files(*.inu)|*.inu|",
                              false,    "7Fit Inu file ", &VarnState::mnuInu,
                              &WriteInu};
const ExportKind ExportKeld = {
    "mnuKeld", ".TRG",           "All Files (*.*)|*.*|KELD TRG Files(*.trg)|*.trg|",
    true,      "Keld Trg file ", &VarnState::mnuKeld,
    &WriteKeld};
const ExportKind ExportSta = {"MnuSta", ".STA",      "All Files (*.*)|*.*|STA Files(*.sta)|*.sta|",
                              false,    "Sta file ", &VarnState::MnuSta,
                              &WriteSta};

void ProjectAndTask(const std::string& folder, std::string& project, std::string& task) {
    project.clear();
    task.clear();
    List1<std::string> names;
    const int count = SplitPathParts(folder, names);
    if (count <= 2)
        return;
    project = names[count - 1];
    task = names[count];
}

void ExportResults(VarnState& state, const ExportKind& kind, const std::function<void(bool)>& showWait) {
    const std::string procedure = std::string("frmVarn-") + kind.Name;
    Guarded(procedure, [&](Guard& guard) {
        if (!FileExists(state.lblOutput.Caption))
            return;
        const WaitCursor waiting(showWait);
        if (Export(kind, state.lblOutput.Caption, state.txtInput, guard))
            (state.*kind.Entry).Ticked = true;
    });
}

}  // namespace Dorvane
