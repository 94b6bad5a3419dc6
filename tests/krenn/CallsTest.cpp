// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

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

TEST(Calls, GoTwiceRunsTwiceAndStopTwiceIsOneStop) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("LOOP.INP", kLoop)), 0);
    EXPECT_EQ(go(1), 0);
    std::filesystem::remove(folder.path / "LOOP.OUT");
    EXPECT_EQ(go(0), 0);
    EXPECT_TRUE(folder.Has("LOOP.OUT"));
    stop();
    stop();
    EXPECT_EQ(go(1), 1);
}

TEST(Calls, ASecondStartTakesThePlaceOfTheFirst) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("FIRST.INP", kLoop)), 0);
    EXPECT_EQ(Start(folder.Write("SECOND.INP", kLoop)), 0);
    EXPECT_EQ(go(1), 0);
    stop();
    EXPECT_FALSE(folder.Has("FIRST.OUT"));
    EXPECT_TRUE(folder.Has("SECOND.OUT"));
}

TEST(Calls, GoReadsTheInputAsItIsThen) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("LOOP.INP", kLoop)), 0);
    folder.Write("LOOP.INP", "NORL\r\n\r\nHeight differences\r\nA B x 0.001\r\nEND\r\n");
    EXPECT_EQ(go(1), 11);
    EXPECT_THAT(folder.Read("LOOP.OUT"), testing::StartsWith(" RUN FAILED"));
    folder.Write("LOOP.INP", kLoop);
    EXPECT_EQ(go(1), 0);
    EXPECT_THAT(folder.Read("LOOP.OUT"), testing::HasSubstr("\r\nFinal results"));
    stop();
}

TEST(Calls, AFolderThatVanishesBeforeGoIsAnError) {
    const TempFolder folder;
    EXPECT_EQ(Start(folder.Write("inside/LOOP.INP", kLoop)), 0);
    std::filesystem::remove_all(folder.path / "inside");
    EXPECT_EQ(go(1), 2);
    EXPECT_FALSE(folder.Has("inside"));
    stop();
}

// Whoever opens a pipe that nobody writes to waits for ever.
TEST(Calls, APipeIsNoInputFileAndIsNotWaitedFor) {
    const TempFolder folder;
    const std::string pipe = (folder.path / "PIPE.INP").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Start(pipe), 2);
    EXPECT_EQ(go(1), 2);
    stop();
    EXPECT_THAT(folder.Read("PIPE.OUT"), testing::HasSubstr("Error 2:"));
}

TEST(Calls, AFolderAndAnEmptyFileAreNoInputFiles) {
    const TempFolder folder;
    std::filesystem::create_directories(folder.path / "FOLDER.INP");
    EXPECT_EQ(Start((folder.path / "FOLDER.INP").string()), 2);
    EXPECT_EQ(go(1), 2);
    EXPECT_THAT(folder.Read("FOLDER.OUT"), testing::HasSubstr("Error 2:"));
    EXPECT_EQ(Start(folder.Write("EMPTY.INP", "")), 0);
    EXPECT_EQ(go(1), 3);
    EXPECT_THAT(folder.Read("EMPTY.OUT"), testing::HasSubstr("Error 3:"));
    stop();
}

TEST(Calls, TakePathsWithBlanksAndAccents) {
    const TempFolder folder;
    for (const char* name : {"a b/NET ONE.INP",
                             "Stra\xC3\x9F"
                             "e/T\xC3\xA9l\xC3\xA9.INP",
                             "Code\xE9/N\xFCtz.INP"}) {
        EXPECT_EQ(Start(folder.Write(name, kLoop)), 0) << name;
        EXPECT_EQ(go(1), 0) << name;
        const std::string text(name);
        EXPECT_THAT(folder.Read(text.substr(0, text.size() - 4) + ".OUT"),
                    testing::HasSubstr("\r\nFinal results"));
    }
    stop();
}

TEST(Calls, TakeNoPathTooLongForTheSystemForAFile) {
    const TempFolder folder;
    const std::string endless = (folder.path / (std::string(300, 'x') + ".INP")).string();
    EXPECT_EQ(Start(endless), 2);
    EXPECT_EQ(go(1), 2);
    std::string deep = folder.path.string();
    while (deep.size() < 6000)
        deep += "/a_folder_with_a_long_name";
    EXPECT_EQ(Start(deep + "/NET.INP"), 2);
    EXPECT_EQ(go(1), 2);
    // Room for the input and not for the file that becomes the listing.
    EXPECT_EQ(Start(folder.Write(std::string(249, 'x') + ".INP", kLoop)), 0);
    EXPECT_EQ(go(1), 40);
    stop();
}

}  // namespace
