// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/VarnRun.h"

#include "adjustment/Banner.h"
#include "adjustment/Versions.h"
#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "core/FileGlance.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

void Call(const std::function<void()>& step) {
    if (step)
        step();
}

// The files of one run, and what the listing was before it.
struct RunFiles {
    std::string Input;
    std::string Listing;
    std::string Before;

    bool IsNew() const {
        const std::string now = FileStamp(Listing);
        return !now.empty() && now != Before;
    }
    bool IsOlder() const { return !Before.empty() && FileStamp(Listing) == Before; }
};

RunFiles FilesOf(const VarnState& state) {
    const std::string version = state.cmbVersion.Text();
    const std::string listing = OfVersion(state.lblOutput.Caption, version);
    return {OfVersion(state.txtInput, version, "INP"), listing, FileStamp(listing)};
}

bool MayTakeTheseNames(const VarnState& state, const RunFiles& files) {
    if (!SharesItsBase(state.txtInput))
        return true;
    const Message question{
        "The files of this run are named by the path up to its first \".\":\r\n\r\n"
        "Input : " +
            files.Input + "\r\nOutput : " + files.Listing +
            "\r\n\r\nThey may be another job's.  Do you wish to run Varn?",
        "Varn File Names", Icon::Exclamation, Buttons::YesNo, Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

bool HasType(const VarnState& state) {
    return state.cmbVarn.Selected >= 1 && state.cmbVarn.Selected <= static_cast<int>(AdjustmentTypes.size());
}

std::int16_t CallPackage(VarnState& state, AdjustmentPackage& package, std::string inputPath,
                         const VarnRunView& view) {
    // The path is a copy that the package may write into; nothing depends on it.
    state.lblStartReturn = std::to_string(package.Start(inputPath));
    Call(view.ShowNumbers);
    std::int16_t result = 0;
    if (HasType(state))
        result = package.Go(AdjustmentTypes[static_cast<std::size_t>(state.cmbVarn.Selected - 1)].Value);
    state.lblGoReturn = std::to_string(result);
    Call(view.ShowNumbers);
    package.Stop();
    return result;
}

void ShowFiles(VarnState& state, const RunFiles& files) {
    if (files.IsNew())
        state.MadeListing = files.Listing;
    ShowFilesPresent(state);
}

// Which files are there is shown as soon as the package has done, however it came back.
std::int16_t CallAndShow(VarnState& state, AdjustmentPackage& package, const VarnRunView& view,
                         const RunFiles& files) {
    std::int16_t result = 0;
    try {
        result = CallPackage(state, package, files.Input, view);
    } catch (...) {
        ShowFiles(state, files);
        throw;
    }
    ShowFiles(state, files);
    return result;
}

// Ends the look of waiting however the run is left.
struct Waiting {
    explicit Waiting(const VarnRunView& view) : View(view) { Call(View.BeginWait); }
    ~Waiting() { Call(View.EndWait); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    const VarnRunView& View;
};

void TellCancelled(VarnState& state, const RunFiles& files) {
    state.lblGoReturn.clear();
    if (files.IsNew())
        state.Notice = "Varn was cancelled when the listing was written; it has no banner";
    else
        state.Notice = files.Before.empty() ? "Varn was cancelled; there is no output file"
                                            : "Varn was cancelled; the output file is as it was";
}

void FinishGood(const VarnState& state, const RunFiles& files) {
    // Without a type the package was not asked to write one.
    if (HasType(state) && files.IsOlder())
        throw RunTimeError(FileNotFound,
                           files.Listing + " of this run (the file there is of an earlier one)");
    AddVarnBanner(files.Input, files.Listing);
}

void Run(VarnState& state, AdjustmentPackage& package, const VarnRunView& view, const RunFiles& files) {
    const std::int16_t result = CallAndShow(state, package, view, files);
    if (result == 0)
        FinishGood(state, files);
    else if (files.IsOlder())
        state.Notice = "The output file is of an earlier run";
    Call(view.StopAnimation);
    if (result == 0)
        TheDesktop().ShowMessage({"Varn completed successfully!", "Varn Successful", Icon::Information});
    else
        TheDesktop().ShowMessage(
            {"Varn completed.  Error " + state.lblGoReturn + " returned.", "Varn Error", Icon::Information});
}

}  // namespace

void RunVarn(VarnState& state, AdjustmentPackage& package, const VarnRunView& view) {
    const RunFiles files = FilesOf(state);
    if (!MayTakeTheseNames(state, files)) {
        state.Notice = "Varn was not run";
        return;
    }
    const Waiting waiting(view);
    try {
        Run(state, package, view, files);
    } catch (const RunCancelled&) {
        TellCancelled(state, files);
    }
}

}  // namespace Dorvane
