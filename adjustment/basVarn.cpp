// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/basVarn.h"

#include "adjustment/Versions.h"
#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr std::string_view Profile = "dv_tarvex.ini";

LabelColour ColourOf(bool exists) {
    return exists ? LabelColour::Black : LabelColour::LightRed;
}

void EnableExports(VarnState& state, bool enabled) {
    state.mnuXyz.Enabled = enabled;
    state.mnuInu.Enabled = enabled;
    state.mnuKeld.Enabled = enabled;
}

void ShowParExists(VarnState& state) {
    if (!state.lblPar.Caption.empty())
        state.lblPar.Colour = ColourOf(FileExists(OfVersion(state.lblPar.Caption, state.cmbVersion.Text())));
}

void ShowNoInput(VarnState& state) {
    state.chkInputFile.Enabled = false;
    state.cmdViewVersionEnabled = false;
    state.cmbVersion.Empty();
    state.cmbVersion.Enabled = false;
    state.lblPar.Caption = "";
    state.lblOutput.Caption = "";
    state.chkOutputFile.Enabled = false;
}

void ShowEditor(VarnState& state, bool text) {
    state.mnuTextEditorTicked = text;
    state.mnuTarvexEditorTicked = !text;
    state.fraOptions = text ? "File Options (Text)" : "File Options (Tarvex)";
}

// The listing of another input is not spoken of as this one's.
ListingVerdict VerdictOf(const VarnState& state, const std::string& listing) {
    if (SharesItsBase(state.txtInput) && state.MadeListing != listing)
        return {};
    return ReadListingVerdict(listing);
}

}  // namespace

void LoadVarn(VarnState& state) {
    ShowEditor(state, IniReadString(Profile, "Tarvex Info", "Editor_type") == "0");
    state.cmbVarn.Empty();
    for (const AdjustmentType& type : AdjustmentTypes)
        state.cmbVarn.Entries.Add(type.Text);
    state.cmbVarn.Selected = 2;
    state.chkInputFile.Enabled = false;
    state.cmdViewVersionEnabled = false;
    state.cmbVersion.Empty();
    state.cmbVersion.Enabled = false;
    state.chkParFile.Enabled = false;
    state.chkOutputFile.Enabled = false;
    EnableExports(state, false);
    if (!Global().PrinterPresent) {
        state.mnuPrinterSetupEnabled = false;
        state.cmdPrintEnabled = false;
    }
}

void ChangeInput(VarnState& state, const std::string& text) {
    state.txtInput = text;
    state.MadeListing.clear();
    state.Verdict = {};
    state.mnuXyz.Ticked = false;
    state.mnuInu.Ticked = false;
    if (text.empty()) {
        ShowNoInput(state);  // the export entries stay as they were, which is meant
        return;
    }
    if (!FileExists(text)) {
        ShowNoInput(state);
        EnableExports(state, false);
        return;
    }
    state.lblPar.Caption = WithExtension(text, "PAR");
    state.lblOutput.Caption = WithExtension(text, "OUT");
    state.chkInputFile.Enabled = true;
    state.cmdViewVersionEnabled = true;
    state.cmbVersion.Enabled = true;
    ListVersions(state);
}

void ListVersions(VarnState& state) {
    List1<std::string> versions;
    if (GetVersions(state.txtInput, versions) < 1)
        return;
    state.cmbVersion.Entries = versions;
    ClickVersion(state, 1);
}

void ClickVersion(VarnState& state, int selected) {
    state.cmbVersion.Selected = selected;
    const std::string text = state.cmbVersion.Text();
    std::string digits;
    if (text != MasterVersion && !VersionDigits(text, digits))
        return;
    state.chkParFile.Enabled = true;
    ShowFilesPresent(state);
}

void ShowFilesPresent(VarnState& state) {
    const std::string listing = OfVersion(state.lblOutput.Caption, state.cmbVersion.Text());
    const bool exists = FileExists(listing);
    state.chkOutputFile.Enabled = exists;
    state.lblOutput.Colour = ColourOf(exists);
    EnableExports(state, exists);
    state.Verdict = VerdictOf(state, listing);
    ShowParExists(state);
}

std::string StatusOf(const VarnState& state) {
    if (!state.Notice.empty())
        return state.Notice;
    if (state.txtInput.empty())
        return "No input file chosen";
    if (!state.chkInputFile.Enabled)
        return "Input file not found";
    if (SharesItsBase(state.txtInput))
        return "The path is cut at its first \".\"; the files named above may be another job's";
    return state.chkOutputFile.Enabled ? "Output file present" : "No output file yet";
}

void TickFile(VarnState& state, FileBox box, bool ticked) {
    CheckBox* const boxes[] = {&state.chkInputFile, &state.chkParFile, &state.chkOutputFile};
    boxes[static_cast<int>(box)]->Ticked = ticked;
    if (!ticked)
        return;
    for (CheckBox* other : boxes)
        other->Ticked = other == boxes[static_cast<int>(box)];
}

void ChooseTextEditor(VarnState& state) {
    ShowEditor(state, true);
    IniWriteString(Profile, "Tarvex Info", "Editor_type", "0");
}

void ChooseTarvexEditor(VarnState& state) {
    ShowEditor(state, false);
    IniWriteString(Profile, "Tarvex Info", "Editor_type", "1");
}

void LeaveVarn(const VarnState& state) {
    std::string folder = state.txtInput;
    if (FolderExists(folder))
        StoreLastTreePath(folder);
}

}  // namespace Dorvane
