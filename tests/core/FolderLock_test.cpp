// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderLock.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/Drives.h"
#include "core/LineWriter.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"
#include "tests/support/Workstations.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Folder = "D:\\SHARED\\";
constexpr const char* Count = "D:\\SHARED\\COUNT.TXT";

struct FolderLocks : testing::Test {
    FolderLocks() { PutFile(Count, "0"); }

    static void AddOne(const std::string& file) {
        Drives::WriteFile(file, std::to_string(std::stoi(Drives::ReadFile(file)) + 1));
    }
    /// The host's names in the folder, what is never listed among them.
    std::vector<std::string> HostNames() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Drives::HostPath(Folder)))
            names.push_back(entry.path().filename().string());
        return names;
    }
    static void Hold(const std::function<void()>& wait) {
        const FolderLock lock(Folder);
        wait();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(FolderLocks, LetNoChangeOfSeveralWorkstationsBeLost) {
    Together(4, [](int) {
        for (int i = 0; i < 100; ++i) {
            const FolderLock lock(Folder);
            AddOne(Count);
        }
    });
    EXPECT_EQ(FileContent(Count), "400");
}

TEST_F(FolderLocks, AreTakenInOneOrderHoweverTheyAreNamed) {
    PutFile("D:\\OTHER\\COUNT.TXT", "0");
    Together(3, [](int number) {
        for (int i = 0; i < 100; ++i) {
            const FolderLock lock(number == 1 ? std::vector<std::string>{"D:\\OTHER\\", Folder}
                                              : std::vector<std::string>{Folder, "D:\\OTHER\\"});
            AddOne(Count);
            AddOne("D:\\OTHER\\COUNT.TXT");
        }
    });
    EXPECT_EQ(FileContent(Count), "300");
    EXPECT_EQ(FileContent("D:\\OTHER\\COUNT.TXT"), "300");
}

TEST_F(FolderLocks, SayWhoHoldsTheFolderAndLetTheOperatorLeave) {
    const OtherWorkstation other(Hold);
    std::vector<std::string> texts;
    Desktop.OnWait = [&](const std::string& text) {
        texts.push_back(text);
        return texts.size() < 3;
    };
    try {
        const FolderLock lock(Folder);
        ADD_FAILURE() << "two hold the folder";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, PermissionDenied);
        EXPECT_THAT(error.Description, HasSubstr(texts.back()));
    }
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_THAT(texts.back(), HasSubstr("D:\\SHARED\\ is being changed by root on "));
    EXPECT_TRUE(texts.back().ends_with("process " + std::to_string(other.Process())));
}

TEST_F(FolderLocks, ComeAsSoonAsTheHolderIsDone) {
    OtherWorkstation other(Hold);
    Desktop.OnWait = [&](const std::string&) {
        other.LetGo();
        return true;
    };
    const FolderLock lock(Folder);
    AddOne(Count);
    EXPECT_EQ(FileContent(Count), "1");
}

TEST_F(FolderLocks, KeepAnAppendedLineOutAsLongAsAnotherHoldsTheFolder) {
    const OtherWorkstation other(Hold);
    Desktop.OnWait = [](const std::string&) { return false; };
    LineAppender appender(Count);
    appender.Line("more");
    EXPECT_THROW(appender.Close(), RunTimeError);
    EXPECT_EQ(FileContent(Count), "0");
}

TEST_F(FolderLocks, OfOneWhoDiedHoldNobodyUp) {
    CutOff([](const std::function<void()>& die) {
        const FolderLock lock(Folder);
        die();
    });
    EXPECT_EQ(HostNames().size(), 2u);  // its lock is left behind
    Desktop.OnWait = [](const std::string& text) {
        ADD_FAILURE() << text;
        return false;
    };
    { const FolderLock lock(Folder); }
    EXPECT_THAT(HostNames(), ElementsAre("COUNT.TXT"));
}

TEST_F(FolderLocks, ClearUpWhatTheDeadHadOnItsWayAndNothingOfTheLiving) {
    PutFile("D:\\SHARED\\LIST.TXT", "list");
    CutOff([](const std::function<void()>& die) {
        const FolderLock lock(Folder);
        Drives::StagedFile dead(Count);
        dead.Write("1");
        die();
    });
    Drives::StagedFile living("D:\\SHARED\\LIST.TXT");
    living.Write("longer list");
    { const FolderLock lock(Folder); }
    EXPECT_THAT(HostNames(), testing::UnorderedElementsAre("COUNT.TXT", "LIST.TXT", "LIST.TXT.dv~"));
    living.Commit();
    EXPECT_EQ(FileContent("D:\\SHARED\\LIST.TXT"), "longer list");
}

TEST_F(FolderLocks, AreNotListedAndLeaveNothingBehind) {
    {
        const FolderLock lock(Folder);
        EXPECT_EQ(HostNames().size(), 2u);
        EXPECT_EQ(Drives::List(Folder).size(), 1u);
    }
    EXPECT_THAT(HostNames(), ElementsAre("COUNT.TXT"));
}

TEST_F(FolderLocks, CanBeTakenAgainFurtherDown) {
    const FolderLock outer(Folder);
    { const FolderLock inner("D:\\shared"); }
    EXPECT_EQ(HostNames().size(), 2u);
}

TEST_F(FolderLocks, AreNotMadeWhereTheUserMayMakeNoFiles) {
    std::filesystem::permissions(Drives::HostPath(Folder), std::filesystem::perms(0755));
    std::filesystem::permissions(Drives::HostPath(Count), std::filesystem::perms(0666));
    AsNobody([] {
        ScriptedDesktop desktop;
        const FolderLock lock(Folder);
        Drives::AppendFile(Count, "7");
    });
    EXPECT_EQ(FileContent(Count), "07");
}

TEST_F(FolderLocks, OfAnotherUserAreTakenOverWhenHeHasDied) {
    std::filesystem::permissions(Drives::HostPath(Folder), std::filesystem::perms(0777));
    CutOff([](const std::function<void()>& die) {
        const FolderLock lock(Folder);
        die();
    });
    AsNobody([this] {
        ScriptedDesktop desktop;
        { const FolderLock lock(Folder); }
        EXPECT_THAT(HostNames(), ElementsAre("COUNT.TXT"));
    });
}

TEST_F(FolderLocks, FollowNoLinkThatWasPlantedInTheirPlace) {
    PutFile("D:\\VICTIM.TXT", "mine");
    std::filesystem::create_symlink(Drives::HostPath("D:\\VICTIM.TXT"),
                                    Drives::HostPath(Folder) + "/.lock.dv~");
    { const FolderLock lock(Folder); }
    EXPECT_EQ(FileContent("D:\\VICTIM.TXT"), "mine");
}

TEST_F(FolderLocks, OfAFolderThatIsNotThereAreNone) {
    { const FolderLock lock("D:\\GONE\\"); }
    EXPECT_THAT(AllFiles("D:\\SHARED\\"), ElementsAre("COUNT.TXT"));
}

}  // namespace Dorvane::Testing
