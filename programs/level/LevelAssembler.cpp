// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <utility>

#include "programs/level/LevelBook.h"

namespace Dorvane {

double StaffMean::Mean() const {
    double sum = 0;
    for (const double reading : Readings)
        sum += reading;
    return sum / static_cast<double>(Readings.size());
}

LevelAssembler::LevelAssembler(LevelBook& book, const std::string& file, const StaffCorrection& correction)
    : Book(book), File(file), Correction(correction) {
    Open.File = file;
}

void LevelAssembler::Add(const StaffReading& reading) {
    if (reading.Kind == StaffSight::Inter) {
        if (!Present.HasBack && !Present.HasFore) {
            Warn(reading.Line, "an intersight to " + reading.Point + " in front of any backsight, left out");
            return;
        }
        Present.Inter.push_back(Start(reading));
        return;
    }
    const bool back = reading.Kind == StaffSight::Back;
    const bool complete = Present.HasBack && Present.HasFore;
    // A backsight to the point of a lone foresight stands on the next set-up: the one before has lost its
    // own.
    const bool next = back && !Present.HasBack && Present.HasFore && Present.Fore.Point == reading.Point;
    if (!reading.Second && (complete || next))
        CloseSetUp();
    StaffMean& mean = back ? Present.Back : Present.Fore;
    bool& has = back ? Present.HasBack : Present.HasFore;
    if (!reading.Second) {
        if (has)
            Warn(mean.Line, fmt::format("the {} to {} is replaced by that of line {}",
                                        back ? "backsight" : "foresight", mean.Point, reading.Line));
        mean = Start(reading);
        has = true;
    } else if (!has || mean.Point != reading.Point) {
        Warn(reading.Line, "a second reading to " + reading.Point + " without its first one, left out");
    } else {
        mean.Readings.push_back(Corrected(reading));
    }
}

StaffMean LevelAssembler::Start(const StaffReading& reading) {
    return {reading.Point, reading.TurningPoint, {Corrected(reading)}, reading.Distance, reading.Line};
}

double LevelAssembler::Corrected(const StaffReading& reading) {
    const bool inverted = Correction.Inverted.contains(reading.Point);
    double height = (inverted ? -reading.Reading : reading.Reading) * Correction.Scale;
    if (Correction.Collimation != 0) {
        if (reading.Distance)
            height -= Correction.Collimation * *reading.Distance;
        else if (!std::exchange(Uncorrected, true))
            Warn(reading.Line, "readings without a distance are not corrected for collimation");
    }
    return height;
}

void LevelAssembler::CloseSetUp() {
    LevelSetUp setUp = std::exchange(Present, {});
    if (!setUp.HasBack && !setUp.HasFore)
        return;
    if (!setUp.HasBack || !setUp.HasFore) {
        const StaffMean& only = setUp.HasBack ? setUp.Back : setUp.Fore;
        Warn(only.Line,
             fmt::format("a set-up with no {}, left out", setUp.HasBack ? "foresight" : "backsight"));
        CloseLine();
        return;
    }
    if (setUp.Back.Point == setUp.Fore.Point && setUp.Back.Point != "*") {
        Warn(setUp.Fore.Line,
             "backsight and foresight both to " + setUp.Fore.Point + ", the set-up is left out");
        CloseLine();
        return;
    }
    if (!Open.SetUps.empty() && Open.SetUps.back().Fore.Point != setUp.Back.Point) {
        Warn(setUp.Back.Line,
             fmt::format("backsight to {}, but the foresight before was to {}: a new line begins",
                         setUp.Back.Point, Open.SetUps.back().Fore.Point));
        CloseLine();
    }
    Open.SetUps.push_back(std::move(setUp));
}

void LevelAssembler::CloseLine() {
    const std::string name = Open.Name;
    if (!Open.SetUps.empty())
        Book.Lines.push_back(std::move(Open));
    Open = {};
    Open.File = File;
    Open.Name = name;
}

void LevelAssembler::BeginLine(const std::string& name) {
    End();
    Open.Name = name;
}

void LevelAssembler::End() {
    CloseSetUp();
    CloseLine();
}

void LevelAssembler::Warn(long line, const std::string& text) {
    Book.Warnings.push_back({File, line, text});
}

}  // namespace Dorvane
