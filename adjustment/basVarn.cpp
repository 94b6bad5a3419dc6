// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/basVarn.h"

#include "adjustment/Banner.h"
#include "adjustment/Versions.h"
#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr std::string_view Profile = "dv_tarvex.ini";

void Call(const std::function<void()>& step) {
    if (step)
        step();
}

LabelColour ColourOf(bool exists) {
    return exists ? LabelColour::Black : LabelColour::LightRed;
}

void EnableExports(VarnState& state, bool enabled) {
    state.mnuXyz.Enabled = enabled;
    state.mnuInu.Enabled = enabled;
    state.mnuKeld.Enabled = enabled;
}

void ShowOutputExists(VarnState& state, bool exists) {
    state.chkOutputFile.Enabled = exists;
    state.lblOutput.Colour = ColourOf(exists);
    EnableExports(state, exists);
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

std::int16_t Adjust(AdjustmentPackage& package, int selectedType) {
    if (selectedType < 1 || selectedType > static_cast<int>(AdjustmentTypes.size()))
        return 0;
    return package.Go(AdjustmentTypes[static_cast<std::size_t>(selectedType - 1)].Value);
}

std::int16_t CallPackage(VarnState& state, AdjustmentPackage& package, std::string inputPath,
                         const VarnRunView& view) {
    // The path is a copy that the package may write into; nothing depends on it.
    state.lblStartReturn = std::to_string(package.Start(inputPath));
    Call(view.ShowNumbers);
    const std::int16_t result = Adjust(package, state.cmbVarn.Selected);
    state.lblGoReturn = std::to_string(result);
    Call(view.ShowNumbers);
    package.Stop();
    return result;
}

// Shows which files are there as soon as the package has done, however it came back: the listing, and the
// parameter file, which the package writes when there is none.
struct FileCheck {
    FileCheck(VarnState& state, const std::string& listing) : State(state), Listing(listing) {}
    ~FileCheck() {
        ShowOutputExists(State, FileExists(Listing));
        ShowParExists(State);
    }
    FileCheck(const FileCheck&) = delete;
    FileCheck& operator=(const FileCheck&) = delete;

    VarnState& State;
    const std::string& Listing;
};

// Ends the look of waiting however the run is left.
struct Waiting {
    explicit Waiting(const VarnRunView& view) : View(view) { Call(View.BeginWait); }
    ~Waiting() { Call(View.EndWait); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    const VarnRunView& View;
};

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
    ShowParExists(state);
    ShowOutputExists(state, FileExists(OfVersion(state.lblOutput.Caption, text)));
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

void RunVarn(VarnState& state, AdjustmentPackage& package, const VarnRunView& view) {
    const std::string version = state.cmbVersion.Text();
    const std::string inputPath = OfVersion(state.txtInput, version, "INP");
    std::string digits;
    const std::string outputPath =
        VersionDigits(version, digits) ? WithExtension(inputPath, "OUT") : state.lblOutput.Caption;

    const Waiting waiting(view);
    std::int16_t result = 0;
    {
        const FileCheck check(state, outputPath);
        result = CallPackage(state, package, inputPath, view);
    }
    if (result == 0)
        AddVarnBanner(inputPath, outputPath);
    Call(view.StopAnimation);
    if (result == 0)
        TheDesktop().ShowMessage({"Varn completed successfully!", "Varn Successful", Icon::Information});
    else
        TheDesktop().ShowMessage(
            {"Varn completed.  Error " + state.lblGoReturn + " returned.", "Varn Error", Icon::Information});
}

}  // namespace Dorvane
