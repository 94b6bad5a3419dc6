// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/PrintedListing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "krenn/input/InputReader.h"

namespace KrennTest {

using namespace Krenn;

Printed PrintNetwork(Network network, Type type, const Parameters& parameters) {
    Printed printed;
    printed.network = std::move(network);
    printed.adjustment = Adjust(printed.network, type, parameters);
    printed.statistics = Evaluate(printed.network, printed.adjustment, parameters);
    printed.text = GoodListing({"/data/A.INP", static_cast<int>(type), "2026-02-01 10:00:00"},
                               printed.network, printed.adjustment, printed.statistics);
    printed.read = ReadListingText(printed.text);
    return printed;
}

Printed Print(const std::string& text, Type type, const Parameters& parameters) {
    return PrintNetwork(ReadInput(text), type, parameters);
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0, end = 0; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(text.substr(at, end - at));
    return lines;
}

std::vector<std::string> SectionOf(const std::string& text, const std::string& title) {
    std::vector<std::string> section;
    for (const std::string& line : LinesOf(text)) {
        if (line.starts_with(title))
            section.clear();
        if (line.starts_with(title) || (!section.empty() && !section.back().empty()))
            section.push_back(line);
    }
    return section;
}

void ExpectRead(const Printed& printed) {
    EXPECT_EQ(printed.read.result, 1);
    const bool isHeights = printed.adjustment.structure.dimension == Dimension::Heights;
    std::size_t listed = 0;
    for (std::size_t p = 0; p < printed.network.points.size(); ++p) {
        const PointRole& role = printed.adjustment.structure.roles[p];
        const ReadPoint* read = printed.read.Find(printed.network.points[p].name);
        if (role.part < 0) {
            EXPECT_EQ(read, nullptr);
            continue;
        }
        ++listed;
        ASSERT_NE(read, nullptr) << printed.network.points[p].name;
        const auto& at = printed.adjustment.state.at[p];
        const auto& origin = printed.adjustment.state.origin;
        if (!isHeights && (role.planGroup >= 0 || printed.network.points[p].hasGiven)) {
            EXPECT_NEAR(read->x, at[0] + origin[0], 6e-7);
            EXPECT_NEAR(read->y, at[1] + origin[1], 6e-7);
        }
        EXPECT_NEAR(read->z, at[2] + origin[2], 6e-7);
        if (!isHeights && role.isStation) {
            const auto& structure = printed.adjustment.structure;
            const auto setup = static_cast<std::size_t>(structure.setupStart[p]);
            std::array<double, 3> rotations{};
            if (structure.setupStart[p] < structure.setupStart[p + 1])
                rotations = RotationsOf(printed.adjustment.state, structure.setups[setup], setup);
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_NEAR(std::remainder(read->rotation[i] - rotations[i] * 200 / std::acos(-1.0), 400), 0,
                            6e-6);
            EXPECT_GE(read->rotation[2], 0);
            EXPECT_LT(read->rotation[2], 400);
        }
        EXPECT_EQ(read->hasDeviation, printed.adjustment.hasCofactors);
        EXPECT_NEAR(read->sz, printed.statistics.deviation[p][2], 6e-7);
        if (!isHeights) {
            EXPECT_NEAR(read->sx, printed.statistics.deviation[p][0], 6e-7);
            EXPECT_NEAR(read->major, printed.statistics.ellipse[p].major, 6e-7);
            EXPECT_NEAR(read->minor, printed.statistics.ellipse[p].minor, 6e-7);
            EXPECT_NEAR(read->angle, printed.statistics.ellipse[p].bearing, 6e-4);
        }
    }
    EXPECT_EQ(printed.read.stations.size() + printed.read.points.size(), listed);
    const auto pairsOf = [&](Kind kind) {
        std::vector<ReadPair> pairs;
        for (const Measure& measure : printed.adjustment.structure.measures) {
            const Observation& o =
                printed.network.observations[static_cast<std::size_t>(measure.observation)];
            if (o.kind == kind)
                pairs.emplace_back(printed.network.points[static_cast<std::size_t>(o.from)].name,
                                   printed.network.points[static_cast<std::size_t>(o.to)].name);
        }
        return pairs;
    };
    EXPECT_EQ(printed.read.directions, pairsOf(Kind::Direction));
    EXPECT_EQ(printed.read.zeniths, pairsOf(Kind::ZenithAngle));
    EXPECT_EQ(printed.read.distances, pairsOf(Kind::Distance));
    EXPECT_EQ(printed.read.heights, pairsOf(Kind::HeightDifference));
}

// No word that a leading-number reader would take for something else, and every line ended alike.
}  // namespace KrennTest
