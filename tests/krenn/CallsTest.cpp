// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "krenn/Krenn.h"
#include "tests/krenn/TempFolder.h"

namespace {

using KrennTest::TempFolder;

const std::string kLoop =
    "NORL\r\n\r\nHeight differences\r\nA B 1.001 0.001\r\nB C 1 0.001\r\nC A -2 0.001\r\nEND\r\n";

std::int16_t Start(std::string path) {
    const std::string before = path;
    const std::int16_t result = start(path.data());
    EXPECT_EQ(path, before);
    return result;
}

TEST(Calls, StartGoStopWriteAListingForEveryType) {
    const TempFolder folder;
    const std::string input = folder.Write("LOOP.INP", kLoop);
    for (const std::int32_t type : {0, 1, 7, -1}) {
        std::filesystem::remove(folder.path / "LOOP.OUT");
        EXPECT_EQ(Start(input), 0);
        EXPECT_EQ(go(type), 0);
        stop();
        EXPECT_THAT(folder.Read("LOOP.OUT"), testing::HasSubstr("\r\nFinal results"));
    }
}

TEST(Calls, GoRunsThoughStartCouldNotOpenTheFile) {
    const TempFolder folder;
    EXPECT_EQ(Start((folder.path / "NONE.INP").string()), 2);
    EXPECT_EQ(go(1), 2);
    stop();
    EXPECT_THAT(folder.Read("NONE.OUT"), testing::HasSubstr("RUN FAILED"));
}

TEST(Calls, GoWithoutStartIsAnError) {
    stop();
    EXPECT_EQ(go(1), 1);
    EXPECT_EQ(start(nullptr), 1);
    EXPECT_EQ(go(1), 1);
}

TEST(Calls, StopForgetsTheRun) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("LOOP.INP", kLoop)), 0);
    stop();
    EXPECT_EQ(go(1), 1);
    EXPECT_FALSE(folder.Has("LOOP.OUT"));
}

TEST(Calls, AnUnknownTypeIsAnErrorWithAListing) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("LOOP.INP", kLoop)), 0);
    EXPECT_EQ(go(5), 4);
    stop();
    EXPECT_THAT(folder.Read("LOOP.OUT"), testing::HasSubstr("Error 4:"));
}

}  // namespace
