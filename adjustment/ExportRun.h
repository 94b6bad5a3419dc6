// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "adjustment/AdjustmentResults.h"
#include "adjustment/VarnState.h"

// The clicks of the export menu: one flow, and a table of what differs.
namespace Dorvane {

/// What an export is given beside the results.
struct ExportContext {
    std::string ListingFolder;
    std::string InputPath;  // txtInput
};

struct ExportKind {
    const char* Name;  // the menu entry's, under which failures are reported
    const char* Extension;
    const char* Filter;
    bool ReadAll;
    const char* Text;  // how the closing message begins
    MenuEntry VarnState::*Entry;
    bool (*Write)(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
                  const ExportContext& context);
    // What of the written file those who read it cannot take; may be null.
    std::vector<std::string> (*Doubts)(const AdjustmentResults& results, const ExportContext& context);
};

/// What an export shows while it goes. Each may be left empty.
struct ExportView {
    std::function<void(bool)> ShowWait;  // true before the reading, false at the end, however it came
    std::function<void()> ShowNotice;    // VarnState::Notice has changed
};

extern const ExportKind ExportDbs;   // mnuDbs
extern const ExportKind ExportXyz;   // mnuXyz
extern const ExportKind ExportInu;   // mnuInu
extern const ExportKind ExportKeld;  // mnuKeld
extern const ExportKind ExportSta;   // MnuSta

/// Exports the master listing, whatever version is chosen: reads it, asks for the file, writes it, tells that
/// it is finished and ticks the menu entry. Behind that a warning names what of the file cannot be used. A
/// cancelled dialog and a No to overwriting end it in silence; a failure is reported as "frmVarn-" and the
/// entry's name.
///
/// A listing that is missing, not whole, or perhaps another input's (SharesItsBase) is not exported and asks
/// nothing: Notice then tells the reason. It also tells that the master's listing goes out where a version is
/// chosen.
void ExportResults(VarnState& state, const ExportKind& kind, const ExportView& view);

/// Project and task of a listing: the names of its last but one and its last folder; both empty where the
/// folder's path has two names or fewer.
void ProjectAndTask(const std::string& folder, std::string& project, std::string& task);

}  // namespace Dorvane
