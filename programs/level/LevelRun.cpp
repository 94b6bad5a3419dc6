// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/level/LevelRun.h"

#include "core/Host.h"
#include "core/LineReader.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/fieldbook/ReductionFiles.h"
#include "programs/level/LevelProtocol.h"

namespace Dorvane {

namespace {

/// Calls `entry` with the words of each line that has any; an absent file has none.
template <class Entry>
void ReadEntries(const std::string& path, std::vector<std::string>& errors, const Entry& entry) {
    if (!FileExists(path))
        return;
    try {
        LineReader reader(path);
        while (!reader.AtEnd()) {
            const std::string_view line = reader.ReadLine();
            List1<std::string> words;
            if (ParseFields(words, line.substr(0, line.find(';'))) > 0)
                entry(words);
        }
    } catch (const RunTimeError& error) {
        errors.push_back("the file " + path + " cannot be read: " + error.Description);
    }
}

void ReadValue(const std::string& path, const std::string& keyword, double& value,
               std::vector<std::string>& errors) {
    ReadEntries(path, errors, [&](const List1<std::string>& words) {
        if (words[1] != keyword)
            return;
        if (words.Count() >= 2 && IsNumeric(words[2]))
            value = StrictNumber(words[2]);
        else
            errors.push_back("no number behind " + keyword + " in " + path);
    });
}

void ReadFieldFiles(const ReductionFiles& files, const StaffCorrection& correction, LevelBook& book,
                    std::vector<std::string>& errors) {
    std::vector<std::string> names;
    try {
        names = ListFieldFiles(files, {"LEV", "GSI"});
        if (names.empty())
            errors.push_back("the survey index " + files.Index() + " lists no LEV or GSI file");
    } catch (const RunTimeError& error) {
        errors.push_back("the survey index " + files.Index() + " cannot be read: " + error.Description);
    }
    for (const std::string& name : names) {
        try {
            LineReader reader(name);
            (name.ends_with(".GSI") ? ReadGsiLevelBook : ReadPlainLevelBook)(book, FileOf(name), reader,
                                                                             correction);
        } catch (const RunTimeError& error) {
            errors.push_back("the field file " + name + " cannot be read: " + error.Description);
        }
    }
}

}  // namespace

StaffCorrection ReadStaffCorrection(const std::string& collimationPath, const std::string& staffPath,
                                    const std::string& invertedPath, std::vector<std::string>& errors) {
    StaffCorrection correction;
    double collimation = 0;
    ReadValue(collimationPath, "COLLIMATION", collimation, errors);
    correction.Collimation = collimation / Milli;
    ReadValue(staffPath, "SCALE", correction.Scale, errors);
    ReadEntries(invertedPath, errors,
                [&](const List1<std::string>& words) { correction.Inverted.insert(words[1]); });
    return correction;
}

std::vector<std::string> RunLevelReduction() {
    const ReductionFiles files = ReadReductionFiles("LEVEL.PAR", 4);
    std::vector<std::string> errors;
    const StaffCorrection correction =
        ReadStaffCorrection(files.Line(7), files.Line(8), files.Line(5), errors);
    LevelBook book;
    ReadFieldFiles(files, correction, book, errors);
    const LevelResult result = ReduceLevelBook(book);

    RunOutput output{files.Line(3), files.Line(4), LevelResLines(result), book.Unreadable, {}};
    const LevelProtocolHead head{Host::Now(), files.Folder(), FileOf(files.Index()), FileOf(files.Line(3)),
                                 static_cast<long>(output.Result.size())};
    output.Protocol = [&](const std::vector<std::string>& told) {
        return LevelProtocol(head, correction, book, result, told);
    };
    WriteRunOutput(output, errors);
    return errors;
}

}  // namespace Dorvane
