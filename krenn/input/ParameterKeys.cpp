// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/ParameterKeys.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <type_traits>

#include "krenn/Scan.h"

namespace Krenn {
namespace {

constexpr std::array kSwitch{"OFF", "ON"};
constexpr std::array kTracker{"LEVELLED", "ROTATIONS"};
constexpr std::array kSetups{"STATION", "BLOCK", "SET"};
constexpr std::array kRefraction{"OFF", "GIVEN", "ESTIMATE"};
constexpr std::array kParts{"ADJUST", "REFUSE"};
constexpr std::array kDatum{"GIVEN", "ALL"};
constexpr std::array kTails{"1", "2"};
constexpr std::array kDeviations{"PRIORI", "POSTERIORI"};

template <auto Member>
double Get(const Parameters& parameters) {
    return static_cast<double>(parameters.*Member);
}

template <auto Member>
void Set(Parameters& parameters, double value) {
    parameters.*Member = static_cast<std::remove_cvref_t<decltype(parameters.*Member)>>(value);
}

template <auto Member>
constexpr ParameterKey OneOf(const char* group, const char* key, std::span<const char* const> words,
                             const char* meaning) {
    return {group, key, meaning, "", words, 0, 0, true, 1, Get<Member>, Set<Member>};
}

template <auto Member>
constexpr ParameterKey Whole(const char* group, const char* key, double lowest, double highest,
                             const char* meaning) {
    return {group, key, meaning, "", {}, lowest, highest, true, 1, Get<Member>, Set<Member>};
}

// `parts` turns the unit into that of the member. Dividing by a whole number keeps 10 ppm the same as 10e-6.
template <auto Member>
constexpr ParameterKey Number(const char* group, const char* key, const char* unit, double parts,
                              double lowest, double highest, const char* meaning) {
    return {group, key, meaning, unit, {}, lowest, highest, false, parts, Get<Member>, Set<Member>};
}

constexpr const char* kObservations = "Observations that take part";
constexpr const char* kModel = "Model";
constexpr const char* kDatumGroup = "Datum";
constexpr const char* kIterations = "Iterations";
constexpr const char* kTests = "Tests and deviations";
constexpr const char* kRelative = "Relative error ellipses";
constexpr const char* kComputer = "Computer";

using P = Parameters;

constexpr std::array kKeys{
    OneOf<&P::directions>(kObservations, "DIRECTIONS", kSwitch, "horizontal directions take part"),
    OneOf<&P::zenithAngles>(kObservations, "ZENITH_ANGLES", kSwitch, "zenith angles take part"),
    OneOf<&P::distances>(kObservations, "DISTANCES", kSwitch, "distances take part"),
    OneOf<&P::heightDifferences>(kObservations, "HEIGHT_DIFFERENCES", kSwitch,
                                 "height differences take part"),

    OneOf<&P::tracker>(kModel, "TRACKER", kTracker, "trackers stand levelled, or have three rotations"),
    OneOf<&P::setups>(kModel, "SETUPS", kSetups,
                      "a set-up is a whole station, a block of its rows, or a set in it"),
    OneOf<&P::scale>(kModel, "SCALE", kSwitch, "the scale of the distance meter is an unknown"),
    OneOf<&P::zeroPoint>(kModel, "ZERO_POINT", kSwitch, "the zero point of the distance meter is an unknown"),
    OneOf<&P::refraction>(kModel, "REFRACTION", kRefraction,
                          "refraction of zenith angles: none, by the coefficient below, or unknown"),
    Number<&P::refractionCoefficient>(kModel, "REFRACTION_COEFFICIENT", "", 1, -5, 5,
                                      "coefficient of refraction, or where its estimate starts"),
    OneOf<&P::curvature>(kModel, "CURVATURE", kSwitch, "the earth is a sphere of radius 6372508.025 m"),

    OneOf<&P::parts>(kDatumGroup, "PARTS", kParts,
                     "parts that nothing connects are adjusted side by side, or refused"),
    OneOf<&P::datum>(kDatumGroup, "DATUM", kDatum,
                     "inner constraints run over the points with given coordinates, or over all"),

    Whole<&P::mostIterations>(kIterations, "ITERATIONS", 1, 500, "iterations at most"),
    Number<&P::largestCorrection>(kIterations, "CONVERGENCE", "m", 1, 1e-8, 1e-3,
                                  "the iterations end when no coordinate moves by more"),

    Number<&P::confidence>(kTests, "CONFIDENCE", "%", 100, 50, 99.9, "level of the wide error ellipses"),
    Number<&P::globalRisk>(kTests, "GLOBAL_RISK", "%", 100, 0.01, 50,
                           "risk to refuse a good network by the test of m0"),
    OneOf<&P::globalTails>(kTests, "GLOBAL_TAILS", kTails,
                           "m0 is refused when it is too large (1), or too small as well (2)"),
    Number<&P::localRisk>(kTests, "LOCAL_RISK", "%", 100, 0.001, 50,
                          "risk to suspect a good observation by its residual"),
    OneOf<&P::localTails>(kTests, "LOCAL_TAILS", kTails,
                          "the sign of an error is known (1), or it is not (2)"),
    Number<&P::power>(kTests, "POWER", "%", 100, 50, 99.9,
                      "chance to find an error of the size that the reliability tells"),
    OneOf<&P::posteriori>(kTests, "DEVIATIONS", kDeviations,
                          "deviations from the standard errors alone, or scaled with m0"),
    Number<&P::correlationWarning>(kTests, "CORRELATION", "", 1, 0.5, 1,
                                   "unknowns that correlate by more are named"),

    Number<&P::allowedConstant>(kRelative, "ALLOWED_CONSTANT", "mm", 1000, 0.01, 1000,
                                "half axis that a relative ellipse may have"),
    Number<&P::allowedPerLength>(kRelative, "ALLOWED_PPM", "ppm", 1e6, 0, 1000,
                                 "and so much more by distance, mm per km"),

    Whole<&P::threads>(kComputer, "THREADS", 0, 256, "processors used, 0 for all; changes no result"),
};

// A value in the unit of the file.
std::string Digits(const ParameterKey& key, double member) {
    constexpr int kMostDecimals = 17;
    for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
        std::string digits = fmt::format("{:.{}f}", member * key.parts, decimals);
        const std::optional<double> back = FullNumber(digits);
        if (back && !(*back / key.parts < member) && !(*back / key.parts > member))
            return digits;
    }
    return fmt::format("{}", member * key.parts);
}

std::string Bound(double bound) {
    ParameterKey plain{};
    plain.parts = 1;
    return Digits(plain, bound);
}

std::string Allowed(const ParameterKey& key, std::string_view sentence) {
    return fmt::format("{}; {} takes {}.", sentence, key.key, ParameterAllowed(key));
}

// Changes of single characters, put in, taken out or replaced, that turn one text into the other.
// [Levenshtein]
std::size_t Changes(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t corner = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = corner + (from[i - 1] == to[j - 1] ? 0 : 1);
            corner = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row[to.size()];
}

std::string GroupText(const char* group) {
    const std::string title = fmt::format("; ---- {} ", group);
    return fmt::format("\r\n{}{}\r\n", title, std::string(78 - title.size(), '-'));
}

}  // namespace

