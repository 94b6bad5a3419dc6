// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "adjustment/ListingVerdict.h"
#include "core/List1.h"

namespace Dorvane {

/// Colours of a file's label, by their codes in the classic table of 16.
enum class LabelColour { Black = 0, LightRed = 12 };

/// A file's name on the screen: black when the file of the chosen version exists, red when not.
struct FileLabel {
    std::string Caption;
    LabelColour Colour = LabelColour::Black;
};

struct CheckBox {
    bool Enabled = true;
    bool Ticked = false;
};

struct MenuEntry {
    bool Enabled = true;
    bool Ticked = false;
};

struct DropDownList {
    bool Enabled = true;
    List1<std::string> Entries;
    int Selected = 0;  // 1 upward, 0 for none

    std::string Text() const { return Selected == 0 ? "" : Entries[Selected]; }
    void Empty() {
        Entries.Clear();
        Selected = 0;
    }
};

/// All that the adjustment screen shows and decides by, control by control. The procedures of basVarn and
/// ExportRun change it, and the screen shows what they left.
struct VarnState {
    std::string txtInput;  // full path of the input file; the one source of the file names
    FileLabel lblPar;
    FileLabel lblOutput;

    DropDownList cmbVersion;
    bool cmdViewVersionEnabled = true;

    DropDownList cmbVarn;  // the four types of AdjustmentTypes
    std::string lblStartReturn;
    std::string lblGoReturn;

    std::string fraOptions;  // "File Options (Text)" or "File Options (Tarvex)"
    CheckBox chkInputFile;   // at most one of the three is ticked
    CheckBox chkParFile;
    CheckBox chkOutputFile;

    bool mnuPrinterSetupEnabled = true;
    bool cmdPrintEnabled = true;
    bool mnuTextEditorTicked = false;  // one of the two is
    bool mnuTarvexEditorTicked = false;

    MenuEntry mnuDbs;
    MenuEntry mnuXyz;
    MenuEntry mnuInu;
    MenuEntry mnuKeld;
    MenuEntry MnuSta;

    ListingVerdict Verdict;   // of the listing of the chosen version
    std::string Notice;       // what the last event has to tell; empty where the screen shows it all
    std::string MadeListing;  // the listing that a run on this input has written while the screen was open
};

}  // namespace Dorvane
