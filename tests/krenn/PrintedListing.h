// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/listing/Listing.h"
#include "tests/krenn/ListingReader.h"

namespace KrennTest {

// An adjusted network, its listing, and what a reader took from it.
struct Printed {
    Krenn::Network network;
    Krenn::Adjustment adjustment;
    Krenn::Statistics statistics;
    std::string text;
    ReadListing read;
};

Printed PrintNetwork(Krenn::Network network, Krenn::Type type, const Krenn::Parameters& parameters = {});

// The same from the text of an input file.
Printed Print(const std::string& text, Krenn::Type type, const Krenn::Parameters& parameters = {});

std::vector<std::string> LinesOf(const std::string& text);

// The lines of a section from its heading or marker to the next blank line.
std::vector<std::string> SectionOf(const std::string& text, const std::string& title);

// Everything that the adjustment knows comes back through the reader.
void ExpectRead(const Printed& printed);

}  // namespace KrennTest
