// SPDX-License-Identifier: GPL-3.0-or-later
// Whole adjustments of small networks. The bytes choose points, rows and settings, mostly well formed and
// true to a layout of points in space, now and then false, doubled or in nobody's columns.
#include <array>

#include "krenn/input/ParameterKeys.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/Target.h"
#include "tests/krenn/Square.h"

using namespace Dorvane::Fuzz;
using namespace KrennTest;

namespace {

constexpr std::array<Place, 10> Places10{{{0, 0, 0},
                                          {100, 3, 2},
                                          {95, 104, 5},
                                          {-4, 98, -3},
                                          {50, 52, 1},
                                          {150, 50, 40},
                                          {48, -60, 4},
                                          {100, 3, 12},     // above the second
                                          {200, 6, 4},      // in line with the first two
                                          {0, 0.002, 0}}};  // beside the first
const std::array<std::string, 10> Names{"A", "B", "C", "D", "E", "F", "G", "ABOVE", "INLINE", "LONGPOINT9"};
constexpr std::array Sigmas{0.001, 0.0005, 0.01, 0.1, 0.00001, 10.0};
constexpr std::array Sizes{1.0, 1.0, 1.0, 0.01, 1000.0};
constexpr std::array Types{Krenn::Type::SparseInverse, Krenn::Type::Sparse, Krenn::Type::Dense,
                           Krenn::Type::L1Norm};
constexpr std::size_t MostRows = 60;

struct Site {
    unsigned points;
    double size;
    InputText text;

    Place At(unsigned i) const {
        Place place = Places10[i];
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

double Error(Choices& choices, double sigma) {
    const double part = choices.Part();
    return choices.Rarely(16) ? 1000 * part * sigma : 2 * part * sigma;
}

void TakeRow(Site& site, Choices& choices) {
    const unsigned kind = choices.Below(8);
    const unsigned from = choices.Below(site.points);
    unsigned to = choices.Below(site.points);
    if (from == to && !choices.Rarely(32))
        to = (to + 1) % site.points;
    const double sigma = choices.OneOf(Sigmas);
    const double error = Error(choices, sigma);
    const Place a = site.At(from);
    const Place b = site.At(to);
    if (kind < 2)
        site.text.Distance(Names[from], Names[to], SlopeLength(a, b) + error, sigma, choices.Rarely(4));
    else if (kind < 3)
        site.text.Height(Names[from], Names[to], b[2] - a[2] + error, sigma);
    else if (kind < 4)
        site.text.pairs.push_back(Names[from] + "   " + Names[to]);
    else
        site.text.Angles(Names[from], Names[to], AzimuthGons(a, b) + error,
                         choices.Rarely(4) ? 0 : ZenithGons(a, b) + error / 2, sigma);
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
    const bool spoilt = choices.Rarely(8);
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
