// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "krenn/Parameters.h"

namespace Krenn {

// A key of the parameter file. The one table of them drives reading, writing, checks, and what editors show.
struct ParameterKey {
    const char* group;  // the heading it stands under
    const char* key;    // upper case, no blanks
    const char* meaning;
    const char* unit;                    // of the value in the file; empty when it has none
    std::span<const char* const> words;  // the values allowed, in the order of the enum; empty for a number
    double lowest;                       // a number lies from here
    double highest;                      // to here
    bool isWhole;                        // a number without decimals
    double parts;                        // the member is the number in the file divided by this
    double (*get)(const Parameters&);    // the member as a number; an enum's place
    void (*set)(Parameters&, double);
};

// In the order of the file; those of one group stand together.
std::span<const ParameterKey> ParameterKeys();

// The key of this name, ignoring case; null when there is none.
const ParameterKey* FindParameterKey(std::string_view name);

// The key that a wrong name most likely means: all but a few characters alike, or one the beginning of the
// other. Null when none is near.
const ParameterKey* NearestParameterKey(std::string_view name);

// The value of a key as a file holds it: the word, or the number with as few decimals as read back the same.
std::string ParameterValue(const ParameterKey& key, const Parameters& parameters);

// The value of a key that stands in no file.
std::string ParameterDefault(const ParameterKey& key);

// What a key takes, in words, with the unit: "OFF or ON", "0.01 to 50 %".
std::string ParameterAllowed(const ParameterKey& key);

// Sets a key from the text of a file, words ignoring case. Empty, or what is wrong with the text, in a
// sentence that tells what is allowed; `parameters` are then unchanged.
std::string SetParameter(const ParameterKey& key, std::string_view text, Parameters& parameters);

// A whole parameter file with every key at its default, lines ended by CR LF.
std::string DefaultParameterText();

// The settings that are not the defaults, each as "KEY = value", in the order of the file.
std::vector<std::string> Differences(const Parameters& parameters);

}  // namespace Krenn
