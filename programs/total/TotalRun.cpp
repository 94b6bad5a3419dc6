// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/TotalRun.h"

#include <algorithm>

#include "core/Host.h"
#include "core/LineReader.h"
#include "core/RunTimeError.h"
#include "programs/fieldbook/ReductionFiles.h"
#include "programs/total/TotalProtocol.h"

namespace Dorvane {

namespace {

void ReadFieldFiles(const ReductionFiles& files, FieldBook& book, std::vector<std::string>& errors) {
    std::vector<std::string> names;
    try {
        names = ListFieldFiles(files, {"GSI"});
        if (names.empty())
            errors.push_back("the survey index " + files.Index() + " lists no GSI file");
    } catch (const RunTimeError& error) {
        errors.push_back("the survey index " + files.Index() + " cannot be read: " + error.Description);
    }
    for (const std::string& name : names) {
        try {
            LineReader reader(name);
            ReadGsiBook(book, FileOf(name), reader);
        } catch (const RunTimeError& error) {
            errors.push_back("the field file " + name + " cannot be read: " + error.Description);
        }
    }
}

}  // namespace

std::vector<std::string> RunBookReduction(const BookProgram& program) {
    const ReductionFiles files =
        ReadReductionFiles(program.ParameterFile, std::max(program.ResultLine, program.ProtocolLine));
    const std::string resultPath = files.Line(program.ResultLine);
    const std::string protocolPath =
        program.ProtocolLine == 0 ? ProtocolPath(resultPath) : files.Line(program.ProtocolLine);
    FieldBook book;
    std::vector<std::string> errors;
    ReadFieldFiles(files, book, errors);
    const TotalResult result = ReduceBook(book, program.Kind);

    RunOutput output{resultPath, protocolPath, ResultLines(result, program.Kind), book.Unreadable, {}};
    const TotalProtocolHead head{program.Title,      Host::Now(),
                                 files.Folder(),     FileOf(files.Index()),
                                 FileOf(resultPath), static_cast<long>(output.Result.size())};
    output.Protocol = [&](const std::vector<std::string>& told) {
        return TotalProtocol(head, book, result, told);
    };
    WriteRunOutput(output, errors);
    return errors;
}

}  // namespace Dorvane
