// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "programs/fieldbook/ProtocolText.h"

// What every reduction program does: it is started without an argument, finds its parameter file in the
// folder `Param_path` of dv_tarvex.ini, and takes its field files from the survey index that the parameter
// file names.
namespace Dorvane {

/// A reduction's parameter file: the survey folder (ends in a backslash), the survey index, and the lines
/// behind, numbered as in the file (Line(3) is the first result file).
struct ReductionFiles {
    std::vector<std::string> Lines;

    const std::string& Folder() const { return Lines[0]; }
    const std::string& Index() const { return Lines[1]; }
    /// A line of the file, from 1; empty behind its end.
    std::string Line(std::size_t number) const { return number <= Lines.size() ? Lines[number - 1] : ""; }
};

/// Reads a parameter file by its bare name. Raises 76 when `Param_path` is empty, what the reading raises,
/// and 62 when the file has fewer than `wanted` lines or one of them is empty.
ReductionFiles ReadReductionFiles(const std::string& name, std::size_t wanted);

/// The field files of the survey index with one of the extensions (upper case), in the order of the index,
/// each once however often it is listed: an appended file stands there several times and is still one book.
/// Raises 53 when there is no such index, 62 when it is cut short.
std::vector<std::string> ListFieldFiles(const ReductionFiles& files,
                                        const std::vector<std::string>& extensions);

/// The files beside a result file, with its name: the protocol (extension PRO) that tells how the result came
/// about, and the error file (extension ERR).
std::string ProtocolPath(const std::string& resultPath);
std::string ErrorPath(const std::string& resultPath);

/// What a run leaves. The system takes any file of its reduce list for a result, so a protocol stands there
/// only beside a result; a run without one leaves the error file alone, which that list does not name.
struct RunOutput {
    std::string ResultPath;
    std::string ProtocolPath;
    std::vector<std::string> Result;  // lines; none: there is no result
    std::vector<Remark> Unreadable;   // lines of the field files
    /// Makes the protocol with the errors so far.
    std::function<std::vector<std::string>(const std::vector<std::string>& errors)> Protocol;
};

/// Writes result and protocol. With errors it writes the error file too: first the errors and the first
/// unreadable lines, then a blank line, then the protocol, or where it stands. Without a result the errors
/// say so at least, and neither an old result nor an old protocol stays; without errors no old error file
/// does. What cannot be written or deleted is an error more.
void WriteRunOutput(const RunOutput& output, std::vector<std::string>& errors);

/// Runs a program's work. Its failures, and the errors that it returns, go to the standard error output, a
/// line each behind the program's name. The result is the exit code: 0 when there were none, else 1.
int RunProgram(const std::string& program, const std::function<std::vector<std::string>()>& work);

}  // namespace Dorvane
