// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Dorvane {

/// Holds the files of a folder for a change: as long as it lives no other program of this system changes
/// them, on no workstation. To be held around every change of a shared file that depends on what stands in
/// it. Who holds the folder already, further up in this program, gets it again.
///
/// Where another one holds it the operator is told who, and may leave the wait, which raises error 70. Where
/// the drive knows no locks, or this user may make no files, there is none, and the change goes its way.
class FolderLock {
  public:
    explicit FolderLock(std::string_view folder);

    /// Several folders, taken in an order that all programs keep, so that no two wait for each other. To be
    /// made before one of them is held.
    explicit FolderLock(std::vector<std::string> folders);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    void Take(const std::string& hostFolder, const std::string& folder);
    void Release();

    std::vector<std::string> Held;  // host folders, in the order in which they were taken
};

}  // namespace Dorvane
