// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileGlance.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {
namespace {

struct FileGlance : testing::Test {
    TestSite Site;
    const std::string Path = "D:\\A\\NET.OUT";
};

TEST_F(FileGlance, StampIsEmptyWhereThereIsNoFile) {
    EXPECT_EQ(FileStamp(Path), "");
    EXPECT_EQ(FileStamp(""), "");
    EXPECT_EQ(FileStamp("Q:\\NET.OUT"), "");
    MakeFolders("D:\\A\\");
    EXPECT_EQ(FileStamp("D:\\A"), "");
}

TEST_F(FileGlance, StampStaysWhileTheFileIsOnlyRead) {
    PutFile(Path, "one");
    const std::string before = FileStamp(Path);
    EXPECT_NE(before, "");
    FileContent(Path);
    EXPECT_EQ(FileStamp("d:\\a\\net.out"), before);
}

TEST_F(FileGlance, StampChangesWhenTheFileIsReplacedByOneOfItsSizeAndTime) {
    PutFile(Path, "one");
    SetTimeStamp(Path, {2026, 1, 2, 3, 4, 5});
    const std::string before = FileStamp(Path);
    PutFile(Path, "two");
    SetTimeStamp(Path, {2026, 1, 2, 3, 4, 5});
    EXPECT_NE(FileStamp(Path), before);
}

TEST_F(FileGlance, StampChangesWhenTheFileIsWrittenInPlace) {
    PutFile(Path, "one");
    SetTimeStamp(Path, {2026, 1, 2, 3, 4, 5});
    const std::string before = FileStamp(Path);
    std::ofstream(Drives::HostPath(Path)) << "two";
    EXPECT_NE(FileStamp(Path), before);
}

TEST_F(FileGlance, StampTellsTwoChangesWithinOneSecondApart) {
    PutFile(Path, "one");
    const std::string host = Drives::HostPath(Path);
    const auto second = std::chrono::floor<std::chrono::seconds>(std::filesystem::last_write_time(host));
    std::filesystem::last_write_time(host, second + std::chrono::milliseconds(100));
    const std::string before = FileStamp(Path);
    std::filesystem::last_write_time(host, second + std::chrono::milliseconds(900));
    EXPECT_NE(FileStamp(Path), before);
}

TEST_F(FileGlance, HeadIsTheBeginningOfALongFileAndAllOfAShortOne) {
    PutFile(Path, "0123456789");
    EXPECT_EQ(FileHead(Path, 4), "0123");
    EXPECT_EQ(FileHead(Path, 10), "0123456789");
    EXPECT_EQ(FileHead(Path, 1000), "0123456789");
}

TEST_F(FileGlance, HeadOfWhatCannotBeReadIsRaised) {
    const auto raised = [](const std::string& path) {
        try {
            FileHead(path, 10);
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    };
    MakeFolders("D:\\A\\");
    EXPECT_EQ(raised(Path), FileNotFound);
    EXPECT_EQ(raised("D:\\NONE\\NET.OUT"), PathNotFound);
    EXPECT_NE(raised("D:\\A"), 0);
}

}  // namespace
}  // namespace Dorvane::Testing
