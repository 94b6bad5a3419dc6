// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
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

/// What the clicks show while they work. May be left empty.
struct UpdateView {
    std::function<void(const std::string& text)> ShowStatus;  // first panel of sbrUpdate

    void Show(const std::string& text) const {
        if (ShowStatus)
            ShowStatus(text);
    }
};

/// Hands the points of a *.DBS file to the three-dimensional database of a location, in file order, and then
/// the file's date, project and task to its reference file. Points and reference are stored together or not
/// at all. Without points nothing happens. A failure is reported as "basDatabase-Update3DPoints". The number
/// of points that were stored; nothing when a failure made it leave.
std::optional<int> Update3DPoints(const std::string& databaseFolder, const std::string& updateFile);

/// The click of cmdBrowse: the chosen file goes to lblUpDateFile; cancelled, nothing changes.
void ClickBrowseUpdate(UpdateForm& form);

/// The click of cmdUpdate. Only three-dimensional data is really updated: the operator sees first what would
/// change and may leave, then its files are backed up, then the points are stored. The other types are told
/// to be complete all the same. What the database does not take is reported before the backup. A failure that
/// makes the backup or the update leave ends the click without the closing message.
void ClickUpdate(const UpdateForm& form, const UpdateView& view = {});

}  // namespace Dorvane
