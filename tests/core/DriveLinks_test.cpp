// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DriveLinks.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;

struct DriveLinks : testing::Test {
    DriveLinks() {
        std::filesystem::create_directory(Survey());
        std::filesystem::create_directory(Other());
    }

    std::string Survey() const { return Site.HostFolder() + "survey"; }
    std::string Other() const { return Site.HostFolder() + "other"; }
    static std::vector<char> Letters() {
        std::vector<char> letters;
        for (const Drives::Link& link : Drives::Links())
            letters.push_back(link.Letter);
        return letters;
    }

    TestSite Site;
};

}  // namespace

TEST_F(DriveLinks, AreListedWithTheirFoldersAlsoWhereThoseAreGone) {
    EXPECT_TRUE(Drives::CanLayOut());
    EXPECT_EQ(Drives::LinksFolder(), Global().DrivesFolder);
    std::filesystem::create_directory_symlink("/nowhere/at/all", Global().DrivesFolder + "n:");
    std::filesystem::create_directory_symlink("gone", Global().DrivesFolder + "r:");
    std::filesystem::create_directory(Global().DrivesFolder + "notes");
    EXPECT_THAT(Letters(), ElementsAre('C', 'D', 'N', 'P', 'R', 'Z'));
    const std::vector<Drives::Link> links = Drives::Links();
    EXPECT_EQ(links[2].Folder, "/nowhere/at/all");
    EXPECT_EQ(links[4].Folder, Global().DrivesFolder + "gone");
    EXPECT_EQ(links[5].Folder, "/");
    EXPECT_EQ(Drives::DriveLetters(), "CDPZ");
}

TEST_F(DriveLinks, LeadWhereTheyAreSet) {
    Drives::SetLink({'E', Survey()});
    Drives::WriteFile("E:\\A.TXT", "a");
    EXPECT_TRUE(std::filesystem::exists(Survey() + "/A.TXT"));
    Drives::SetLink({'E', Other()});
    Drives::WriteFile("E:\\B.TXT", "b");
    EXPECT_TRUE(std::filesystem::exists(Other() + "/B.TXT"));
    EXPECT_TRUE(std::filesystem::exists(Survey() + "/A.TXT"));
    EXPECT_THAT(Letters(), ElementsAre('C', 'D', 'E', 'P', 'Z'));
}

TEST_F(DriveLinks, AreSetInSpiteOfWhatAFormerAttemptLeft) {
    std::filesystem::create_directory_symlink("/tmp", Global().DrivesFolder + "e:.dv~");
    Drives::SetLink({'E', Survey()});
    EXPECT_EQ(Drives::Links()[2], (Drives::Link{'E', Survey()}));
    EXPECT_FALSE(std::filesystem::is_symlink(Global().DrivesFolder + "e:.dv~"));
}

TEST_F(DriveLinks, AreRemovedWithoutWhatLiesBelow) {
    Drives::SetLink({'E', Survey()});
    Drives::WriteFile("E:\\A.TXT", "a");
    Drives::RemoveLink('E');
    EXPECT_THAT(Letters(), ElementsAre('C', 'D', 'P', 'Z'));
    EXPECT_TRUE(std::filesystem::exists(Survey() + "/A.TXT"));
    EXPECT_THROW(Drives::RemoveLink('E'), RunTimeError);
    EXPECT_THROW(Drives::RemoveLink('C'), RunTimeError);
    EXPECT_TRUE(std::filesystem::exists(Global().DrivesFolder + "c:/WINDOWS"));
}

TEST_F(DriveLinks, TellWhatCanBeDoneInAFolder) {
    EXPECT_EQ(Drives::AccessTo(Survey()), Drives::Access::Writable);
    EXPECT_EQ(Drives::AccessTo(Survey() + "/none"), Drives::Access::Missing);
    EXPECT_EQ(Drives::AccessTo(""), Drives::Access::Missing);
    std::filesystem::permissions(Survey(), std::filesystem::perms::owner_all |
                                               std::filesystem::perms::others_read |
                                               std::filesystem::perms::others_exec);
    AsNobody([this] { EXPECT_EQ(Drives::AccessTo(Survey()), Drives::Access::ReadOnly); });
}

}  // namespace Dorvane::Testing
