// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineReader.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

std::vector<std::string> LinesOf(const std::string& text) {
    LineReader reader = LineReader::OfText(text);
    std::vector<std::string> lines;
    while (!reader.AtEnd())
        lines.emplace_back(reader.ReadLine());
    return lines;
}

using Lines = std::vector<std::string>;

}  // namespace

TEST(LineReader, TakesEveryKindOfLineEnd) {
    EXPECT_EQ(LinesOf("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(LinesOf("a\r\r\nb"), (Lines{"a", "", "b"}));
}

TEST(LineReader, AddsNoLineBehindTheLastLineEnd) {
    EXPECT_EQ(LinesOf("a\r\n"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\r\n\r\n"), (Lines{"a", ""}));
    EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(LineReader, KeepsTheEmptyLineBetweenTwoEqualLineEnds) {
    EXPECT_EQ(LinesOf("a\n\nb\n"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("a\r\rb\r"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("a\n\rb"), (Lines{"a", "", "b"}));
}

TEST(LineReader, LeavesOutEveryMarkBehindTheText) {
    EXPECT_EQ(LinesOf("a\r\n\x1A\x1A\x1A"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("\x1A"), Lines{});
}

TEST(LineReader, LeavesOutAnEndOfFileMarkAtTheEnd) {
    EXPECT_EQ(LinesOf("a\r\n\x1A"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\x1A"
                      "b\r\n"),
              (Lines{"a\x1A"
                     "b"}));
}

TEST(LineReader, RaisesError62PastTheEnd) {
    LineReader reader = LineReader::OfText("only");
    EXPECT_EQ(reader.ReadLine(), "only");
    EXPECT_EQ(reader.LineNumber(), 1);
    try {
        reader.ReadLine();
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, InputPastEnd);
    }
}

TEST(LineReader, ReadsALineOfAMillionCharactersAndBytesOfEveryKind) {
    std::string binary;
    for (int i = 0; i < 256; ++i)
        if (i != '\r' && i != '\n')
            binary += static_cast<char>(i);
    const std::string text = std::string(1000000, 'x') + "\r\n" + binary + "\r\n";
    const Lines lines = LinesOf(text);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), 1000000u);
    EXPECT_EQ(lines[1], binary);
}

TEST(LineReader, RaisesFileNotFoundAndPathNotFound) {
    const TestSite site;
    const auto numberOf = [](const char* path) {
        try {
            LineReader reader(path);
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    };
    EXPECT_EQ(numberOf("D:\\NONE.TXT"), FileNotFound);
    EXPECT_EQ(numberOf("D:\\NONE\\NONE.TXT"), PathNotFound);
    EXPECT_EQ(numberOf("D:\\"), PathFileAccess);
    EXPECT_EQ(numberOf("Q:\\A.TXT"), DeviceUnavailable);
}

}  // namespace Dorvane
