// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/LineWriter.h"
#include "core/ReplaceFiles.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

// What reaches the disk in which order. The two calls of the host are watched by the linker's --wrap.
namespace {

std::vector<std::string> Calls;
std::string FailingFlush;  // the file whose flush fails

std::string NameOf(const std::filesystem::path& path) {
    return path.filename().string();
}

}  // namespace

extern "C" {
int __real_fsync(int descriptor);
int __real_rename(const char* from, const char* to);
int __wrap_fsync(int descriptor);
int __wrap_rename(const char* from, const char* to);

int __wrap_fsync(int descriptor) {
    std::error_code failure;
    const std::string name =
        NameOf(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), failure));
    Calls.push_back("flush " + name);
    if (name != FailingFlush)
        return __real_fsync(descriptor);
    errno = EIO;
    return -1;
}

int __wrap_rename(const char* from, const char* to) {
    Calls.push_back("rename " + NameOf(from) + " " + NameOf(to));
    return __real_rename(from, to);
}
}

namespace Dorvane {

using namespace Testing;
using testing::ElementsAre;

class FlushOrder : public testing::Test {
  protected:
    FlushOrder() {
        PutFile("D:\\OLD.TXT", "old");
        MakeFolders("D:\\SUB\\");
        Calls.clear();
        FailingFlush.clear();
    }
    ~FlushOrder() override { FailingFlush.clear(); }

    TestSite Site;
};

TEST_F(FlushOrder, AReplacedFileIsOnDiskBeforeItTakesItsPlace) {
    Drives::WriteFile("D:\\SUB\\A.TXT", "new");
    EXPECT_THAT(Calls, ElementsAre("flush A.TXT.dv~", "rename A.TXT.dv~ A.TXT", "flush SUB"));
}

TEST_F(FlushOrder, ACopiedFileIsOnDiskBeforeItTakesItsPlace) {
    Drives::CopyFile("D:\\OLD.TXT", "D:\\SUB\\A.TXT");
    EXPECT_THAT(Calls, ElementsAre("flush A.TXT.dv~", "rename A.TXT.dv~ A.TXT", "flush SUB"));
}

TEST_F(FlushOrder, AnAppendedFileIsOnDiskWhenTheLinesAreTold) {
    LineAppender appender("D:\\OLD.TXT");
    appender.Line("more");
    appender.Close();
    EXPECT_THAT(Calls, ElementsAre("flush OLD.TXT"));
}

TEST_F(FlushOrder, TheFilesOfOneChangeFollowOneAnother) {
    ReplaceInOrder({{"D:\\SUB\\A.TXT", "a"}, {"D:\\SUB\\B.TXT", "b"}});
    EXPECT_THAT(Calls,
                ElementsAre("flush A.TXT.dv~", "flush B.TXT.dv~", "flush .change.dv~.dv~",
                            "rename .change.dv~.dv~ .change.dv~", "flush SUB", "rename A.TXT.dv~ A.TXT",
                            "flush SUB", "rename B.TXT.dv~ B.TXT", "flush SUB"));
}

TEST_F(FlushOrder, AFileThatDoesNotReachTheDiskChangesNothing) {
    FailingFlush = "OLD.TXT.dv~";
    for (const auto& write : {+[] { Drives::WriteFile("D:\\OLD.TXT", "new"); },
                              +[] {
                                  PutFile("D:\\NEW.TXT", "new");
                                  Drives::CopyFile("D:\\NEW.TXT", "D:\\OLD.TXT");
                              }}) {
        EXPECT_THROW(write(), RunTimeError);
        EXPECT_EQ(FileContent("D:\\OLD.TXT"), "old");
        EXPECT_FALSE(std::filesystem::exists(Site.HostFolder() + "d:/OLD.TXT.dv~"));
    }
}

TEST_F(FlushOrder, AnAppendThatDoesNotReachTheDiskIsTakenBack) {
    FailingFlush = "OLD.TXT";
    EXPECT_THROW(Drives::AppendFile("D:\\OLD.TXT", "more"), RunTimeError);
    EXPECT_EQ(FileContent("D:\\OLD.TXT"), "old");
    FailingFlush = "NEW.TXT";
    EXPECT_THROW(Drives::AppendFile("D:\\NEW.TXT", "more"), RunTimeError);
    EXPECT_FALSE(std::filesystem::exists(Site.HostFolder() + "d:/NEW.TXT"));
}

}  // namespace Dorvane
