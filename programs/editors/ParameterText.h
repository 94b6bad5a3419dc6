// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"
#include "programs/editors/KnownParameters.h"

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
};

/// Reads a parameter file. One that is not there begins with a heading of comments. Raises what reading
/// raises.
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

/// What is wrong with the entries that are new or changed, a sentence each.
std::vector<std::string> ParameterProblems(const ParameterEdit& parameters,
                                           const std::vector<KnownParameter>& known);

/// The known key of a name, ignoring case; null when there is none.
const KnownParameter* FindParameter(const std::vector<KnownParameter>& known, const std::string& key);

/// The meaning, the default and the range of a key, in a sentence.
std::string DescribeParameter(const KnownParameter& parameter);

/// As for CHOICES.SYS.
std::string SaveParameters(ParameterEdit& parameters);

}  // namespace Dorvane
