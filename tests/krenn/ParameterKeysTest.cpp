// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/ParameterKeys.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "krenn/input/ParameterFile.h"

namespace {

using namespace Krenn;
using testing::ElementsAre;
using testing::HasSubstr;

// A value of the key that is allowed and not its default.
std::string Another(const ParameterKey& key) {
    for (const char* word : key.words) {
        if (word != ParameterDefault(key))
            return word;
    }
    return key.highest < 1 ? "0.0001" : key.highest < 60 ? "1" : "60";
}

TEST(ParameterKeys, SetEachMemberByAKeyOfItsOwn) {
    const Parameters defaults;
    // One name a member: a new member does not compile here before it has a key.
    [[maybe_unused]] const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t, u, v, w, x, y,
                                  z] = defaults;
    EXPECT_EQ(ParameterKeys().size(), 26u);
    for (const ParameterKey& key : ParameterKeys()) {
        Parameters changed;
        EXPECT_EQ(SetParameter(key, Another(key), changed), "");
        EXPECT_THAT(Differences(changed), ElementsAre(std::string(key.key) + " = " + Another(key)));
    }
}

TEST(ParameterKeys, LieInTheUnitsOfTheProgram) {
    const Parameters set = ParseParameters(
        "CONVERGENCE = 0.00002\nCONFIDENCE = 99\nLOCAL_RISK = 1\nALLOWED_CONSTANT = 3\nALLOWED_PPM = 2.5\n",
        "NET.PAR");
    EXPECT_EQ(set.largestCorrection, 2e-5);
    EXPECT_EQ(set.confidence, 0.99);
    EXPECT_EQ(set.localRisk, 0.01);
    EXPECT_EQ(set.allowedConstant, 0.003);
    EXPECT_EQ(set.allowedPerLength, 2.5e-6);
}

TEST(ParameterKeys, MeanTheMembersTheyName) {
    const Parameters set = ParseParameters(
        "DIRECTIONS = OFF\nZENITH_ANGLES = OFF\nDISTANCES = OFF\nHEIGHT_DIFFERENCES = OFF\n"
        "TRACKER = ROTATIONS\nSETUPS = SET\nSCALE = ON\nZERO_POINT = ON\nREFRACTION = ESTIMATE\n"
        "REFRACTION_COEFFICIENT = -0.2\nCURVATURE = ON\nPARTS = REFUSE\nDATUM = ALL\nITERATIONS = 7\n"
        "GLOBAL_RISK = 10\nGLOBAL_TAILS = 1\nLOCAL_TAILS = 1\nPOWER = 90\nDEVIATIONS = PRIORI\n"
        "CORRELATION = 0.9\nTHREADS = 2\n",
        "NET.PAR");
    EXPECT_FALSE(set.directions || set.zenithAngles || set.distances || set.heightDifferences);
    EXPECT_EQ(set.tracker, TrackerModel::Rotations);
    EXPECT_EQ(set.setups, SetupRule::Set);
    EXPECT_TRUE(set.scale && set.zeroPoint && set.curvature);
    EXPECT_EQ(set.refraction, RefractionModel::Estimated);
    EXPECT_EQ(set.refractionCoefficient, -0.2);
    EXPECT_EQ(set.parts, PartsRule::Refuse);
    EXPECT_EQ(set.datum, DatumRule::All);
    EXPECT_EQ(set.mostIterations, 7);
    EXPECT_EQ(set.globalRisk, 0.1);
    EXPECT_EQ(set.globalTails, Tails::One);
    EXPECT_EQ(set.localTails, Tails::One);
    EXPECT_EQ(set.power, 0.9);
    EXPECT_FALSE(set.posteriori);
    EXPECT_EQ(set.correlationWarning, 0.9);
    EXPECT_EQ(set.threads, 2);
    EXPECT_EQ(ParseParameters("SETUPS = BLOCK", "").setups, SetupRule::Block);
    EXPECT_EQ(ParseParameters("REFRACTION = GIVEN", "").refraction, RefractionModel::Given);
}

TEST(ParameterKeys, TakeTheEndsOfTheirRangesAndNothingBeyond) {
    for (const ParameterKey& key : ParameterKeys()) {
        Parameters parameters;
        for (const char* word : key.words)
            EXPECT_EQ(SetParameter(key, word, parameters), "");
        const std::string takes = std::string("; ") + key.key + " takes " + ParameterAllowed(key) + ".";
        EXPECT_EQ(SetParameter(key, "", parameters), "There is no value" + takes);
        if (!key.words.empty()) {
            EXPECT_EQ(SetParameter(key, "3 OF", parameters), "\"3 OF\" is none of its words" + takes);
            continue;
        }
        const auto digits = [](double value) { return fmt::format("{:.9f}", value); };
        EXPECT_EQ(SetParameter(key, digits(key.lowest), parameters), "");
        EXPECT_EQ(SetParameter(key, digits(key.highest), parameters), "");
        const Parameters before = parameters;
        for (const double beyond : {key.lowest - 1e-9, key.highest + 1e-9, -1e300, 1e300}) {
            EXPECT_THAT(SetParameter(key, digits(beyond), parameters),
                        testing::AllOf(HasSubstr("\" is out of range" + takes)))
                << key.key;
        }
        for (const char* word : {"ON", "1e999", "nan", "inf", "1 2", "0x10", "1e", "--1", "1.0m"})
            EXPECT_EQ(SetParameter(key, word, parameters), fmt::format("\"{}\" is no number{}", word, takes));
        EXPECT_EQ(SetParameter(key, "1,5", parameters),
                  "\"1,5\" is no number, its decimals stand behind a point" + takes);
        EXPECT_EQ(Differences(parameters), Differences(before));
    }
}

