// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReductionEnd.h"

#include <fmt/format.h>

#include "core/LineReader.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* LineEnd = "\r\n";

std::string Program(const ReduceTab& tab) {
    List1<std::string> tokens;
    return ParseFields(tokens, tab.ReduceList) > 0 ? tokens[1] : "The program";
}

// A file of another program may hold anything; a message shows text, and not more than a screen holds.
std::string Shown(std::string_view line) {
    constexpr int longest = 150;
    std::string text = Left(line, longest);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '.';
    return line.size() > static_cast<std::size_t>(longest) ? text + " ..." : text;
}

// The first lines of the error file, up to a blank one.
std::string FirstLines(const std::string& path) {
    constexpr int most = 10;
    std::string text;
    LineReader file(path);
    for (int count = 0; count < most && !file.AtEnd();) {
        const std::string_view line = file.ReadLine();
        if (!Trim(line).empty()) {
            text += Shown(line) + LineEnd;
            ++count;
        } else if (count > 0) {
            break;
        }
    }
    return text;
}

std::string Reasons(const ReduceState& state, const ReduceTab& tab) {
    if (!tab.TellsErrors)
        return "It tells no reason.  It was perhaps not started, or it broke off.";
    const std::string path = state.Folder + tab.ErrorFile;
    return FirstLines(path) + LineEnd + "All of it stands in " + path;
}

}  // namespace

std::string ReductionStatus(const ReduceTab& tab) {
    const std::string errors = tab.TellsErrors ? ", see " + tab.ErrorFile : "";
    if (tab.Run == LastRun::NoProgram)
        return "The reduction program is missing, the old results are deleted";
    if (tab.Reduction.Picture.Tag == "0") {
        if (tab.Run == LastRun::Stopped)
            return "The reduction was stopped before its program, there are no results";
        return tab.Run == LastRun::Ended || tab.TellsErrors ? "The last reduction left no results" + errors
                                                            : "Not reduced yet";
    }
    const int count = tab.Reduction.ResultFiles.Count();
    return fmt::format("{} result file{}, {}{}{}", count, count == 1 ? "" : "s",
                       tab.Reduction.Picture.Tag == "1" ? "up to date" : "older than the data",
                       tab.TellsErrors ? ", with errors" : "", errors);
}

void TellReductionEnd(const ReduceState& state, int tab) {
    Guarded("frmReduce-cmdReduce_Click", [&](Guard&) {
        const ReduceTab& own = state.Tabs[tab];
        if (own.Run != LastRun::Ended)
            return;
        const std::string blankLine = std::string(LineEnd) + LineEnd;
        if (own.Reduction.ResultFiles.Empty())
            ShowWarning(Program(own) + " has left no results in " + state.Folder + " ." + blankLine +
                            Reasons(state, own),
                        "No Reduction Results");
        else if (own.TellsErrors)
            ShowWarning(Program(own) + " has left results in " + state.Folder +
                            " , but it tells errors.  Read them before you use the results." + blankLine +
                            Reasons(state, own),
                        "Reduction Errors");
    });
}

}  // namespace Dorvane
