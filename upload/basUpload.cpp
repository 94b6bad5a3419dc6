// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/basUpload.h"

#include <fmt/format.h>

#include <set>

#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

bool ListInIndex(const std::string& toPath, const std::string& fileName, const std::string& fileDate,
                 const std::string& surveyIndexName) {
    const int point = InStr(fileName, ".");
    if (point == 0)
        throw RunTimeError(InvalidProcedureCall);
    const std::string base = Left(fileName, point - 1);
    return UpdateSrvIdx(toPath, surveyIndexName, base, Mid(fileName, point + 1), base, fileDate);
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
        const std::string target = job.ToPath + job.TargetName;
        const bool targetExists = FileExists(target);
        const bool mayExtend = keys.Append && job.TargetName == job.FileName;
        if (targetExists && !mayExtend) {
            file.Placed = UploadedFile::Placing::Refused;
            ShowWarning("File " + job.TargetName + " already exists in " + job.ToPath + " .  Can not upload",
                        "File already exists");
            return;
        }
        const std::string source = job.FromPath + job.FileName;
        const bool placed = targetExists ? AppendDataFile(job.FromPath, job.ToPath, job.TargetName)
                                         : guard.Run([&] { Drives::CopyFile(source, target); });
        if (!placed)
            return;
        file.Placed = targetExists ? UploadedFile::Placing::Appended : UploadedFile::Placing::Copied;
        if (keys.InSurveyIndex) {
            file.Listed = ListInIndex(job.ToPath, job.TargetName, job.FileDate, job.SurveyIndexName);
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
            LineReader source(fromPath + fileName);
            LineAppender target(toPath + fileName, AppendTo::LastLine);
            while (!source.AtEnd())
                target.Line(source.ReadLine());
            target.Close();
        });
    });
    return appended;
}

}  // namespace Dorvane
