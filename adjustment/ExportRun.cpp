// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportRun.h"

#include <algorithm>
#include <optional>

#include <fmt/format.h>

#include "adjustment/DbsFile.h"
#include "adjustment/Exporters.h"
#include "adjustment/InputHeader.h"
#include "adjustment/OutputReader.h"
#include "adjustment/Versions.h"
#include "core/FileThere.h"
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

std::vector<std::string> DoubtsOfDbs(const AdjustmentResults& results, const ExportContext& context) {
    std::string project;
    std::string task;
    ProjectAndTask(context.ListingFolder, project, task);
    return DbsDoubts(results, project, task);
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

std::optional<std::string> AskTarget(const ExportKind& kind, std::string folder, const std::string& listing,
                                     const std::string& title) {
    FileDialog dialog;
    dialog.Purpose = FileDialog::Kind::Save;
    dialog.Title = title;
    dialog.Folder = FolderExists(folder) ? folder : "";
    dialog.FileName = listing.substr(0, listing.rfind('.')) + kind.Extension;
    dialog.Filter = kind.Filter;
    dialog.FilterIndex = 2;
    dialog.Flags = 4;
    return TheDesktop().AskFile(dialog);
}

bool MayWrite(const std::string& path) {
    if (!Drives::IsFile(path))
        return true;
    Message question{"File " + path + " already exists!  Do you wish to overwrite?", "Project Exists",
                     Icon::Question, Buttons::YesNo, Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

void WarnOf(const std::vector<std::string>& doubts, const std::string& path) {
    constexpr std::size_t most = 10;
    if (doubts.empty())
        return;
    std::string text = "The coordinate database cannot take all of " + path + ":\r\n";
    for (std::size_t i = 0; i < std::min(doubts.size(), most); ++i)
        text += "\r\n" + doubts[i];
    if (doubts.size() > most)
        text += fmt::format("\r\n... and {} more", doubts.size() - most);
    TheDesktop().ShowMessage({text, "Dbs File Warning", Icon::Exclamation});
}

std::string FileOf(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

// Why a listing gives no results.
std::string ReasonOf(const std::string& listing) {
    const ListingVerdict verdict = ReadListingVerdict(listing);
    if (verdict.Sign == ListingVerdict::Mark::Failed)
        return FileOf(listing) + " is of a run that failed: " + verdict.Doubt;
    return FileOf(listing) + " has no results, or ends before they do";
}

struct ExportJob {
    const ExportKind& Kind;
    VarnState& State;
    const ExportView& View;

    const std::string& Listing() const { return State.lblOutput.Caption; }

    void Tell(const std::string& text) const {
        State.Notice = text;
        if (View.ShowNotice)
            View.ShowNotice();
    }
    void Refuse(const std::string& reason) const { Tell("Nothing exported: " + reason); }

    // Empty where the master is chosen, or nothing.
    std::string VersionShown() const {
        std::string digits;
        const std::string version = State.cmbVersion.Text();
        return VersionDigits(version, digits) ? version : "";
    }

    bool HasListing() const;
    bool ReadResults(const ExportContext& context, const std::string& name, AdjustmentResults& results) const;
    bool Run(Guard& guard) const;
};

bool ExportJob::HasListing() const {
    if (Listing().empty())
        Refuse("there is no input file");
    else if (!FileExists(Listing()))
        Refuse(Listing() + " does not exist" +
               (VersionShown().empty() ? "" : "; a listing of " + VersionShown() + " is not exported"));
    else if (SharesItsBase(State.txtInput) && State.MadeListing != Listing())
        Refuse(Listing() + " may be another job's");
    else
        return true;
    return false;
}

bool ExportJob::ReadResults(const ExportContext& context, const std::string& name,
                            AdjustmentResults& results) const {
    if (ReadOutputFile(context.ListingFolder, name, results, Kind.ReadAll) >= 1)
        return true;
    Refuse(ReasonOf(Listing()));
    return false;
}

// True when the file was written and told so.
bool ExportJob::Run(Guard& guard) const {
    ExportContext context{"", State.txtInput};
    std::string name;
    SplitFolderFile(Listing(), context.ListingFolder, name);
    AdjustmentResults results;
    if (!ReadResults(context, name, results))
        return false;
    std::string title;
    if (!VersionShown().empty()) {
        title = "Export of the master's " + name;
        Tell(title + ", not of " + VersionShown());
    }
    const std::optional<std::string> chosen = AskTarget(Kind, context.ListingFolder, name, title);
    if (!chosen || !MayWrite(*chosen))
        return false;
    std::string folder;
    std::string file;
    SplitFolderFile(*chosen, folder, file);
    bool written = false;
    guard.Run([&] { written = Kind.Write(folder, file, results, context); });
    if (!written)
        return false;
    TheDesktop().ShowMessage({Kind.Text + folder + file + " completed.", "Finished", Icon::Information});
    if (Kind.Doubts != nullptr)
        WarnOf(Kind.Doubts(results, context), *chosen);
    return true;
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

const ExportKind ExportDbs = {"mnuDbs",  ".DBS",      "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs|",
                              true,      "Dbs file ", &VarnState::mnuDbs,
                              &WriteDbs, &DoubtsOfDbs};
const ExportKind ExportXyz = {"mnuXyz",  ".XYZ",      "All Files (*.*)|*.*|XYZ Files(*.xyz)|*.xyz|",
                              true,      "Xyz file ", &VarnState::mnuXyz,
                              &WriteXyz, nullptr};
const ExportKind ExportInu = {"mnuInu",  ".INU",           "All Files (*.*)|*.*|7Fit INU Files(*.inu)|*.inu|",
                              false,     "7Fit Inu file ", &VarnState::mnuInu,
                              &WriteInu, nullptr};
const ExportKind ExportKeld = {
    "mnuKeld",  ".TRG",           "All Files (*.*)|*.*|KELD TRG Files(*.trg)|*.trg|",
    true,       "Keld Trg file ", &VarnState::mnuKeld,
    &WriteKeld, nullptr};
const ExportKind ExportSta = {"MnuSta",  ".STA",      "All Files (*.*)|*.*|STA Files(*.sta)|*.sta|",
                              false,     "Sta file ", &VarnState::MnuSta,
                              &WriteSta, nullptr};

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

void ExportResults(VarnState& state, const ExportKind& kind, const ExportView& view) {
    const std::string procedure = std::string("frmVarn-") + kind.Name;
    Guarded(procedure, [&](Guard& guard) {
        const ExportJob job{kind, state, view};
        if (!job.HasListing())
            return;
        const WaitCursor waiting(view.ShowWait);
        if (job.Run(guard))
            (state.*kind.Entry).Ticked = true;
    });
}

}  // namespace Dorvane