std::span<const ParameterKey> ParameterKeys() {
    return kKeys;
}

const ParameterKey* FindParameterKey(std::string_view name) {
    const auto* found = std::find_if(kKeys.begin(), kKeys.end(),
                                     [&](const ParameterKey& key) { return SameText(key.key, name); });
    return found != kKeys.end() ? found : nullptr;
}

const ParameterKey* NearestParameterKey(std::string_view name) {
    constexpr std::size_t kLongest = 40;
    constexpr std::size_t kBeginning = 4;
    const std::string upper = UpperCase(Trimmed(name.substr(0, kLongest + 1)));
    if (upper.size() > kLongest)
        return nullptr;
    const ParameterKey* nearest = nullptr;
    std::size_t fewest = upper.size() / 3 + 1;
    for (const ParameterKey& key : kKeys) {
        const std::string_view known = key.key;
        const bool isBeginning = upper.size() >= kBeginning &&
                                 (known.starts_with(upper) || std::string_view(upper).starts_with(known));
        const std::size_t changes = isBeginning ? 1 : Changes(upper, known);
        if (changes < fewest) {
            fewest = changes;
            nearest = &key;
        }
    }
    return nearest;
}

std::string ParameterValue(const ParameterKey& key, const Parameters& parameters) {
    const double member = key.get(parameters);
    return key.words.empty() ? Digits(key, member) : key.words[static_cast<std::size_t>(member)];
}

