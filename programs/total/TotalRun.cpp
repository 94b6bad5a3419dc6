// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/TotalRun.h"

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

std::vector<std::string> RunTotalReduction() {
    const ReductionFiles files = ReadReductionFiles("TOTAL.PAR", 3);
    const std::string resultPath = files.Line(3);
    FieldBook book;
    std::vector<std::string> errors;
    ReadFieldFiles(files, book, errors);
    const TotalResult result = ReduceBook(book);
    const std::vector<std::string> lines = TotalResLines(result);
    WriteResult(resultPath, lines, errors);

    const TotalProtocolHead head{Host::Now(), files.Folder(), FileOf(files.Index()), FileOf(resultPath),
                                 static_cast<long>(lines.size())};
    WriteProtocol(ProtocolPath(resultPath), TotalProtocol(head, book, result, errors), errors);
    return errors;
}

}  // namespace Dorvane
