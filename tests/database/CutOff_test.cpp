// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <utility>

#include "core/FolderLock.h"
#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "database/CoordinateSet.h"
#include "tests/database/DatabaseSite.h"

// An update that is cut off at any byte leaves a database that opens, holds every point updated before, and
// says nothing false.
namespace Dorvane::Testing {
namespace {

const std::vector<std::string> UpdatedFiles = {"3DIM.DAT", "3DIM.IDX", "3DIM.LST", "NORTH.REF"};

// What the database says of P1, P2 and A3, the oldest value first, before and after the update.
const std::vector<std::pair<std::string, double>> OldValues = {{"P1", 1}, {"P1", 11}, {"P2", 2}};
const std::vector<std::pair<std::string, double>> NewValues = {{"P1", 1}, {"P1", 11}, {"P1", 111},
                                                               {"P2", 2}, {"P2", 22}, {"A3", 33}};

class CutOffUpdate : public DatabaseSite {
  protected:
    CutOffUpdate() {
        Enter("P1", 1);
        Enter("P2", 2);
        Enter("P1", 11, "112126");
        std::int32_t records = 0;
        CoordinateRetriever().UpdateReference(North, "NORTH", "11-21-26", "SRV12", "OLD", records);
        Before = Images();
        Update();
        After = Images();
        Restore(Before);
    }

    void Update() const {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(North, 3, "P1", "112226", 111, 2, 3, 0, 0, 0, 0, 0, 0);
        retriever.UpdatePoint(North, 3, "P2", "112226", 22, 2, 3, 0, 0, 0, 0, 0, 0);
        retriever.UpdatePoint(North, 3, "A3", "112226", 33, 2, 3, 0, 0, 0, 0, 0, 0);
        std::int32_t records = 0;
        retriever.UpdateReference(North, "NORTH", "11-22-26", "SRV12", "NEW", records);
    }

    std::vector<std::string> Images() const {
        std::vector<std::string> images;
        for (const std::string& file : UpdatedFiles)
            images.push_back(FileContent(North + file));
        return images;
    }

    // Straight to the host: thousands of states need no flushing to disk.
    void Put(const std::string& file, const std::string& content) const {
        std::ofstream(Drives::HostPath(North) + file, std::ios::binary | std::ios::trunc) << content;
    }

    void Restore(const std::vector<std::string>& images) const {
        for (std::size_t i = 0; i < UpdatedFiles.size(); ++i)
            Put(UpdatedFiles[i], images[i]);
    }

    std::vector<std::pair<std::string, double>> Values() const {
        const CoordinateSet set(North, 3);
        std::vector<std::pair<std::string, double>> values;
        for (const char* name : {"P1", "P2", "A3"})
            for (const CoordinateRecord& record : set.All(name))
                values.emplace_back(record.Name, record.X);
        return values;
    }

    // What the next program does that comes to the database.
    void FinishWhatIsBroken() const {
        class Reader : public ScriptedDesktop {
          public:
            Answer ShowMessage(const Message& message) override {
                EXPECT_EQ(message.Title, "Unfinished Change") << message.Text;
                return Answer::Ok;
            }
        };
        const Reader reader;
        const FolderLock lock(North);
    }

    // All of the former state or all of the update, never a mixture. True when the update counts.
    bool ExpectSound() const {
        const CoordinateSet set(North, 3);
        const bool updated = Values().size() == NewValues.size();
        EXPECT_EQ(Values(), updated ? NewValues : OldValues);
        EXPECT_EQ(set.Current("A3").has_value(), updated);
        EXPECT_EQ(set.Current("P1")->X, updated ? 111 : 11);
        for (std::size_t i = 0; i < UpdatedFiles.size(); ++i) {
            const std::string content = FileContent(North + UpdatedFiles[i]);
            EXPECT_TRUE(content == Before[i] || content == After[i]) << UpdatedFiles[i];
        }
        return updated;
    }

    // The next update brings data, index and list together, and holds everything.
    void ExpectNextUpdateHeals() const {
        const bool updated = ExpectSound();
        Enter("A3", 333, "112326");
        EXPECT_EQ(Values().size(), (updated ? NewValues : OldValues).size() + 1);
        EXPECT_EQ(XOf("A3"), 333);
        EXPECT_EQ(XOf("P2"), updated ? 22 : 2);
        EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\nA3\r\n");
        EXPECT_EQ(FileContent(North + "3DIM.IDX").substr(0, 16), " 16      3   0\r\n");
    }

