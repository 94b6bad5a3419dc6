// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

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

/// The file beside a result file that tells how it came about: its name with the extension PRO.
std::string ProtocolPath(const std::string& resultPath);

/// Writes a result file. Without any line there is none: an old one of that name goes too, so that nothing
/// false stands beside the protocol, and the errors tell it unless they have told a reason.
void WriteResult(const std::string& path, const std::vector<std::string>& lines,
                 std::vector<std::string>& errors);

/// Writes a protocol; that it could not be written is an error more.
void WriteProtocol(const std::string& path, const std::vector<std::string>& lines,
                   std::vector<std::string>& errors);

/// Runs a program's work. Its failures, and the errors that it returns, go to the standard error output, a
/// line each behind the program's name. The result is the exit code: 0 when there were none, else 1.
int RunProgram(const std::string& program, const std::function<std::vector<std::string>()>& work);

}  // namespace Dorvane
