// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The manners that the protocols of the reduction programs share.
namespace Dorvane {

/// Something the protocol has to say about a line of a field file; line 0 stands for the file as a whole.
struct Remark {
    std::string File;  // without its folder
    long Line = 0;
    std::string Text;
};

/// A protocol under way.
using Lines = std::vector<std::string>;

/// A number with a fixed number of decimals, right-justified; a blank field with a "-" for no value.
std::string Fixed(double value, int decimals, int width);
std::string Fixed(const std::optional<double>& value, int decimals, int width);

/// "1 line", "2 lines".
std::string Counted(long count, const std::string& noun);

/// A line's text as it can stand in a protocol: control characters as ".", at most 60 characters of it.
std::string Excerpt(std::string_view line);

/// Remarks as protocol lines: "  DAM.GSI, line 12: text", the numbers of one file aligned.
std::vector<std::string> RemarkLines(const std::vector<Remark>& remarks);

/// A heading and a rule of hyphens below it, as long as the heading.
std::vector<std::string> Heading(const std::string& text);

/// Adds a section's heading, set off from what stands before it.
void AddSection(Lines& lines, const std::string& title);

/// Adds the section of the errors, when there are any.
void AddErrors(Lines& lines, const Lines& errors);

/// Adds what closes a protocol: the warnings of the book and those of its reduction, then the lines that
/// could not be read, each section only when it has something to say.
void AddRemarks(Lines& lines, const std::vector<Remark>& ofBook, const std::vector<Remark>& ofReduction,
                const std::vector<Remark>& unreadable);

/// Gons to milligons, meters to millimeters.
constexpr double Milli = 1000;

/// A value times Milli; nothing stays nothing.
std::optional<double> InMilli(const std::optional<double>& value);

/// The file's name without its folder.
std::string FileOf(const std::string& path);

/// The root mean square of deviations whose squares sum to `squares` with `freedom` degrees of freedom;
/// nothing when there is none left.
std::optional<double> Spread(double squares, long freedom);

}  // namespace Dorvane
