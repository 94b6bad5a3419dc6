// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

// What the events of the screen "Database Coordinate Update" decide and do.
namespace Dorvane {

/// The controls of frmDbUpdate that its logic reads and changes.
struct UpdateForm {
    std::string lblDirectory;   // key of the chosen tree node
    std::string lblUpDateFile;  // the *.DBS file

    bool optBenchmark = false;
    bool optMonument = false;
    bool optIdeals = false;
    bool opt3dim = false;
};

/// Hands the points of a *.DBS file to the three-dimensional database of a location, in file order, and then
/// the file's date, project and task to its reference file. Without points nothing happens. A failure is
/// reported as "basDatabase-Update3DPoints"; when it makes the procedure leave, the points handed over before
/// it stay updated and nothing goes to the reference file. True when all was done.
bool Update3DPoints(const std::string& databaseFolder, const std::string& updateFile);

/// The click of cmdBrowse: the chosen file goes to lblUpDateFile; cancelled, nothing changes.
void ClickBrowseUpdate(UpdateForm& form);

/// The click of cmdUpdate. Only three-dimensional data is really updated, behind a backup of its files; the
/// other types are told to be complete all the same. A failure that makes the backup or the update leave ends
/// the click without the closing message, and without a backup nothing is updated.
void ClickUpdate(const UpdateForm& form);

}  // namespace Dorvane
