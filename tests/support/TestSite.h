// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/Globals.h"

namespace Dorvane::Testing {

/// A set of drives of its own in a temporary folder: "C:" with WINDOWS\ and TEMP\, "D:" empty, "Z:" the
/// host's root, and "P:\DORVANE\" as the program's folder. The globals are fresh, and are put back at the
/// end, when the folder goes too.
class TestSite {
  public:
    TestSite();
    ~TestSite();
    TestSite(const TestSite&) = delete;
    TestSite& operator=(const TestSite&) = delete;

    /// Makes D:\TARVEX\ with CALIB, COORD, INIT, DOWNLOAD and C:\TARVEX\ with PARAM, TEMP, WORK, and sets the
    /// eight globals to them.
    void LayOut();

    const std::string& HostFolder() const { return Folder; }

  private:
    std::string OwnName() const;

    std::string Folder;
    Globals Former;
};

/// Makes every missing folder of a drive path that ends in a backslash.
void MakeFolders(const std::string& path);

/// Writes a file as it stands, its folders made; lines are joined by CR LF and each is ended by it.
void PutFile(const std::string& path, const std::string& content);
void PutLines(const std::string& path, const std::vector<std::string>& lines);

/// The whole content of a file; fails the test when it is not there.
std::string FileContent(const std::string& path);
std::vector<std::string> FileLines(const std::string& path);

/// Sets a file's time stamp (local time).
void SetTimeStamp(const std::string& path, const DateTime& moment);

/// Every file below a folder, as paths relative to it with backslashes, sorted.
std::vector<std::string> AllFiles(const std::string& folder);

/// Runs `body` in a child process as a user without rights ("nobody"), for which the test has to run as root.
/// The child's failures fail the test. For faults of permission, which root does not meet.
void AsNobody(const std::function<void()>& body);

/// Runs `body` in a child process in which the drive path `folder` is a file system of its own of `kilobytes`
/// in size, for which the test has to run as root. The child's failures fail the test.
void OnSmallDisk(const std::string& folder, int kilobytes, const std::function<void()>& body);

}  // namespace Dorvane::Testing
