// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "adjustment/OutputReader.h"
#include "core/Drives.h"
#include "tests/adjustment/Listing.h"
#include "tests/support/Reports.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using Testing::PutFile;

class OutputFaults : public testing::Test {
  protected:
    int Read(const std::string& content) {
        Testing::PutListing("D:\\ADJ\\", "NET.OUT", content);
        return ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true);
    }

    static std::string Repeated(const std::string& line, int count) {
        std::string text;
        text.reserve(line.size() * static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            text += line;
        return text;
    }

    const std::string Reader = "basRead-ReadOutputFile";
    const std::string Head = "Final results\r\nskipped\r\n";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    AdjustmentResults Results;
};

TEST_F(OutputFaults, ListsMayHoldAsManyAsSixteenBitsCount) {
    EXPECT_EQ(Read(Head + Repeated("P 1 2 3\r\n", 32767) + "\r\ndistance residuals\r\n" +
                   Repeated("A B\r\n", 32767) + "\r\n"),
              1);
    EXPECT_EQ(Results.Points.Count(), 32767);
    EXPECT_EQ(Results.DistanceResiduals.Count(), 32767);
}

TEST_F(OutputFaults, OnePointTooManyIsAnOverflow) {
    ExpectReport(Desktop, 6, "Overflow", Reader);
    EXPECT_EQ(Read(Head + Repeated("P 1 2 3\r\n", 32768) + "\r\n"), 0);
    EXPECT_EQ(Results.Points.Count(), 32767);
}

TEST_F(OutputFaults, OneStationTooManyIsAnOverflow) {
    ExpectReport(Desktop, 6, "Overflow", Reader);
    EXPECT_EQ(Read(Head + Repeated("S\r\na b 1 2 3\r\na b 4 5 6\r\n", 32768) + "\r\n"), 0);
}

TEST_F(OutputFaults, OnePairTooManyIsAnOverflow) {
    ExpectReport(Desktop, 6, "Overflow", Reader);
    EXPECT_EQ(Read(Head + "P 1 2 3\r\n\r\nhorizontal direction\r\n" + Repeated("A B\r\n", 32768) + "\r\n"),
              0);
}

TEST_F(OutputFaults, ANumberBeyondAllNumbersIsAnOverflow) {
    ExpectReport(Desktop, 6, "Overflow", Reader);
    EXPECT_EQ(Read(Head + "P 1E999 2 3\r\n\r\n"), 0);
}

TEST_F(OutputFaults, ALineOfMoreThanFiftyWordsIsASubscriptError) {
    ExpectReport(Desktop, 9, "Subscript out of range", Reader);
    EXPECT_EQ(Read(Head + "P 1 2 3\r\n\r\nheight differences\r\n" + Repeated("word ", 51) + "\r\n\r\n"), 0);
}

TEST_F(OutputFaults, ALineOfFiftyWordsIsGood) {
    EXPECT_EQ(Read(Head + "P 1 2 3\r\n\r\nheight differences\r\n" + Repeated("word ", 50) + "\r\n\r\n"), 1);
}

TEST_F(OutputFaults, LongLinesOutsideTheSectionsAreOfNoMatter) {
    const std::string longLine = Repeated("word ", 200000) + "\r\n";
    EXPECT_EQ(Read(longLine + "Final results\r\n" + longLine + "P 1 2 3\r\n\r\n" + longLine), 1);
}

TEST_F(OutputFaults, AWordOfAMillionCharactersIsAName) {
    EXPECT_EQ(Read(Head + std::string(1000000, 'n') + " 1 2 3\r\n\r\n"), 1);
    EXPECT_EQ(Results.Points[1].Name, std::string(1000000, 'N'));
}

TEST_F(OutputFaults, AnEmptyFileHasNoResults) {
    EXPECT_EQ(Read(""), 0);
}

TEST_F(OutputFaults, ABinaryFileHasNoResults) {
    std::mt19937 random(6);
    std::string bytes(200000, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    EXPECT_EQ(Read(bytes), 0);
}

TEST_F(OutputFaults, BinaryInsideTheSectionsDoesNoHarm) {
    class Tolerant : public Testing::ScriptedDesktop {
      public:
        Answer ShowMessage(const Message& message) override {
            EXPECT_THAT(message.Text, testing::EndsWith("Source : Dorvane-basRead-ReadOutputFile"));
            return Answer::Ok;
        }
    } tolerant;
    std::string good;
    for (const std::string& line : Testing::GoodListingLines())
        good += line + "\r\n";
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        std::string bad = good;
        for (int i = 0; i < 5; ++i)
            bad[random() % bad.size()] = static_cast<char>(random());
        const int result = Read(bad);
        EXPECT_TRUE(result == 0 || result == 1);
    }
}

TEST_F(OutputFaults, AFileThatMayNotBeReadIsReported) {
    PutFile("D:\\ADJ\\NET.OUT", Head);
    std::filesystem::permissions(Drives::HostPath("D:\\ADJ\\NET.OUT"), std::filesystem::perms::none);
    Testing::AsNobody([&] {
        Desktop.ExpectMessageTitled("Program Error");
        EXPECT_EQ(ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true), 0);
        ASSERT_EQ(Desktop.Shown.size(), 1U);
        EXPECT_NE(Desktop.Shown[0].Text.find("Source : Dorvane-basRead-ReadOutputFile"), std::string::npos);
    });
}

TEST_F(OutputFaults, AFolderIsNoListing) {
    Testing::MakeFolders("D:\\ADJ\\NET.OUT\\");
    EXPECT_EQ(ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true), -1);
}

}  // namespace
}  // namespace Dorvane
