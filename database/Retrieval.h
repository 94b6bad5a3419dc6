// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "core/FileMeter.h"
#include "datatree/TreeModel.h"

// What the events of the screen "Database Coordinate Retrieval" decide and do. Failures of a click are
// reported as "frmDbRetrieve-" and the event's name, and end the click.
namespace Dorvane {

/// The controls of frmDbRetrieve that its logic reads and changes.
struct RetrieveForm {
    std::string lblDirectory;  // key of the chosen tree node

    bool optBenchmark = false;
    bool optMonument = false;
    bool optIdeals = false;
    bool opt3dim = false;
    bool optMagnets = false;  // these two have no meaning
    bool optTransport = false;

    bool optAll = false;
    bool optCurrent = false;

    bool optMeters = false;
    bool optInches = false;
    bool optFeet = false;

    std::string lblOutputFile;   // the result file
    bool OutputVisible = false;  // lblOutputFile and lblOutputFileTitle
    bool OutputEnabled = false;  // fraOutput, lblEdit, cmdEdit, lblCopy, cmdCopy
    bool PrintEnabled = false;   // lblPrint, cmdPrint
};

/// What the clicks show while they work. Each may be left empty.
struct RetrieveView {
    std::function<void(bool on)> WaitCursor;
    std::function<void(bool on)> Animation;
    std::function<void(const std::string& text)> ShowStatus;  // first panel of sbrRetrieve
    std::function<std::unique_ptr<FileMeter>()> CopyMeter;    // the window "Copying File ..."
};

/// Fills a tree of locations from PathRecords: "DATABASE\", below it each root, below that its locations. A
/// record counts when its location differs from that of the record before it, whatever the roots. Error 35602
/// when a root or a location comes back after another one.
void SetupDbaseTree(TreeModel& tree);

/// True when a key of that tree names a location: it holds exactly three backslashes.
bool IsLocationKey(const std::string& path);

/// The same, and a message where it does not.
bool RequireLocationKey(const std::string& path);

/// The location of such a key: its last folder name.
std::string LocationOfKey(const std::string& path);

/// The effect of any change of the location or of an option: the former result is no longer on offer.
void HideOutput(RetrieveForm& form);

/// Checks the choices and derives the names. False, told by a message, when a choice is missing or the path
/// is no location. Otherwise `path` becomes the location and a backslash, and the others are set, the form's
/// output label too.
bool SetupRetrieve(RetrieveForm& form, std::string& path, std::string& databaseFolder,
                   std::string& resultFile, std::string& typeWord, std::int32_t& unitsCode,
                   std::int32_t& typeCode);

/// The click of cmdRetrieve: the type's list of names becomes WORK.LST, and the component writes the result
/// file.
void ClickRetrieve(RetrieveForm& form, const RetrieveView& view);

/// The click of cmdEdit: the general editor on the result file, if that exists.
void ClickEditOutput(const RetrieveForm& form);

/// The click of cmdPrint: the result file in Courier 12, each line set in by five blanks.
void ClickPrintOutput(const RetrieveForm& form);

/// The click of cmdCopy: the result file under a name that is asked for.
void ClickCopyOutput(const RetrieveForm& form, const RetrieveView& view);

}  // namespace Dorvane
