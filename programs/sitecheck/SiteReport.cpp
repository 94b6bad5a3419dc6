// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteReport.h"

#include "core/Drives.h"

namespace Dorvane {

bool LookAt(SiteReport& report, const std::string& path) {
    if (report.Left)
        return false;
    ++report.Looked;
    report.Left = report.Looking && !report.Looking(path);
    return !report.Left;
}

bool IsFolder(const std::string& path) {
    Drives::Entry entry;
    return Drives::Find(path, entry) && entry.IsFolder;
}

std::string LineOf(const Finding& finding) {
    const std::string place =
        finding.Line == 0 ? finding.File : finding.File + ", line " + std::to_string(finding.Line);
    return place + ": " + finding.What;
}

std::string MendText(Mend how) {
    switch (how) {
        case Mend::None: return "";
        case Mend::DropLines: return "Take the line out";
        case Mend::MakeFolder: return "Make the folder";
        case Mend::Register: return "Register the folder";
        case Mend::EnterHistory: return "Enter it into the history";
        case Mend::MakeIndex: return "Make the index";
        case Mend::EnterBook: return "Enter the book";
        case Mend::MakeDatabaseFiles: return "Make what is missing";
        case Mend::RebuildDatabase: return "Rebuild from the records";
        case Mend::RebuildReference: return "Rebuild from the records";
        case Mend::AddBias: return "Add a line of zeros";
        case Mend::FinishChange: return "Finish the change";
    }
    return "";
}

}  // namespace Dorvane
