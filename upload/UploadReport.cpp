// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadReport.h"

#include <fmt/format.h>

namespace Dorvane {

namespace {

std::string Files(int count) {
    return fmt::format("{} file{}", count, count == 1 ? "" : "s");
}

// "1 refused, 2 failed", those that there are.
std::string Listing(std::initializer_list<std::pair<int, const char*>> parts) {
    std::string text;
    for (const auto& [count, what] : parts)
        if (count > 0)
            text += fmt::format("{}{} {}", text.empty() ? "" : ", ", count, what);
    return text;
}

}  // namespace

void UploadReport::Count(const UploadedFile& file, bool shortened) {
    using Placing = UploadedFile::Placing;
    Refused += file.Placed == Placing::Refused ? 1 : 0;
    Failed += file.Placed == Placing::Failed ? 1 : 0;
    Copied += file.Placed == Placing::Copied ? 1 : 0;
    Appended += file.Placed == Placing::Appended ? 1 : 0;
    Listed += file.Listed ? 1 : 0;
    const bool placed = file.Placed == Placing::Copied || file.Placed == Placing::Appended;
    Shortened += placed && shortened ? 1 : 0;
    Unfinished += placed && !file.Finished ? 1 : 0;
}

UploadOutcome DescribeUpload(const UploadReport& report) {
    const std::string rest = Listing({{report.Refused, "refused"}, {report.Failed, "failed"}});
    const std::string andRest = rest.empty() ? "" : ", " + rest;
    const std::string index = report.IndexIsNew ? "the new index " : "the index ";
    UploadOutcome outcome;
    if (report.Placed() == 0) {
        outcome.Short = "Nothing uploaded" + andRest;
        outcome.Long = report.Folder.empty()
                           ? "Nothing was uploaded."
                           : "Nothing was uploaded to " + report.Folder + " : " + rest + ".";
        if (report.IndexIsNew)
            outcome.Long += "  The index " + report.IndexName + " was made.";
        return outcome;
    }
    outcome.Short = Files(report.Placed()) + " uploaded" + andRest;
    outcome.Long = fmt::format(
        "{} uploaded to {} : {}.", Files(report.Placed()), report.Folder,
        Listing({{report.Copied, "copied"}, {report.Appended, "appended to a file of that name"}}));
    outcome.Long +=
        report.Listed > 0   ? fmt::format("  {} listed in {}{}.", report.Listed, index, report.IndexName)
        : report.IndexIsNew ? "  The index " + report.IndexName + " was made; nothing is listed in it."
                            : "  Nothing is listed in the index.";
    if (report.Shortened > 0)
        outcome.Long += fmt::format("  {} under a shorter name.", report.Shortened);
    if (report.Unfinished > 0)
        outcome.Long +=
            fmt::format("  {} not finished: index line, printing or renaming failed.", report.Unfinished);
    if (!rest.empty())
        outcome.Long += "  Not uploaded: " + rest + ".";
    return outcome;
}

UploadOutcome DescribeDeletion(int deleted, int failed, const std::string& folder) {
    const std::string rest = failed > 0 ? fmt::format(", {} could not be deleted", failed) : "";
    const std::string done = (deleted == 0 ? "Nothing" : Files(deleted)) + " deleted";
    return {done + rest, done + " from " + folder + rest + "."};
}

}  // namespace Dorvane