std::string ParameterDefault(const ParameterKey& key) {
    return ParameterValue(key, Parameters{});
}

std::string ParameterAllowed(const ParameterKey& key) {
    if (key.words.empty())
        return fmt::format("{} to {}{}{}", Bound(key.lowest), Bound(key.highest), *key.unit == 0 ? "" : " ",
                           key.unit);
    std::string allowed;
    for (std::size_t i = 0; i < key.words.size(); ++i)
        allowed += std::string(i == 0 ? "" : i + 1 < key.words.size() ? ", " : " or ") + key.words[i];
    return allowed;
}

std::string SetParameter(const ParameterKey& key, std::string_view text, Parameters& parameters) {
    const std::string shown = fmt::format("\"{}\"", Printable(text, 30));
    if (text.empty())
        return Allowed(key, "There is no value");
    if (!key.words.empty()) {
        for (std::size_t i = 0; i < key.words.size(); ++i) {
            if (SameText(key.words[i], text)) {
                key.set(parameters, static_cast<double>(i));
                return "";
            }
        }
        return Allowed(key, shown + " is none of its words");
    }
    const std::optional<double> value = FullNumber(text);
    if (!value && text.find(',') != std::string_view::npos)
        return Allowed(key, shown + " is no number, its decimals stand behind a point");
    if (!value)
        return Allowed(key, shown + " is no number");
    if (*value < key.lowest || *value > key.highest)
        return Allowed(key, shown + " is out of range");
    if (key.isWhole && std::floor(*value) < *value)
        return Allowed(key, shown + " is no whole number");
    key.set(parameters, *value / key.parts);
    return "";
}

std::string DefaultParameterText() {
    std::size_t keyWidth = 0;
    std::size_t valueWidth = 0;
    for (const ParameterKey& key : kKeys) {
        keyWidth = std::max(keyWidth, std::string_view(key.key).size());
        valueWidth = std::max(valueWidth, ParameterDefault(key).size());
    }
    std::string text =
        "; Parameters of the adjustment.\r\n"
        "; Each line is KEY = value   ; comment. A key that is left out has its default.\r\n"
        "; A version of the input without a parameter file of its own uses that of the master.\r\n";
    const char* group = nullptr;
    for (const ParameterKey& key : kKeys) {
        if (group != key.group)
            text += GroupText(key.group);
        group = key.group;
        text += fmt::format("{:<{}} = {:<{}}   ; {} [{}, default {}]\r\n", key.key, keyWidth,
                            ParameterDefault(key), valueWidth, key.meaning, ParameterAllowed(key),
                            ParameterDefault(key));
    }
    return text;
}

std::vector<std::string> Differences(const Parameters& parameters) {
    std::vector<std::string> lines;
    for (const ParameterKey& key : kKeys) {
        const std::string value = ParameterValue(key, parameters);
        if (value != ParameterDefault(key))
            lines.push_back(fmt::format("{} = {}", key.key, value));
    }
    return lines;
}

}  // namespace Krenn
