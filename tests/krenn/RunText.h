// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "krenn/Errors.h"
#include "krenn/Run.h"
#include "tests/krenn/ListingReader.h"
#include "tests/krenn/TempFolder.h"

namespace KrennTest {

// What every listing promises: of a good run it can be read to its end, of a failed one it says what is wrong
// and what to do and cannot be taken for a good one.
inline void ExpectListingOf(Krenn::ErrorNumber number, const std::string& listing) {
    using testing::HasSubstr;
    using testing::Not;
    if (number == Krenn::ErrorNumber::Good) {
        EXPECT_EQ(ReadListingText(listing).result, 1);
        EXPECT_THAT(listing, Not(HasSubstr("RUN FAILED")));
        return;
    }
    EXPECT_NE(number, Krenn::ErrorNumber::Internal);
    EXPECT_TRUE(listing.starts_with(" RUN FAILED\r\n"));
    EXPECT_THAT(listing, HasSubstr("Error " + std::to_string(static_cast<int>(number)) + ":"));
    EXPECT_THAT(listing, HasSubstr("What to do: "));
    EXPECT_THAT(listing, Not(HasSubstr("\r\nFinal results")));
    EXPECT_NE(ReadListingText(listing).result, 1);
}

// Runs a text as A.INP, with a parameter file if it is not empty, and checks the listing. Lines of the
// listing are broken where they are too long; `unbroken` has blanks in their place.
struct TextRun {
    Krenn::ErrorNumber number = Krenn::ErrorNumber::Good;
    std::string listing;
    std::string unbroken;
};

inline std::string Unbroken(const std::string& listing) {
    std::string text;
    for (const char letter : listing) {
        const bool isBlank = letter == '\r' || letter == '\n' || letter == ' ';
        if (!isBlank)
            text += letter;
        else if (!text.empty() && text.back() != ' ')
            text += ' ';
    }
    return text;
}

inline TextRun RunText(const std::string& text, int type = 1, const std::string& parameters = "") {
    const TempFolder folder;
    TextRun run;
    const std::string input = folder.Write("A.INP", text);
    if (!parameters.empty())
        folder.Write("A.PAR", parameters);
    run.number = Krenn::RunAdjustment(input, type);
    run.listing = folder.Read("A.OUT");
    run.unbroken = Unbroken(run.listing);
    ExpectListingOf(run.number, run.listing);
    EXPECT_FALSE(folder.Has("A.OUT.new"));
    return run;
}

}  // namespace KrennTest
