// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/edittext/PieceText.h"

// The headings of a text, to which one may jump: a line that is underlined with "-" or "=", a section of a
// profile or of a version note, a title of the adjustment's input file, and what begins a table of its
// listing.
namespace Dorvane {

struct TextSection {
    Offset At = 0;
    std::string Title;

    bool operator==(const TextSection&) const = default;
};

/// The search for all headings, in portions. The text must not change as long as it goes on.
class SectionScan {
  public:
    explicit SectionScan(const PieceText& text) : Text(text) {}

    /// Looks at a portion more. True when the whole text was looked at.
    bool Step();
    const std::vector<TextSection>& Sections() const { return Found; }

  private:
    void TakeLine(std::string_view line);

    const PieceText& Text;
    Offset Next = 0;  // where the next line begins
    Offset FormerAt = 0;
    std::string Former;  // the line before, empty when it is no heading whatever follows
    std::vector<TextSection> Found;
};

}  // namespace Dorvane
