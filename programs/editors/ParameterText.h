// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/input/ParameterKeys.h"
#include "programs/editors/EditedFile.h"

// A parameter file of the adjustment: lines "KEY = value   ; comment". All other lines are comments or what
// nobody knows; they stay byte for byte, and so does a line that is not changed.
namespace Dorvane {

struct ParameterLine {
    std::string Raw;  // as it stands in the file, with its line end; empty for a new entry
    bool IsEntry = false;
    std::string Key;      // as it stands
    std::string Value;    // without the blanks around it
    std::string Comment;  // without its ";" and the blanks around it
};

struct ParameterEdit {
    EditedFile File;
    std::vector<ParameterLine> Lines;
    std::string LineEnd = "\r\n";  // that of the file's first line
    std::string Master;            // name of the file whose lines it begins with; empty for those of its own
};

/// Reads a parameter file. One that is not there begins with the lines of its master's when it is that of a
/// version, else with those that the package writes. Raises what reading raises.
ParameterEdit OpenParameters(const std::string& path);

ParameterLine ParseParameterLine(const std::string& raw);

/// The file. What is changed in a line changes only there; what surrounds it stays.
std::string FormatParameters(const ParameterEdit& parameters);

/// Changes the entries of a file into those that are wanted, in their order. An entry bears the place of its
/// line (from 1), or a number beyond them when it is new; new ones stand behind the entry before them.
struct WantedParameter {
    int Place = 0;
    std::string Key;
    std::string Value;
    std::string Comment;
};
void ApplyParameters(ParameterEdit& parameters, const std::vector<WantedParameter>& wanted);

/// What is wrong with the entries that are new or changed, a sentence each: form, keys that the package does
/// not know, values that it does not take.
std::vector<std::string> ParameterProblems(const ParameterEdit& parameters);

/// What the package knows of a key: its meaning, what it takes, its default; or that it is none.
std::string DescribeParameter(const std::string& key);

/// The words that a key takes; none for a key that takes a number or is not known.
std::vector<std::string> ParameterWords(const std::string& key);

/// As for CHOICES.SYS.
std::string SaveParameters(ParameterEdit& parameters);

}  // namespace Dorvane
