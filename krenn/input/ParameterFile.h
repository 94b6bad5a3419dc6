// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "krenn/Parameters.h"

namespace Krenn {

// The parameter file stands beside the input: `<base>.PAR`, <base> being what the listing is named after. A
// version `<base>_vNN` of an input, NN from 01 to 99, has its own and without it uses that of its master.

// The parameters of a text of lines "KEY = value   ; comment", ended by CR LF, LF or CR. Lines that are empty
// or begin with ";" say nothing; keys and words ignore case; a key that does not stand there has its default.
// Throws Failure BadParameterLine, UnknownParameter, BadParameterValue or RepeatedParameter, that of the
// first fault, with every faulty line and what is wrong with it. `name` is that of the file, for the message.
Parameters ParseParameters(std::string_view text, const std::string& name);

struct FoundParameters {
    Parameters parameters;
    std::string file;  // for the head of the listing: the path, and how it came to be used
};

// The parameters of a run. Where neither the input nor its master has a parameter file, that of the master is
// written with the defaults; one that cannot be written is told in `file` and changes nothing else. Throws
// Failure ParametersNotReadable for a file that is there and cannot be read, and what ParseParameters throws.
FoundParameters ParametersBeside(const std::string& inputPath);

}  // namespace Krenn