TEST(ParameterKeys, OfWholeNumbersTakeNoDecimals) {
    Parameters parameters;
    EXPECT_EQ(SetParameter(*FindParameterKey("ITERATIONS"), "10.5", parameters),
              "\"10.5\" is no whole number; ITERATIONS takes 1 to 500.");
    EXPECT_EQ(SetParameter(*FindParameterKey("ITERATIONS"), "1e2", parameters), "");
    EXPECT_EQ(parameters.mostIterations, 100);
}

TEST(ParameterKeys, TellWhatTheyTakeInWords) {
    const auto allowed = [](const char* key) { return ParameterAllowed(*FindParameterKey(key)); };
    EXPECT_EQ(allowed("DIRECTIONS"), "OFF or ON");
    EXPECT_EQ(allowed("refraction"), "OFF, GIVEN or ESTIMATE");
    EXPECT_EQ(allowed("CONVERGENCE"), "0.00000001 to 0.001 m");
    EXPECT_EQ(allowed("REFRACTION_COEFFICIENT"), "-5 to 5");
    EXPECT_EQ(allowed("ALLOWED_PPM"), "0 to 1000 ppm");
    EXPECT_EQ(FindParameterKey("REFRACT"), nullptr);
}

TEST(ParameterKeys, AreFoundNearAWrongName) {
    const auto nearest = [](const std::string& name) -> std::string {
        const ParameterKey* key = NearestParameterKey(name);
        return key == nullptr ? "" : key->key;
    };
    EXPECT_EQ(nearest("direction"), "DIRECTIONS");
    EXPECT_EQ(nearest("ZERO POINT"), "ZERO_POINT");
    EXPECT_EQ(nearest("ZENITH"), "ZENITH_ANGLES");
    EXPECT_EQ(nearest("CONFIDENCE_LEVEL"), "CONFIDENCE");
    EXPECT_EQ(nearest("DATM"), "DATUM");
    EXPECT_EQ(nearest("LOCAL_TIALS"), "LOCAL_TAILS");
    EXPECT_EQ(nearest("MAGIC"), "");
    EXPECT_EQ(nearest("POWRE"), "");
    EXPECT_EQ(nearest("S"), "");
    EXPECT_EQ(nearest(""), "");
    EXPECT_EQ(nearest(std::string(1000000, 'S')), "");
}

TEST(ParameterKeys, StandInTheManualWithDefaultAndRange) {
    std::ifstream file(KRENN_MANUAL);
    std::ostringstream manual;
    manual << file.rdbuf();
    for (const ParameterKey& key : ParameterKeys())
        EXPECT_THAT(manual.str(), HasSubstr(fmt::format("\n| `{}` | {} | {} | ", key.key,
                                                        ParameterDefault(key), ParameterAllowed(key))));
}

TEST(DefaultParameterText, IsAlignedAndTellsEachKey) {
    const std::string text = DefaultParameterText();
    EXPECT_TRUE(text.starts_with(
        "; Parameters of the adjustment.\r\n"
        "; Each line is KEY = value   ; comment. A key that is left out has its default.\r\n"
        "; A version of the input without a parameter file of its own uses that of the master.\r\n"
        "\r\n"
        "; ---- Observations that take part -------------------------------------------\r\n"
        "DIRECTIONS             = ON           ; horizontal directions take part [OFF or ON, default ON]\r\n"
        "ZENITH_ANGLES          = ON           ; zenith angles take part [OFF or ON, default ON]\r\n"));
    EXPECT_THAT(
        text,
        HasSubstr(
            "\r\n"
            "\r\n"
            "; ---- Iterations ------------------------------------------------------------\r\n"
            "ITERATIONS             = 50           ; iterations at most [1 to 500, default 50]\r\n"
            "CONVERGENCE            = 0.000001     ; the iterations end when no coordinate moves by more "
            "[0.00000001 to 0.001 m, default 0.000001]\r\n"
            "\r\n"
            "; ---- Tests and deviations --------------------------------------------------\r\n"
            "CONFIDENCE             = 95           ; level of the wide error ellipses [50 to 99.9 %, "
            "default 95]\r\n"));
    EXPECT_TRUE(text.ends_with(
        "\r\nTHREADS                = 0            ; processors used, 0 for all; changes no result [0 to "
        "256, default 0]\r\n"));
    for (const ParameterKey& key : ParameterKeys())
        EXPECT_THAT(text, HasSubstr(std::string("\r\n") + key.key + " "));
}

TEST(DefaultParameterText, ReadsBackAsTheDefaults) {
    const Parameters read = ParseParameters(DefaultParameterText(), "NET.PAR");
    const Parameters defaults;
    for (const ParameterKey& key : ParameterKeys())
        EXPECT_EQ(key.get(read), key.get(defaults)) << key.key;
}

}  // namespace
