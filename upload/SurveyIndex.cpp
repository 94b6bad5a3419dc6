// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/SurveyIndex.h"

#include <optional>

#include "core/ColumnLine.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

namespace {

std::string IndexNameFor(const std::string& folder) {
    const int start = InStr(folder, "SRV");
    if (start == 0)
        return "SRV.IDX";
    const int end = InStr(folder, "\\", start);
    return (end == 0 ? Mid(folder, start) : Mid(folder, start, end - start)) + ".IDX";
}

std::string OfferNewIndex(const std::string& folder, bool& created) {
    const Answer answer = TheDesktop().ShowMessage(
        {.Text = folder + " no SRV*.IDX file exists here.  Wish to create one and continue?",
         .Title = "Missing Survey Index File",
         .Choices = Buttons::YesNo});
    if (answer != Answer::Yes)
        return "";
    created = true;
    std::string name = IndexNameFor(folder);
    const FolderLock lock(folder);
    if (!Drives::IsFile(folder + name))
        WriteSrvNew(folder, name);
    return name;
}

// Only a folder that ends with the "SRV" part has an index of that name: the rest of the path is taken whole,
// which is meant, and a folder further down finds none.
std::string IndexNamedLikeFolder(const std::string& folder) {
    const int start = InStr(folder, "SRV");
    if (start == 0)
        return "";
    const std::string rest = Mid(folder, start);
    const std::string candidate = Left(rest, static_cast<int>(rest.size()) - 1) + ".IDX";
    return FileExists(folder + candidate) ? candidate : "";
}

}  // namespace

std::string GetSurveyIdxName(const std::string& folder, bool& created) {
    created = false;
    std::string name;
    Guarded("basUpload-GetSurveyIdxName", [&](Guard&) {
        List1<FileEntry> files;
        const std::int16_t count = GetFiles(files, folder, "SRV*.IDX");
        if (count == 1)
            name = files[1].Name;
        else if (count < 1)
            name = OfferNewIndex(folder, created);
        else
            name = IndexNamedLikeFolder(folder);
    });
    return name;
}

void WriteSrvNew(const std::string& folder, const std::string& surveyIndexName) {
    Guarded("basWrite-WriteSrvNew", [&](Guard& guard) {
        if (folder.size() < 3)
            throw RunTimeError(InvalidProcedureCall);
        const std::string path = folder.back() == '\\' ? folder.substr(0, folder.size() - 1) : folder;
        guard.Run([&] {
            LineWriter index(folder + surveyIndexName);
            index.Line(Mid(path, 3));
            index.Line(" ");
            index.Close();
        });
    });
}

std::string SurveyIndexLine(const std::string& baseName, const std::string& extension,
                            const std::string& description, const std::string& date) {
    return ColumnLine().At(1, baseName).At(10, extension).At(20, description).At(40, date).Text() + "\r\n";
}

bool UpdateSrvIdx(const std::string& folder, const std::string& surveyIndexName, const std::string& baseName,
                  const std::string& extension, const std::string& description, const std::string& date) {
    bool written = false;
    Guarded("basWrite-UpdateSrvIdx", [&](Guard& guard) {
        ColumnLine line;
        line.At(1, baseName).At(10, extension).At(20, description).At(40, date);
        written = guard.Run([&] {
            LineAppender index(folder + surveyIndexName);
            index.Line(line.Text());
            index.Close();
        });
    });
    return written;
}

std::int16_t ReadSurveyIdxFile(List1<SurveyIndexEntry>& entries, const std::string& folder,
                               const std::string& surveyIndexName) {
    entries.Clear();
    const std::string path = folder + surveyIndexName;
    if (!FileExists(path))
        return -1;
    const bool complete = Guarded("basRead-ReadSurveyIdxFile", [&](Guard& guard) {
        std::optional<LineReader> index;
        guard.Run([&] { index.emplace(path); });
        if (!index)
            return;
        guard.Run([&] { index->ReadLine(); });
        guard.Run([&] { index->ReadLine(); });
        while (!index->AtEnd()) {
            const std::string_view line = index->ReadLine();
            entries.Add({UpperCase(Trim(Left(line, 9))), UpperCase(Trim(Mid(line, 10, 4)))});
        }
    });
    if (!complete)
        entries.Clear();
    return entries.Count();
}

}  // namespace Dorvane
