// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/TotalProtocol.h"

#include <fmt/format.h>

#include <algorithm>

namespace Dorvane {

namespace {

void AddHead(Lines& lines, const TotalProtocolHead& head) {
    lines.push_back(head.Title);
    lines.push_back(std::string(head.Title.size(), '='));
    lines.emplace_back();
    lines.push_back("Reduced          " + GeneralDate(head.Moment));
    lines.push_back("Survey folder    " + head.Folder);
    lines.push_back("Survey index     " + head.Index);
    lines.push_back(fmt::format("Result file      {} ({})", head.Result, Counted(head.ResultLines, "line")));
    lines.emplace_back();
    lines.push_back(
        "Directions and zenith angles in gons, distances in meters, from mark to mark. s set is the "
        "standard");
    lines.push_back(
        "deviation of one set (two faces), s mean that of the mean; both in milligons or millimeters.");
}

void AddFiles(Lines& lines, const FieldBook& book) {
    AddSection(lines, "Field files");
    lines.push_back(fmt::format("  {:<14}{:>9}{:>9}{:>9}{:>9}{:>9}{:>12}", "File", "Lines", "Set-ups",
                                "Sights", "Codes", "Others", "Unreadable"));
    for (const FileCount& file : book.Files)
        lines.push_back(fmt::format("  {:<14}{:>9}{:>9}{:>9}{:>9}{:>9}{:>12}", file.File, file.Lines,
                                    file.SetUps, file.Sights, file.Codes, file.Others, file.Unreadable));
}

std::string Heights(const SetUpResult& setUp) {
    if (setUp.InstrumentHeights.empty())
        return "-";
    if (setUp.InstrumentHeights.size() > 1)
        return "various";
    return Fixed(setUp.InstrumentHeights.front(), 4, 0);
}

std::string ErrorColumns(const InstrumentError& error) {
    const std::optional<double> mean = error.Pairs > 0 ? std::optional<double>(error.Mean) : std::nullopt;
    return Fixed(InMilli(mean), 2, 11) + Fixed(InMilli(error.Deviation), 2, 8);
}

void AddSetUps(Lines& lines, const TotalResult& result) {
    AddSection(lines, "Set-ups: instrument height, and the instrument's errors from the pairs of faces");
    lines.push_back(fmt::format("  {:<17}{:<14}{:>7}{:>10}{:>8}{:>7}{:>11}{:>8}{:>11}{:>8}{:>9}", "Station",
                                "File", "Line", "Height", "Sights", "Pairs", "Collim.", "s", "Index", "s",
                                "Circle"));
    lines.push_back(fmt::format("  {:<17}{:<14}{:>7}{:>10}{:>8}{:>7}{:>11}{:>8}{:>11}{:>8}{:>9}", "", "", "",
                                "m", "", "", "mgon", "mgon", "mgon", "mgon", "places"));
    for (const StationResult& station : result.Stations)
        for (const SetUpResult& setUp : station.SetUps)
            lines.push_back(fmt::format(
                "  {:<17}{:<14}{:>7}{:>10}{:>8}{:>7}{}{}{:>9}{}", station.Name, setUp.File, setUp.Line,
                Heights(setUp), setUp.Sights, setUp.Index.Pairs, ErrorColumns(setUp.Collimation),
                ErrorColumns(setUp.Index), setUp.Positions, setUp.Used ? "" : "  left out"));
}

std::string MeanColumns(const std::optional<MeanValue>& mean, int decimals, int width) {
    const std::optional<double> value = mean ? std::optional<double>(mean->Value) : std::nullopt;
    const std::optional<double> set = mean ? mean->SetDeviation : std::nullopt;
    const std::optional<double> all = mean ? mean->MeanDeviation : std::nullopt;
    return Fixed(value, decimals, width) + Fixed(InMilli(set), 2, 7) + Fixed(InMilli(all), 2, 8);
}

void AddStation(Lines& lines, const StationResult& station) {
    lines.emplace_back();
    lines.push_back(fmt::format("  Station {}, {}", station.Name, Counted(station.Rounds, "round")));
    lines.emplace_back();
    lines.push_back(fmt::format("  {:<17}{:>5}{:>8}{:>13}{:>7}{:>8}{:>13}{:>7}{:>8}{:>13}{:>7}{:>8}",
                                "Target", "Sets", "1 face", "Direction", "s set", "s mean", "Zenith", "s set",
                                "s mean", "Distance", "s set", "s mean"));
    lines.push_back(fmt::format("  {:<17}{:>5}{:>8}{:>13}{:>7}{:>8}{:>13}{:>7}{:>8}{:>13}{:>7}{:>8}", "", "",
                                "", "gon", "mgon", "mgon", "gon", "mgon", "mgon", "m", "mm", "mm"));
    for (const TargetResult& target : station.Targets)
        lines.push_back(fmt::format("  {:<17}{:>5}{:>8}{}{}{}", target.Name, target.Sets.size(),
                                    target.SingleFaces, MeanColumns(target.Direction, 5, 13),
                                    MeanColumns(target.Zenith, 5, 13), MeanColumns(target.Distance, 5, 13)));
    lines.push_back(fmt::format("  {:<30}{:>13}{}{:>8}{:>13}{}{:>8}{:>13}{}", "All targets", "",
                                Fixed(InMilli(station.DirectionDeviation), 2, 7), "", "",
                                Fixed(InMilli(station.ZenithDeviation), 2, 7), "", "",
                                Fixed(InMilli(station.DistanceDeviation), 2, 7)));
}

void AddBothEnds(Lines& lines, const TotalResult& result) {
    if (result.Lines.empty())
        return;
    AddSection(lines, "Lines measured from both ends: forward less backward");
    lines.push_back(
        fmt::format("  {:<17}{:<17}{:>12}{:>13}{:>13}", "From", "To", "Distance", "Distance", "Height"));
    lines.push_back(fmt::format("  {:<17}{:<17}{:>12}{:>13}{:>13}", "", "", "m", "mm", "mm"));
    for (const BothEnds& line : result.Lines)
        lines.push_back(fmt::format("  {:<17}{:<17}{}{}{}", line.From, line.To, Fixed(line.Distance, 4, 12),
                                    Fixed(line.DistanceDifference * Milli, 2, 13),
                                    Fixed(line.HeightSum * Milli, 2, 13)));
}

void AddSummary(Lines& lines, const FieldBook& book, const TotalResult& result) {
    AddSection(lines, "Summary");
    long sights = 0;
    long unreadable = 0;
    for (const FileCount& file : book.Files) {
        sights += file.Sights;
        unreadable += file.Unreadable;
    }
    long targets = 0;
    for (const StationResult& station : result.Stations)
        targets += static_cast<long>(station.Targets.size());
    const auto counted = [](std::size_t count, const char* noun) {
        return Counted(static_cast<long>(count), noun);
    };
    lines.push_back(fmt::format("  {} on {}, {}, {}", counted(book.SetUps.size(), "set-up"),
                                counted(result.Stations.size(), "station"), Counted(sights, "sight"),
                                Counted(targets, "station-target pair")));
    lines.push_back(fmt::format("  {}, {}", counted(book.Warnings.size() + result.Warnings.size(), "warning"),
                                Counted(unreadable, "unreadable line")));
    lines.emplace_back();
    lines.push_back(fmt::format("  {:<34}{:>10}{:>10}", "Standard deviation of", "one set", "the mean"));
    const auto row = [&](const std::string& name, const BookSpread& spread, const std::string& unit) {
        lines.push_back(fmt::format("  {:<34}{}{}  {}", name, Fixed(InMilli(spread.Set), 3, 10),
                                    Fixed(InMilli(spread.Mean), 3, 10), unit));
    };
    row("a direction", result.Direction, "mgon");
    row("a zenith angle", result.Zenith, "mgon");
    row("a distance", result.Distance, "mm");
    if (result.Lines.empty())
        return;
    lines.emplace_back();
    lines.push_back(fmt::format("  From {} lines measured from both ends, centring and heights included:",
                                result.Lines.size()));
    lines.push_back(fmt::format("  {:<44}{}  mm", "a distance", Fixed(InMilli(result.LineDeviation), 3, 10)));
    lines.push_back(
        fmt::format("  {:<44}{}  mm", "a height difference", Fixed(InMilli(result.HeightDeviation), 3, 10)));
}

}  // namespace

Lines TotalProtocol(const TotalProtocolHead& head, const FieldBook& book, const TotalResult& result,
                    const Lines& errors) {
    Lines lines;
    AddHead(lines, head);
    AddErrors(lines, errors);
    AddFiles(lines, book);
    AddSetUps(lines, result);
    AddSection(lines, "Stations: means of all sets, and their spreads");
    lines.pop_back();
    for (const StationResult& station : result.Stations)
        AddStation(lines, station);
    AddBothEnds(lines, result);
    AddSummary(lines, book, result);
    AddRemarks(lines, book.Warnings, result.Warnings, book.Unreadable);
    return lines;
}

}  // namespace Dorvane
