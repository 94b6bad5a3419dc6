// SPDX-License-Identifier: GPL-3.0-or-later
// Whole adjustments of small networks. The bytes choose points, rows and settings, mostly well formed and
// true to a layout of points in space, now and then false, doubled or in nobody's columns.
#include <algorithm>
#include <array>
#include <cmath>

#include "krenn/input/ParameterKeys.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/Target.h"
#include "tests/krenn/Square.h"

using namespace Dorvane::Fuzz;
using namespace KrennTest;

namespace {

constexpr std::array<Place, 10> Layout{{{0, 0, 0},
                                        {100, 3, 2},
                                        {95, 104, 5},
                                        {-4, 98, -3},
                                        {50, 52, 1},
                                        {150, 50, 40},
                                        {48, -60, 4},
                                        {100, 3, 12},     // above the second
                                        {200, 6, 4},      // in line with the first two
                                        {0, 0.002, 0}}};  // beside the first
const std::array<std::string, 10> Names{"A", "B", "C", "D", "E", "F", "G", "ABOVE", "INLINE", "LONGPOINT"};
constexpr std::array Sigmas{0.001, 0.0005, 0.01, 0.1, 0.00001, 1.0};
constexpr std::array Sizes{1.0, 1.0, 1.0, 0.01, 1000.0};
constexpr std::array Types{Krenn::Type::SparseInverse, Krenn::Type::Sparse, Krenn::Type::Dense,
                           Krenn::Type::L1Norm};
constexpr std::size_t MostRows = 60;

struct Site {
    unsigned points;
    double size;
    InputText text;

    Place At(unsigned i) const {
        Place place = Layout[i];
        for (double& coordinate : place)
            coordinate *= size;
        return place;
    }
};

void TakePoint(Site& site, Choices& choices, unsigned i) {
    const unsigned how = choices.Byte();
    const auto& place = site.At(i);
    // Given roughly, and now and then falsely.
    const double error = (how & 0x40) != 0 ? (how & 0x80) != 0 ? 50 : 0.1 : 0;
    auto& list = (how & 1) != 0 ? site.text.stations : site.text.points;
    if ((how & 2) != 0)
        list.push_back(InputText::Named(Names[i]));
    else
        list.push_back(InputText::Given(Names[i], place[0] + error, place[1], place[2] - error));
    if ((how & 0x0C) == 0x0C)
        site.text.fixed.push_back(Names[i]);
}

// Mostly of the size of the standard error, now and then gross.
double Error(Choices& choices, double sigma) {
    const unsigned byte = choices.Byte();
    return (static_cast<double>(byte) / 64 - 2) * sigma * (byte > 250 ? 100 : 1);
}

double Gons(double angle) {
    const double gons = std::remainder(angle, 400);
    return gons < 0 ? gons + 400 : gons;
}

void TakeDistance(Site& site, Choices& choices, unsigned from, unsigned to, double sigma, bool isTracker) {
    const double length = SlopeLength(site.At(from), site.At(to)) + Error(choices, sigma);
    site.text.Distance(Names[from], Names[to], std::max(length, 0.0), sigma, isTracker);
}

void TakeAngles(Site& site, Choices& choices, unsigned from, unsigned to, double sigma, bool hasZenith) {
    const double direction = AzimuthGons(site.At(from), site.At(to)) - 50 * from + Error(choices, sigma);
    const double zenith = ZenithGons(site.At(from), site.At(to)) + Error(choices, sigma);
    site.text.Angles(Names[from], Names[to], Gons(direction), hasZenith ? std::clamp(zenith, 0.0, 199.9) : 0,
                     sigma);
}

// All that a station sees of the points behind it in the list, or of all.
void TakeSetUp(Site& site, Choices& choices, unsigned from) {
    const unsigned what = choices.Byte();
    const double sigma = choices.OneOf(Sigmas);
    for (unsigned to = (what & 1) != 0 ? 0 : from + 1; to < site.points; ++to) {
        if (to == from)
            continue;
        TakeAngles(site, choices, from, to, sigma, (what & 6) != 0);
        if ((what & 8) != 0)
            TakeDistance(site, choices, from, to, sigma, (what & 0x30) == 0x30);
    }
}

void TakeRow(Site& site, Choices& choices) {
    const unsigned kind = choices.Below(10);
    const unsigned from = choices.Below(site.points);
    unsigned to = choices.Below(site.points);
    if (from == to && !choices.Rarely(200))
        to = (to + 1) % site.points;
    const double sigma = choices.OneOf(Sigmas);
    if (kind < 2)
        TakeDistance(site, choices, from, to, sigma, choices.Rarely(4));
    else if (kind < 3)
        site.text.Height(Names[from], Names[to], site.At(to)[2] - site.At(from)[2] + Error(choices, sigma),
                         sigma);
    else if (kind < 4 && from != to)
        site.text.pairs.push_back(Names[from] + "   " + Names[to]);
    else if (kind < 7)
        TakeAngles(site, choices, from, to, sigma, !choices.Rarely(4));
    else
        TakeSetUp(site, choices, from);
}

std::string Settings(Choices& choices) {
    std::string text;
    for (unsigned count = choices.Below(4); count > 0; --count) {
        const Krenn::ParameterKey& key = choices.OneOf(Krenn::ParameterKeys());
        const unsigned value = choices.Byte();
        text += std::string(key.key) + " = ";
        if (!key.words.empty())
            text += key.words[value % key.words.size()];
        else if (key.isWhole)
            text += std::to_string(static_cast<long>(key.lowest) + value % 4);
        else
            text += fmt::format("{:.6f}", key.lowest + (key.highest - key.lowest) * value / 255);
        text += "\r\n";
    }
    return text;
}

// A piece of the text is doubled, taken out or made of other characters.
void Spoil(std::string& text, Choices& choices) {
    const std::size_t place = (choices.Byte() * 256 + choices.Byte()) % text.size();
    switch (choices.Below(3)) {
        case 0: text.insert(place, text.substr(place, choices.Below(80))); break;
        case 1: text.erase(place, choices.Below(20)); break;
        default: text.replace(place, 1, choices.Bytes(1)); break;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Choices choices(data, size);
    const Krenn::Type type = choices.OneOf(Types);
    const std::string settings = Settings(choices);
    const bool spoilt = choices.Rarely(16);
    Site site{2 + choices.Below(Names.size() - 1), choices.OneOf(Sizes), {}};
    for (unsigned i = 0; i < site.points; ++i)
        TakePoint(site, choices, i);
    for (std::size_t rows = 0; rows < MostRows && !choices.AtEnd(); ++rows)
        TakeRow(site, choices);
    std::string text = site.text.Text();
    if (spoilt)
        Spoil(text, choices);
    const std::optional<Krenn::Network> network = ReadNetwork(text);
    EditAndCheck(text, network, 3);
    const std::optional<Krenn::Parameters> parameters = ReadParameterText(settings);
    if (network && parameters)
        AdjustAndCheck(*network, type, *parameters);
    return 0;
}
