// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/Globals.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// The report that a procedure makes of a failure for which the reporter has no wording of its own.
inline void ExpectReport(ScriptedDesktop& desktop, int number, const std::string& description,
                         const std::string& procedure) {
    desktop.ExpectMessage("Program Error", "Error : " + std::to_string(number) + "\r\n\r\nDescription : " +
                                               description + "\r\n\r\nSource : Dorvane-" + procedure);
}

/// The report of reading past the end of a file, answered with Cancel.
inline void ExpectPastEnd(ScriptedDesktop& desktop, const std::string& procedure,
                          Answer answer = Answer::Cancel) {
    desktop.ExpectMessage(
        "Program Error",
        "Error : 62\r\n\r\nFile has a nonstandard end-of-file marker, or an attempt was made to "
        "read beyond the end-of-file marker.\r\n\r\nSource : Dorvane-" +
            procedure,
        answer);
}

inline void ExpectDiskFull(ScriptedDesktop& desktop, const std::string& procedure, Answer answer) {
    desktop.ExpectMessage("Program Error",
                          "Error : 61\r\n\r\nDisk is full. Continue?\r\n\r\nSource : Dorvane-" + procedure,
                          answer);
}

/// Takes all rights of everybody but the owner from a file or a folder.
inline void Shut(const std::string& path) {
    ASSERT_EQ(chmod(Drives::HostPath(path).c_str(), 0700), 0);
}

/// Fills the disk that a folder lies on.
inline void FillDisk(const std::string& folder) {
    const std::string page(4096, 'x');
    for (;;) {
        try {
            Drives::AppendFile(folder + "FILLER.BIN", page);
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
            return;
        }
    }
}

/// A desktop that makes room on a full disk while its message is read.
class TidyingDesktop : public ScriptedDesktop {
  public:
    explicit TidyingDesktop(std::string folder) : Folder(std::move(folder)) {}
    Answer ShowMessage(const Message& message) override {
        Drives::DeleteFile(Folder + "FILLER.BIN");
        return ScriptedDesktop::ShowMessage(message);
    }

  private:
    std::string Folder;
};

/// A laid out site under D:\TARVEX\ with a desktop that expects nothing.
class DataSite : public ::testing::Test {
  protected:
    DataSite() { Site.LayOut(); }

    static std::string Init(const std::string& file) { return "D:\\TARVEX\\INIT\\" + file; }
    static std::string Data(const std::string& path) { return "D:\\TARVEX\\" + path; }

    TestSite Site;
    ScriptedDesktop Desk;
};

}  // namespace Dorvane::Testing
