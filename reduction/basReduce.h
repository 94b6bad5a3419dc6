// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"

// What one tab of the reduction screen shows of a survey folder. All of it is derived from the folder's
// files; no date is stored. Folders end in a backslash.
namespace Dorvane {

/// A state picture: a file name in the program's graphics folder and its tag.
struct StatePicture {
    std::string Picture = "X.ICO";  // "X.ICO", "Y.ICO" or "QUESTION.ICO"
    std::string Tag = "0";          // "0" none, "1" present, "2" results older than data

    bool operator==(const StatePicture&) const = default;
};

/// The reduction half of a tab.
struct ReductionState {
    StatePicture Picture;            // imgReduction
    List1<std::string> ResultFiles;  // lstReductionResults, upper case
    bool CanEdit = false;            // cmdEdit
    bool CanPrint = false;           // cmdPrint
};

/// Shows whether the folder holds data for an extension: a file of at least 1 byte whose last four characters
/// are the point and the extension, or whose last three are a number or occur in `extraExtension`. So any
/// file with a number there, also a two-digit extension with its point, passes as data of every tab. Reports
/// as "basReduce-DataIconSetup".
void DataIconSetup(const std::string& folder, const std::string& extension, const std::string& extraExtension,
                   StatePicture& imgData);

/// Shows whether the folder holds results, whether they are older than some data, and which there are. A
/// result is a file of at least 1 byte whose name occurs anywhere in `reduceList`; only the first one in the
/// listing is compared, with every file whose name contains the extension or ends in `extraExtension`.
/// Reports as "basReduce-ReduceIconSetup".
void ReduceIconSetup(const std::string& folder, ReductionState& state, const std::string& reduceList,
                     const std::string& extension, const std::string& extraExtension);

/// Adds the result files of a reduce list (its second word and on) that the folder holds with at least 1
/// byte, in the order of the list. Reports as "basReduce-SetupListBox".
void SetupListBox(const std::string& folder, const std::string& reduceList, List1<std::string>& resultFiles);

/// The checks before a reduction: finds or creates the survey index, fills one just created from the folder's
/// files, and says with a message when files of an extension that is to be indexed have none. True when the
/// reduction may go on. Reports as "basReduce-InitReduce".
bool InitReduce(const std::string& folder, std::string& surveyIndexName, const std::string& dataTypeName,
                const std::string& extension);

/// Lists every file of an extension in the survey index. Reports as "basReduce-PopulateSurveyIdxFile".
void PopulateSurveyIdxFile(const std::string& folder, const std::string& surveyIndexName,
                           const std::string& extension);

}  // namespace Dorvane