    std::vector<std::string> Before;
    std::vector<std::string> After;
};

TEST_F(CutOffUpdate, ReplacesDataThenIndexThenList) {
    const CoordinateSet set(North, 3);
    const std::vector<FileChange> changes =
        set.Adding({After[0].substr(93 * 4, 91), After[0].substr(93 * 5, 91), After[0].substr(93 * 6, 91)});
    ASSERT_EQ(changes.size(), 3u);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        EXPECT_EQ(changes[i].Path, North + UpdatedFiles[i]);
        EXPECT_EQ(changes[i].Content, After[i]);
    }
}

TEST_F(CutOffUpdate, LeavesASoundDatabaseAtEveryByteOfEveryWrite) {
    // Data, index, list and reference are written out beside their places, then put there one after the
    // other.
    const auto writtenOut = [&](std::size_t file) {
        for (std::size_t length = 0; length <= After[file].size(); ++length) {
            Put(UpdatedFiles[file] + ".dv~", After[file].substr(0, length));
            const bool updated = ExpectSound();
            ASSERT_FALSE(updated);
            ASSERT_FALSE(HasFailure()) << UpdatedFiles[file] << " cut at " << length;
        }
    };
    const auto putInPlace = [&](std::size_t file) {
        std::filesystem::remove(Drives::HostPath(North) + UpdatedFiles[file] + ".dv~");
        Put(UpdatedFiles[file], After[file]);
        EXPECT_TRUE(ExpectSound());
        ASSERT_FALSE(HasFailure()) << UpdatedFiles[file] << " in place";
    };
    for (std::size_t file = 0; file < UpdatedFiles.size(); ++file)
        writtenOut(file);
    for (std::size_t file = 0; file < UpdatedFiles.size(); ++file)
        putInPlace(file);
}

TEST_F(CutOffUpdate, IsHealedByTheNextUpdateWhereverItWasCut) {
    for (std::size_t inPlace = 0; inPlace <= 3; ++inPlace) {
        Restore(Before);
        for (std::size_t file = 0; file < inPlace; ++file)
            Put(UpdatedFiles[file], After[file]);
        for (std::size_t file = inPlace; file < 3; ++file)
            Put(UpdatedFiles[file] + ".dv~", After[file].substr(0, 20));
        ExpectNextUpdateHeals();
        ASSERT_FALSE(HasFailure()) << inPlace << " files in place";
    }
}

TEST_F(CutOffUpdate, CountsNothingOfRecordsBehindThoseThatTheHeaderTells) {
    const std::string appended = After[0].substr(Before[0].size());
    for (std::size_t length = 0; length <= appended.size(); ++length) {
        Put("3DIM.DAT", Before[0] + appended.substr(0, length));
        EXPECT_EQ(Values(), OldValues);
        ASSERT_FALSE(HasFailure()) << length;
    }
    Update();
    EXPECT_EQ(Images(), After);
}

// Runs the update in a child process, which `prepare` readies and `watch` may end.
void InChild(const std::function<void()>& prepare, const std::function<void()>& update,
             const std::function<void(pid_t)>& watch) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        prepare();
        update();
        _exit(0);
    }
    watch(child);
}

TEST_F(CutOffUpdate, SurvivesAProcessKilledAtEveryByteOfTheData) {
    int killed = 0;
    for (rlim_t limit = 0; limit <= After[0].size(); ++limit) {
        Restore(Before);
        int status = 0;
        InChild(
            [&] {
                // A write past the limit writes up to it and ends the process.
                const rlimit none{0, 0};
                const rlimit length{limit, limit};
                std::signal(SIGXFSZ, SIG_DFL);
                setrlimit(RLIMIT_CORE, &none);
                setrlimit(RLIMIT_FSIZE, &length);
            },
            [&] { Update(); }, [&](pid_t child) { ASSERT_EQ(waitpid(child, &status, 0), child); });
        const bool ended = WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ;
        ASSERT_EQ(ExpectSound(), !ended);
        ASSERT_FALSE(HasFailure()) << "at " << limit;
        killed += ended ? 1 : 0;
    }
    EXPECT_EQ(static_cast<std::size_t>(killed), After[0].size());
    EXPECT_EQ(Images(), After);
}

TEST_F(CutOffUpdate, SurvivesAProcessKilledAtEveryCallToTheSystem) {
    int stops = 0;
    int unchanged = 0;
    int updated = 0;
    bool finished = false;
    for (int last = 1; !finished && last < 100000; ++last) {
        Restore(Before);
        InChild(
            [] {
                ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
                raise(SIGSTOP);
            },
            [&] { Update(); },
            [&](pid_t child) {
                int status = 0;
                ASSERT_EQ(waitpid(child, &status, 0), child);
                ASSERT_TRUE(WIFSTOPPED(status)) << "the child cannot be traced";
                for (stops = 0; stops < last && WIFSTOPPED(status); ++stops) {
                    ASSERT_EQ(ptrace(PTRACE_SYSCALL, child, nullptr, nullptr), 0);
                    ASSERT_EQ(waitpid(child, &status, 0), child);
                }
                finished = WIFEXITED(status);
                if (finished)
                    return;
                kill(child, SIGKILL);
                ASSERT_EQ(waitpid(child, &status, 0), child);
            });
        ExpectSound();
        FinishWhatIsBroken();
        (ExpectSound() ? updated : unchanged) += 1;
        ASSERT_FALSE(HasFailure()) << "at stop " << last;
    }
    EXPECT_TRUE(finished);
    EXPECT_GT(unchanged, 10);
    EXPECT_GT(updated, 10);
    EXPECT_EQ(Images(), After);
}

}  // namespace
}  // namespace Dorvane::Testing
