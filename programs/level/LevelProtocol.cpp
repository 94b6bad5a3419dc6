// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/level/LevelProtocol.h"

#include <fmt/format.h>

namespace Dorvane {

namespace {

void AddHead(Lines& lines, const LevelProtocolHead& head, const StaffCorrection& correction) {
    lines.push_back("LEVELLING REDUCTION");
    lines.push_back("===================");
    lines.emplace_back();
    lines.push_back("Reduced          " + GeneralDate(head.Moment));
    lines.push_back("Survey folder    " + head.Folder);
    lines.push_back("Survey index     " + head.Index);
    lines.push_back(fmt::format("Result file      {} ({}: from, to, height difference)", head.Result,
                                Counted(head.ResultLines, "line")));
    lines.push_back("Collimation      " + Fixed(correction.Collimation * Milli, 4, 0) + " mm/m");
    lines.push_back("Staff scale      " + Fixed(correction.Scale, 7, 0));
    std::string inverted;
    for (const std::string& point : correction.Inverted)
        inverted += (inverted.empty() ? "" : ", ") + point;
    lines.push_back("Inverted staff   " + (inverted.empty() ? "none" : inverted));
    lines.emplace_back();
    lines.push_back("Readings, distances and height differences in meters; discrepancies in millimeters.");
}

void AddFiles(Lines& lines, const LevelBook& book) {
    AddSection(lines, "Field files");
    lines.push_back(
        fmt::format("  {:<14}{:>9}{:>10}{:>9}{:>12}", "File", "Lines", "Readings", "Others", "Unreadable"));
    for (const LevelFileCount& file : book.Files)
        lines.push_back(fmt::format("  {:<14}{:>9}{:>10}{:>9}{:>12}", file.File, file.Lines, file.Readings,
                                    file.Others, file.Unreadable));
}

std::optional<double> DoubleReading(const StaffMean& mean) {
    if (mean.Readings.size() < 2)
        return std::nullopt;
    return (mean.Readings.front() - mean.Readings.back()) * Milli;
}

void AddLines(Lines& lines, const LevelBook& book, const LevelResult& result) {
    AddSection(lines, "Lines and their set-ups");
    lines.pop_back();
    for (std::size_t i = 0; i < book.Lines.size(); ++i) {
        const LevelLine& line = book.Lines[i];
        const LevelLineSum& sum = result.Lines[i];
        lines.emplace_back();
        lines.push_back(fmt::format("  Line {}{}{}, {}: {} to {}", i + 1, line.Name.empty() ? "" : " ",
                                    line.Name, line.File, sum.From, sum.To));
        lines.emplace_back();
        lines.push_back(fmt::format("  {:<17}{:<17}{:>11}{:>9}{:>9}{:>11}{:>9}{:>9}{:>12}", "Back", "Fore",
                                    "Reading", "Diff mm", "Dist m", "Reading", "Diff mm", "Dist m",
                                    "Height diff"));
        for (const LevelSetUp& setUp : line.SetUps) {
            const double difference = setUp.Back.Mean() - setUp.Fore.Mean();
            lines.push_back(fmt::format("  {:<17}{:<17}{}{}{}{}{}{}{}", setUp.Back.Point, setUp.Fore.Point,
                                        Fixed(setUp.Back.Mean(), 5, 11),
                                        Fixed(DoubleReading(setUp.Back), 2, 9),
                                        Fixed(setUp.Back.Distance, 2, 9), Fixed(setUp.Fore.Mean(), 5, 11),
                                        Fixed(DoubleReading(setUp.Fore), 2, 9),
                                        Fixed(setUp.Fore.Distance, 2, 9), Fixed(difference, 5, 12)));
            for (const StaffMean& inter : setUp.Inter)
                lines.push_back(fmt::format("  {:<17}{:<17}{:>11}{:>9}{:>9}{}{:>9}{}{}", "", inter.Point, "",
                                            "", "", Fixed(inter.Mean(), 5, 11), "",
                                            Fixed(inter.Distance, 2, 9),
                                            Fixed(setUp.Back.Mean() - inter.Mean(), 5, 12)));
        }
        lines.push_back(fmt::format("  {:<34}{:>40}{}{}", Counted(sum.SetUps, "set-up"), "length ",
                                    Fixed(sum.Length, 2, 9), Fixed(sum.Difference, 5, 12)));
        if (sum.From == sum.To)
            lines.push_back(fmt::format("  The line closes on {} with {} mm.", sum.From,
                                        Fixed(sum.Difference * Milli, 2, 0)));
    }
}

void AddSections(Lines& lines, const LevelResult& result) {
    AddSection(lines, "Sections between marks: runs and means");
    lines.push_back(fmt::format("  {:<17}{:<17}{:>8}{:>9}{:>10}{:>11}{:>13}{:>13}", "From", "To", "Line",
                                "Set-ups", "Length m", "Balance m", "Height diff", "Discrep. mm"));
    for (const LevelSection& section : result.Sections) {
        for (const LevelRun& run : section.Runs)
            lines.push_back(fmt::format("  {:<17}{:<17}{:>8}{:>9}{}{}{}{}", run.From, run.To, run.Line + 1,
                                        run.SetUps, Fixed(run.Length, 2, 10), Fixed(run.Imbalance, 2, 11),
                                        Fixed(run.Difference, 5, 13), run.Inter ? "   intersight" : ""));
        lines.push_back(fmt::format("  {:<17}{:<17}{:>8}{:>9}{}{:>11}{}{}", "  mean", "", "",
                                    section.Runs.size(), Fixed(section.Length, 2, 10), "",
                                    Fixed(section.Mean, 5, 13), Fixed(InMilli(section.Discrepancy), 2, 13)));
        lines.emplace_back();
    }
    if (!result.Sections.empty())
        lines.pop_back();
}

void AddSummary(Lines& lines, const LevelBook& book, const LevelResult& result) {
    AddSection(lines, "Summary");
    long both = 0;
    for (const LevelSection& section : result.Sections)
        both += section.Discrepancy ? 1 : 0;
    long unreadable = 0;
    for (const LevelFileCount& file : book.Files)
        unreadable += file.Unreadable;
    const auto counted = [](std::size_t count, const char* noun) {
        return Counted(static_cast<long>(count), noun);
    };
    lines.push_back(fmt::format("  {}, {}, {} of them measured in both directions",
                                counted(book.Lines.size(), "line"),
                                counted(result.Sections.size(), "section"), both));
    lines.push_back(fmt::format("  {}, {}", counted(book.Warnings.size() + result.Warnings.size(), "warning"),
                                Counted(unreadable, "unreadable line")));
    if (result.KilometerDeviation)
        lines.push_back(
            fmt::format("  Standard deviation of a height difference over 1 km, forward and back: {} mm",
                        Fixed(*result.KilometerDeviation * Milli, 2, 0)));
}

}  // namespace

Lines LevelProtocol(const LevelProtocolHead& head, const StaffCorrection& correction, const LevelBook& book,
                    const LevelResult& result, const Lines& errors) {
    Lines lines;
    AddHead(lines, head, correction);
    AddErrors(lines, errors);
    AddFiles(lines, book);
    AddLines(lines, book, result);
    AddSections(lines, result);
    AddSummary(lines, book, result);
    AddRemarks(lines, book.Warnings, result.Warnings, book.Unreadable);
    return lines;
}

}  // namespace Dorvane
