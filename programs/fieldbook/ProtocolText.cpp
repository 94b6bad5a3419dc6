// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/fieldbook/ProtocolText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/Pattern.h"
#include "core/Text.h"

namespace Dorvane {

std::string Fixed(double value, int decimals, int width) {
    const std::string places(static_cast<std::size_t>(decimals), '0');
    return Pattern(decimals == 0 ? "0" : "0." + places)(value, width);
}

std::string Fixed(const std::optional<double>& value, int decimals, int width) {
    return value ? Fixed(*value, decimals, width) : RightJustify("-", width);
}

std::string Counted(long count, const std::string& noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string Excerpt(std::string_view line) {
    constexpr std::size_t longest = 60;
    std::string text(line.substr(0, longest));
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '.';
    return line.size() > longest ? text + " ..." : text;
}

std::vector<std::string> RemarkLines(const std::vector<Remark>& remarks) {
    long last = 0;
    for (const Remark& remark : remarks)
        last = std::max(last, remark.Line);
    const std::size_t width = std::to_string(last).size();
    std::vector<std::string> lines;
    for (const Remark& remark : remarks) {
        if (remark.Line > 0)
            lines.push_back(
                fmt::format("  {}, line {:>{}}: {}", remark.File, remark.Line, width, remark.Text));
        else if (!remark.File.empty())
            lines.push_back(fmt::format("  {}: {}", remark.File, remark.Text));
        else
            lines.push_back("  " + remark.Text);
    }
    return lines;
}

std::vector<std::string> Heading(const std::string& text) {
    return {text, std::string(text.size(), '-')};
}

std::string FileOf(const std::string& path) {
    return path.substr(path.find_last_of('\\') + 1);
}

std::optional<double> Spread(double squares, long freedom) {
    if (freedom < 1)
        return std::nullopt;
    return std::sqrt(squares / static_cast<double>(freedom));
}

namespace {

void AddRemarkSection(Lines& lines, const std::string& title, const std::vector<Remark>& remarks) {
    if (remarks.empty())
        return;
    AddSection(lines, fmt::format("{} ({})", title, remarks.size()));
    const Lines texts = RemarkLines(remarks);
    lines.insert(lines.end(), texts.begin(), texts.end());
}

}  // namespace

void AddSection(Lines& lines, const std::string& title) {
    const Lines heading = Heading(title);
    lines.resize(lines.size() + 2);
    lines.insert(lines.end(), heading.begin(), heading.end());
    lines.emplace_back();
}

void AddErrors(Lines& lines, const Lines& errors) {
    if (errors.empty())
        return;
    AddSection(lines, "Errors");
    for (const std::string& error : errors)
        lines.push_back("  " + error);
}

void AddRemarks(Lines& lines, const std::vector<Remark>& ofBook, const std::vector<Remark>& ofReduction,
                const std::vector<Remark>& unreadable) {
    std::vector<Remark> warnings = ofBook;
    warnings.insert(warnings.end(), ofReduction.begin(), ofReduction.end());
    AddRemarkSection(lines, "Warnings", warnings);
    AddRemarkSection(lines, "Unreadable lines", unreadable);
}

std::optional<double> InMilli(const std::optional<double>& value) {
    if (!value)
        return std::nullopt;
    return *value * Milli;
}

}  // namespace Dorvane
