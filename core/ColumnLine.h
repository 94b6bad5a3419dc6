// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane {

/// A line of fixed columns, built from left to right. Columns count from 1.
class ColumnLine {
  public:
    /// Places a field at a column, blanks filling up to it. When the line has passed that column already, the
    /// field goes to the same column of the next line.
    ColumnLine& At(int column, std::string_view field);

    /// Adds a text directly behind what is there.
    ColumnLine& Then(std::string_view text);

    /// The line without its end; broken lines hold CR LF between them.
    const std::string& Text() const { return Content; }

  private:
    std::string Content;
    std::size_t LineStart = 0;
};

}  // namespace Dorvane
