// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/basUpload.h"

#include <fmt/format.h>

#include <set>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/ReplaceFiles.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

std::string LinesOf(const std::string& path) {
    std::string lines;
    LineReader source(path);
    while (!source.AtEnd())
        lines.append(source.ReadLine()).append("\r\n");
    return lines;
}

std::string IndexWith(const UploadJob& job) {
    const int point = InStr(job.TargetName, ".");
    if (point == 0)
        throw RunTimeError(InvalidProcedureCall);
    const std::string base = Left(job.TargetName, point - 1);
    return WithLines(Drives::ReadFileIfThere(job.ToPath + job.SurveyIndexName),
                     SurveyIndexLine(base, Mid(job.TargetName, point + 1), base, job.FileDate));
}

// The target and its index line.
std::vector<FileChange> ChangesOf(const UploadJob& job, bool extends) {
    const std::string source = job.FromPath + job.FileName;
    const std::string target = job.ToPath + job.TargetName;
    std::vector<FileChange> changes;
    if (extends)
        changes.push_back({target, WithLines(Drives::ReadFile(target), LinesOf(source), AppendTo::LastLine)});
    else
        changes.push_back({target, Drives::ReadFile(source), source});
    changes.push_back({job.ToPath + job.SurveyIndexName, IndexWith(job)});
    return changes;
}

void TellExistingTarget(const UploadJob& job) {
    ShowWarning("File " + job.TargetName + " already exists in " + job.ToPath + " .  Can not upload",
                "File already exists");
}

bool MayExtend(const UploadJob& job, const UploadKeys& keys) {
    return keys.Append && job.TargetName == job.FileName;
}

// Places the file and its index line in one change, so that whatever ends the program leaves both or neither.
// Where that cannot be done nothing is: the single steps tell which of them fails, and leave what is done.
UploadedFile PlaceListed(const UploadJob& job, const UploadKeys& keys) {
    UploadedFile file;
    const bool exists = Drives::IsFile(job.ToPath + job.TargetName);
    if (!keys.InSurveyIndex || (exists && !MayExtend(job, keys)))
        return file;
    try {
        ReplaceInOrder(ChangesOf(job, exists));
        file.Placed = exists ? UploadedFile::Placing::Appended : UploadedFile::Placing::Copied;
        file.Listed = true;
    } catch (const RunTimeError&) {
    }
    return file;
}

bool ListInIndex(const UploadJob& job) {
    const int point = InStr(job.TargetName, ".");
    if (point == 0)
        throw RunTimeError(InvalidProcedureCall);
    const std::string base = Left(job.TargetName, point - 1);
    return UpdateSrvIdx(job.ToPath, job.SurveyIndexName, base, Mid(job.TargetName, point + 1), base,
                        job.FileDate);
}

// Holds the target folder as long as it looks and writes, and not while the operator reads a message.
UploadedFile Place(const UploadJob& job, const UploadKeys& keys, Guard& guard) {
    using Placing = UploadedFile::Placing;
    UploadedFile file;
    bool exists = false;
    const bool looked = guard.Run([&] {
        const FolderLock lock(job.ToPath);
        file = PlaceListed(job, keys);
        exists = file.Placed == Placing::Failed && Drives::IsFile(job.ToPath + job.TargetName);
        if (file.Placed != Placing::Failed || exists)
            return;
        Drives::CopyFile(job.FromPath + job.FileName, job.ToPath + job.TargetName);
        file.Placed = Placing::Copied;
    });
    if (looked && exists && !MayExtend(job, keys))
        file.Placed = Placing::Refused;
    else if (looked && exists && AppendDataFile(job.FromPath, job.ToPath, job.TargetName))
        file.Placed = Placing::Appended;
    return file;
}

bool PrintUploaded(const std::string& printProgram, const std::string& fromPath, const std::string& toPath,
                   const std::string& fileName, const std::string& targetName) {
    if (printProgram == "GENERIC") {
        // The heading thus shows the file's name twice, which is meant: what is shown ends with the name
        // itself.
        return PrintGenFile(fromPath, fileName, toPath + targetName) == 1;
    }
    RunAndWait(AppPath() + "Programs\\" + printProgram + " " + toPath + targetName);
    return true;
}

std::set<std::string> NamesIn(const std::string& folder, const std::string& pattern) {
    std::set<std::string> names;
    for (const Drives::Entry& entry : Drives::List(folder, pattern))
        names.insert(UpperCase(entry.Name));
    return names;
}

}  // namespace

UploadedFile UploadOneFile(const UploadJob& job) {
    UploadedFile file;
    Guarded("basUpload-UploadFile", [&](Guard& guard) {
        const UploadKeys keys = ReadUploadKeys(job.DataTypeName, BehindFirstPoint(job.FileName));
        file = Place(job, keys, guard);
        if (file.Placed == UploadedFile::Placing::Refused)
            TellExistingTarget(job);
        if (file.Placed != UploadedFile::Placing::Copied && file.Placed != UploadedFile::Placing::Appended)
            return;
        if (keys.InSurveyIndex && !file.Listed) {
            file.Listed = ListInIndex(job);
            if (!file.Listed)
                return;
        }
        if (job.Print && !keys.PrintProgram.empty() &&
            !PrintUploaded(keys.PrintProgram, job.FromPath, job.ToPath, job.FileName, job.TargetName))
            return;
        file.Finished = UploadRename(job.FromPath, job.FileName);
    });
    return file;
}

bool UploadFile(const std::string& fromPath, const std::string& toPath, const std::string& fileName,
                const std::string& fileDate, const std::string& surveyIndexName, std::int16_t printFlag,
                const std::string& dataTypeName) {
    return UploadOneFile({fromPath, toPath, fileName, fileName, fileDate, surveyIndexName, printFlag == 1,
                          dataTypeName})
        .Finished;
}

bool UploadRename(const std::string& fromPath, const std::string& fileName) {
    return Guarded("basUpload-UploadRename", [&](Guard& guard) {
        const FolderLock lock(fromPath);
        const std::string base = Left(fileName, InStr(fileName, "."));
        const std::set<std::string> taken = NamesIn(fromPath, base + "*");
        for (int n = 999; n >= 1; --n) {
            const std::string candidate = fmt::format("{}{:03}", base, n);
            if (taken.contains(UpperCase(candidate)))
                continue;
            guard.Run([&] { Drives::RenameFile(fromPath + fileName, fromPath + candidate); });
            return;
        }
    });
}

bool AppendDataFile(const std::string& fromPath, const std::string& toPath, const std::string& fileName) {
    bool appended = false;
    Guarded("basUpload-AppendDataFile", [&](Guard& guard) {
        appended = guard.Run([&] {
            const FolderLock lock(toPath);
            const std::string target = toPath + fileName;
            const std::string former = Drives::ReadFileIfThere(target);
            Drives::WriteFile(target, WithLines(former, LinesOf(fromPath + fileName), AppendTo::LastLine));
        });
    });
    return appended;
}

}  // namespace Dorvane
