// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSections.h"

#include <gmock/gmock.h>

namespace Dorvane::Testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> Titles(const std::string& bytes) {
    const PieceText text(bytes);
    SectionScan scan(text);
    while (!scan.Step()) {
    }
    std::vector<std::string> titles;
    for (const TextSection& section : scan.Sections()) {
        EXPECT_EQ(text.LineStart(section.At), section.At);
        EXPECT_NE(text.Read(section.At, 300).find(section.Title), std::string::npos);
        titles.push_back(section.Title);
    }
    return titles;
}

}  // namespace

TEST(TextSections, OfAListingAreItsHeadingsAndItsTables) {
    EXPECT_THAT(Titles(" KRENN 1.0\r\n\r\n Summary\r\n -------\r\n +----+\r\n | x  |\r\n\r\n"
                       " Datum and start positions\r\n -------------------------\r\n  one-tailed\r\n"
                       "Final results (coordinates in meters)\r\n  point\r\ndistance residuals\r\nP1 P2\r\n"
                       "Standard deviations\r\n"),
                ElementsAre("Summary", "Datum and start positions", "Final results", "distance residuals",
                            "Standard deviations"));
    EXPECT_THAT(Titles("PROTOCOL\n========\ntext\n"), ElementsAre("PROTOCOL"));
}

TEST(TextSections, OfAnInputFileAreItsTitles) {
    EXPECT_THAT(
        Titles("NORL\r\nTheodolite Stations\r\nP1\r\n\r\nEND\r\nObject Points\r\nEND\r\nDistances \r\n"
               "P1        P2   93.16241   0.00060\r\nEND\r\nControl Information\r\nFixed Coordinates\r\n"),
        ElementsAre("Theodolite Stations", "Object Points", "Distances", "Control Information",
                    "Fixed Coordinates"));
}

TEST(TextSections, OfAProfileAreInBrackets) {
    EXPECT_THAT(Titles("; comment\r\n[Tarvex Info]\r\nA=[x]\r\n[General Editor] \r\n[open\r\n[]\r\n"),
                ElementsAre("[Tarvex Info]", "[General Editor]"));
}

TEST(TextSections, AreNotWhatOnlyLooksLikeThem) {
    EXPECT_THAT(Titles(""), IsEmpty());
    EXPECT_THAT(Titles("text\n--\n"), IsEmpty());        // too short
    EXPECT_THAT(Titles("text\n  ------\n"), IsEmpty());  // not below it
    EXPECT_THAT(Titles("\n-----\n"), IsEmpty());         // below nothing
    EXPECT_THAT(Titles("text\n--- ---\n"), IsEmpty());   // columns of a table
    EXPECT_THAT(Titles(std::string(300, 'x') + "\n-----\n"), IsEmpty());
    EXPECT_THAT(Titles("Observations to be made\n"), IsEmpty());
    EXPECT_THAT(Titles(" Final results\n"), IsEmpty());
}

TEST(TextSections, AreFoundAcrossPortionsAndBehindLongLines) {
    constexpr std::size_t Border = 1 << 20;
    EXPECT_THAT(Titles(std::string(Border, 'x') + "[Middle]\r\n"), IsEmpty());
    for (std::size_t place = Border - 20; place < Border + 5; ++place) {
        std::string bytes(place - 2, '.');
        bytes += "\r\nHeading\r\n-------\r\n";
        EXPECT_THAT(Titles(bytes), ElementsAre("Heading")) << place;
    }
    EXPECT_THAT(Titles(std::string(3 * Border, 'x') + "\r\n[Section]\r\n"), ElementsAre("[Section]"));
    EXPECT_THAT(Titles("text\n" + std::string(3 * Border, 'x') + "\n----\n"), IsEmpty());
}

}  // namespace Dorvane::Testing
