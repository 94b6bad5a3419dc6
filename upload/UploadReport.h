// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// What became of one file.
struct UploadedFile {
    enum class Placing { Refused, Failed, Copied, Appended } Placed = Placing::Failed;
    bool Listed = false;    // in the survey index
    bool Finished = false;  // printed where that was asked for, and its source renamed
};

/// What became of a run over several files.
struct UploadReport {
    std::string Folder;     // of the survey; empty while no file was taken up
    std::string IndexName;  // of its index
    bool IndexIsNew = false;
    int Copied = 0;
    int Appended = 0;
    int Shortened = 0;  // of the placed ones, those under a shorter name
    int Listed = 0;
    int Refused = 0;
    int Failed = 0;      // not placed, which was reported
    int Unfinished = 0;  // placed, but a step behind failed, which was reported

    int Placed() const { return Copied + Appended; }
    void Count(const UploadedFile& file, bool shortened = false);
};

/// What an operator is told of a run or of a deletion: the short text stands in the status bar.
struct UploadOutcome {
    std::string Short;
    std::string Long;
};

/// Says what was made and where: only what happened.
UploadOutcome DescribeUpload(const UploadReport& report);

/// The same of the deletion of uploaded sources in a folder.
UploadOutcome DescribeDeletion(int deleted, int failed, const std::string& folder);

}  // namespace Dorvane
