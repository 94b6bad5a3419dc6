// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/Globals.h"
#include "tests/support/Reports.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

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
