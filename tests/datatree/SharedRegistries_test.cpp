// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "datatree/basTree.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"
#include "tests/support/Workstations.h"

// Several workstations that change the registries of one site at a time lose nothing.
namespace Dorvane::Testing {

namespace {

constexpr int Workstations = 4;
constexpr int Each = 25;

struct SharedRegistries : testing::Test {
    SharedRegistries() { Site.LayOut(); }

    static std::string Epoch(int workstation, int i) {
        return "SRV" + std::to_string(workstation) + std::to_string(100 + i);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(SharedRegistries, HoldEveryFolderOnce) {
    Together(Workstations, [](int number) {
        for (int i = 0; i < Each; ++i)
            UpdatePthFileAdd("DAM", "NORTH", "TOTAL", Epoch(number, i));
    });
    const std::vector<std::string> lines = FileLines("D:\\TARVEX\\INIT\\DAM.PTH");
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(Workstations * Each));
    for (int number = 0; number < Workstations; ++number)
        for (int i = 0; i < Each; ++i)
            EXPECT_EQ(std::count(lines.begin(), lines.end(),
                                 " *       DAM       NORTH     TOTAL     " + Epoch(number, i)),
                      1);
}

TEST_F(SharedRegistries, HoldEveryEventOfTheHistory) {
    UpdateHisFileAdd("DAM", "NORTH", "TOTAL", "SRV01", "first", "11-20-26");
    UpdateHisFileAdd("DAM", "SOUTH", "TOTAL", "SRV01", "last", "11-20-26");
    Together(Workstations, [](int number) {
        for (int i = 0; i < Each; ++i) {
            UpdateHisFileAdd("DAM", "NORTH", "TOTAL", Epoch(number, i), "new", "11-20-26");
            UpdateHisFileAdd("DAM", "NORTH", "TOTAL", "SRV01", Epoch(number, i), "11-20-26");
        }
    });
    const std::string history = FileContent("D:\\TARVEX\\INIT\\DAM.HIS");
    for (int number = 0; number < Workstations; ++number)
        for (int i = 0; i < Each; ++i) {
            EXPECT_THAT(history, testing::HasSubstr("DAM\\NORTH\\TOTAL\\" + Epoch(number, i) + "\r\n"));
            EXPECT_THAT(history, testing::HasSubstr("11-20-26      " + Epoch(number, i) + "\r\n"));
        }
    EXPECT_EQ(FileLines("D:\\TARVEX\\INIT\\DAM.HIS").size(), 8u + 3u * Workstations * Each);
}

TEST_F(SharedRegistries, KeepEveryKeyOfAProfile) {
    Together(Workstations, [](int number) {
        for (int i = 0; i < Each; ++i)
            IniWriteString("shared.ini", "Station " + std::to_string(number), Epoch(number, i), "here");
    });
    for (int number = 0; number < Workstations; ++number)
        for (int i = 0; i < Each; ++i)
            EXPECT_EQ(IniReadString("shared.ini", "Station " + std::to_string(number), Epoch(number, i)),
                      "here");
}

}  // namespace Dorvane::Testing
