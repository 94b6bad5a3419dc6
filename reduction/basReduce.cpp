// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/basReduce.h"

#include <algorithm>

#include "core/DateText.h"
#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"
#include "upload/DataTypes.h"
#include "upload/Messages.h"
#include "upload/SurveyIndex.h"

namespace Dorvane {

namespace {

const StatePicture None{"X.ICO", "0"};
const StatePicture Present{"Y.ICO", "1"};
const StatePicture Outdated{"QUESTION.ICO", "2"};

bool IsData(const std::string& name, const std::string& extension, const std::string& extraExtension) {
    const std::string right3 = Right(name, 3);
    return Right(name, 4) == "." + extension || IsNumeric(right3) || Contains(extraExtension, right3);
}

bool IsComparedData(const std::string& name, const std::string& extension,
                    const std::string& extraExtension) {
    return ContainsIgnoringCase(name, extension) || ContainsIgnoringCase(extraExtension, Right(name, 3));
}

}  // namespace

void DataIconSetup(const std::string& folder, const std::string& extension, const std::string& extraExtension,
                   StatePicture& imgData) {
    Guarded("basReduce-DataIconSetup", [&](Guard&) {
        List1<FileEntry> files;
        GetFiles(files, folder, "*.*");
        const bool found = std::any_of(files.begin(), files.end(), [&](const FileEntry& file) {
            return file.Size >= 1 && IsData(file.Name, extension, extraExtension);
        });
        imgData = found ? Present : None;
    });
}

void ReduceIconSetup(const std::string& folder, ReductionState& state, const std::string& reduceList,
                     const std::string& extension, const std::string& extraExtension) {
    Guarded("basReduce-ReduceIconSetup", [&](Guard&) {
        List1<FileEntry> files;
        GetFiles(files, folder, "*.*");
        // The program's own name in the list counts too when such a file lies in the folder, which is meant.
        const auto result = std::find_if(files.begin(), files.end(), [&](const FileEntry& file) {
            return file.Size >= 1 && ContainsIgnoringCase(reduceList, file.Name);
        });
        if (result == files.end()) {
            state = {};
            return;
        }
        const bool stale = std::any_of(files.begin(), files.end(), [&](const FileEntry& file) {
            return IsComparedData(file.Name, extension, extraExtension) &&
                   IsNewer(result->Date, result->Time, file.Date, file.Time);
        });
        state.Picture = stale ? Outdated : Present;
        state.CanEdit = true;
        state.CanPrint = true;  // whether there is a printer or not, which is meant
        state.ResultFiles.Clear();
        SetupListBox(folder, reduceList, state.ResultFiles);
    });
}

void SetupListBox(const std::string& folder, const std::string& reduceList, List1<std::string>& resultFiles) {
    Guarded("basReduce-SetupListBox", [&](Guard&) {
        List1<std::string> tokens;
        ParseFields(tokens, reduceList);
        for (int i = 2; i <= tokens.Count(); ++i) {
            const std::string path = folder + tokens[i];
            if (FileExists(path) && Drives::FileLength(path) >= 1)
                resultFiles.Add(tokens[i]);
        }
    });
}

bool InitReduce(const std::string& folder, std::string& surveyIndexName, const std::string& dataTypeName,
                const std::string& extension) {
    bool goesOn = false;
    Guarded("basReduce-InitReduce", [&](Guard&) {
        bool created = false;
        surveyIndexName = GetSurveyIdxName(folder, created);
        const bool indexed = ReadUploadKeys(dataTypeName, extension).InSurveyIndex;
        if (created && indexed)
            PopulateSurveyIdxFile(folder, surveyIndexName, extension);
        List1<SurveyIndexEntry> entries;
        const std::int16_t count = ReadSurveyIdxFile(entries, folder, surveyIndexName);
        if (indexed && count == 0)
            ShowWarning("No files exist in " + surveyIndexName + " file.  Cannot continue", "No Files Exist");
        else if (indexed && count == -1)
            ShowWarning(surveyIndexName + " file does not exist.  Cannot continue", "File Does Not Exist");
        else
            goesOn = true;
    });
    return goesOn;
}

void PopulateSurveyIdxFile(const std::string& folder, const std::string& surveyIndexName,
                           const std::string& extension) {
    Guarded("basReduce-PopulateSurveyIdxFile", [&](Guard&) {
        List1<FileEntry> files;
        GetFiles(files, folder, "*." + extension);
        for (const FileEntry& file : files) {
            const std::string base = BeforeFirstPoint(file.Name);
            UpdateSrvIdx(folder, surveyIndexName, base, extension, base, file.Date);
        }
    });
}

}  // namespace Dorvane
