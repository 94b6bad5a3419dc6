// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

// The drive letters of a host that has none of its own, and the folders of the host to which they lead.
namespace Dorvane {

/// A letter and its folder as the operator sees and types them, in code page 1252.
struct DriveLine {
    std::string Letter;
    std::string Folder;

    bool operator==(const DriveLine&) const = default;
};

struct DriveEdit {
    std::string Folder;             // the folder of links
    std::vector<DriveLine> Former;  // as they were read
    std::vector<DriveLine> Lines;
};

/// Raises what reading raises.
DriveEdit OpenDrives();

/// "missing", "read only" or "may be written".
std::string StateOfDriveFolder(const std::string& folder);

/// What forbids saving, each in a sentence; empty when nothing does. What stood there before can stay, but
/// C:, which holds the profile files, and Z:, the whole computer, have to.
std::vector<std::string> DriveProblems(const DriveEdit& drives);

/// What the operator should know before: letters in use that are removed or lead elsewhere from now on, and
/// new folders that cannot be written.
std::vector<std::string> DriveWarnings(const DriveEdit& drives);

/// Removes, adds and changes what differs. The result is empty, or says that the letters were changed by
/// another program in the meantime; then nothing was done. Raises what the changing raises.
std::string SaveDrives(DriveEdit& drives);

/// The first letter from D on that is free; empty when none is.
std::string FreeLetter(const std::vector<DriveLine>& lines);

/// A folder that the operator chose by a drive path, as a folder of the host.
std::string HostFolderOf(const std::string& drivePath);

/// The drive path by which a folder of the host is shown to the operator.
std::string DriveFolderOf(const std::string& hostFolder);

}  // namespace Dorvane
