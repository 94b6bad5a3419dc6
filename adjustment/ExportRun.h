// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>

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
};

extern const ExportKind ExportDbs;   // mnuDbs
extern const ExportKind ExportXyz;   // mnuXyz
extern const ExportKind ExportInu;   // mnuInu
extern const ExportKind ExportKeld;  // mnuKeld
extern const ExportKind ExportSta;   // MnuSta

/// Exports the master listing, whatever version is chosen: reads it, asks for the file, writes it, tells that
/// it is finished and ticks the menu entry. A listing that is missing or not whole, a cancelled dialog and a
/// No to overwriting end it in silence; a failure is reported as "frmVarn-" and the entry's name. `showWait`
/// is called with true before the reading and with false at the end, however it came.
void ExportResults(VarnState& state, const ExportKind& kind, const std::function<void(bool)>& showWait);

/// Project and task of a listing: the names of its last but one and its last folder; both empty where the
/// folder's path has two names or fewer.
void ProjectAndTask(const std::string& folder, std::string& project, std::string& task);

}  // namespace Dorvane
