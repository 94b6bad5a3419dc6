// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/fieldbook/ReductionFiles.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/SurveyIndex.h"

namespace Dorvane {

namespace {

void PrintError(const std::string& program, const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", program.c_str(), Utf8FromText(text).c_str());
}

void WriteLines(const std::string& path, const std::vector<std::string>& lines) {
    LineWriter writer(path);
    for (const std::string& line : lines)
        writer.Line(line);
    writer.Close();
}

std::string Beside(const std::string& resultPath, const std::string& extension) {
    std::string folder;
    std::string file;
    SplitFolderFile(resultPath, folder, file);
    return folder + BeforeFirstPoint(file) + extension;
}

bool TryToWrite(const std::string& what, const std::string& path, const std::vector<std::string>& lines,
                std::vector<std::string>& errors) {
    try {
        WriteLines(path, lines);
        return true;
    } catch (const RunTimeError& error) {
        errors.push_back("the " + what + " " + path + " cannot be written: " + error.Description);
        return false;
    }
}

void DeleteOld(const std::string& path, std::vector<std::string>& errors) {
    try {
        if (FileExists(path))
            Drives::DeleteFile(path);
    } catch (const RunTimeError& error) {
        errors.push_back("the old file " + path + " cannot be deleted: " + error.Description);
    }
}

// False when there is no result; an old one goes then, so that it does not pass for new.
bool WriteResult(const RunOutput& output, std::vector<std::string>& errors) {
    if (output.Result.empty() && errors.empty())
        errors.push_back("nothing could be reduced, there is no result");
    if (!output.Result.empty() && TryToWrite("result file", output.ResultPath, output.Result, errors))
        return true;
    DeleteOld(output.ResultPath, errors);
    return false;
}

std::vector<std::string> ErrorFile(const RunOutput& output, bool hasResult,
                                   const std::vector<std::string>& errors) {
    constexpr std::size_t mostLines = 5;
    std::vector<std::string> lines = errors;
    const std::size_t named = std::min(output.Unreadable.size(), mostLines);
    const auto first = output.Unreadable.begin();
    for (const std::string& line : RemarkLines({first, first + static_cast<std::ptrdiff_t>(named)}))
        lines.push_back(Trim(line));
    if (named < output.Unreadable.size())
        lines.push_back("and " + Counted(static_cast<long>(output.Unreadable.size() - named), "line") +
                        " more that cannot be read");
    lines.emplace_back();
    if (hasResult) {
        lines.push_back("The protocol is " + output.ProtocolPath);
        return lines;
    }
    const std::vector<std::string> protocol = output.Protocol(errors);
    lines.insert(lines.end(), protocol.begin(), protocol.end());
    return lines;
}

}  // namespace

ReductionFiles ReadReductionFiles(const std::string& name, std::size_t wanted) {
    std::string folder = IniReadString("dv_tarvex.ini", "Tarvex Info", "Param_path");
    if (!FolderExists(folder))
        throw RunTimeError(PathNotFound, "Param_path of dv_tarvex.ini: " + folder);
    ReductionFiles files;
    LineReader reader(folder + name);
    while (!reader.AtEnd())
        files.Lines.push_back(Trim(reader.ReadLine()));
    const bool whole =
        files.Lines.size() >= wanted &&
        std::none_of(files.Lines.begin(), files.Lines.begin() + static_cast<std::ptrdiff_t>(wanted),
                     [](const std::string& line) { return line.empty(); });
    if (!whole)
        throw RunTimeError(InputPastEnd, folder + name);
    return files;
}

std::vector<std::string> ListFieldFiles(const ReductionFiles& files,
                                        const std::vector<std::string>& extensions) {
    // The index reader tells its failures to the operator's desktop, which an outside program has not: what
    // can fail there is tried here first, and raised.
    LineReader header(files.Index());
    header.ReadLine();
    header.ReadLine();
    std::string folder;
    std::string indexName;
    SplitFolderFile(files.Index(), folder, indexName);
    List1<SurveyIndexEntry> entries;
    ReadSurveyIdxFile(entries, folder, indexName);

    std::vector<std::string> names;
    for (const SurveyIndexEntry& entry : entries) {
        const std::string name = files.Folder() + entry.Name + "." + entry.Extension;
        const bool wanted =
            std::find(extensions.begin(), extensions.end(), entry.Extension) != extensions.end();
        if (wanted && std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    }
    return names;
}

std::string ProtocolPath(const std::string& resultPath) {
    return Beside(resultPath, ".PRO");
}

std::string ErrorPath(const std::string& resultPath) {
    return Beside(resultPath, ".ERR");
}

void WriteRunOutput(const RunOutput& output, std::vector<std::string>& errors) {
    const std::string errorPath = ErrorPath(output.ResultPath);
    DeleteOld(errorPath, errors);
    const bool hasResult = WriteResult(output, errors);
    if (hasResult)
        TryToWrite("protocol", output.ProtocolPath, output.Protocol(errors), errors);
    else
        DeleteOld(output.ProtocolPath, errors);
    if (!errors.empty())
        TryToWrite("error file", errorPath, ErrorFile(output, hasResult, errors), errors);
}

int RunProgram(const std::string& program, const std::function<std::vector<std::string>()>& work) {
    try {
        const std::vector<std::string> errors = work();
        for (const std::string& error : errors)
            PrintError(program, error);
        return errors.empty() ? 0 : 1;
    } catch (const std::exception& error) {
        PrintError(program, error.what());
        return 1;
    }
}

}  // namespace Dorvane
