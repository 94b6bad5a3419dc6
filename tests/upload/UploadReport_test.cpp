// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadReport.h"

#include <gtest/gtest.h>

namespace Dorvane {
namespace {

using Placing = UploadedFile::Placing;

UploadReport Report() {
    UploadReport report;
    report.Folder = "D:\\SRV1\\";
    report.IndexName = "SRV1.IDX";
    return report;
}

TEST(DescribeUpload, TellsWhatWasMadeAndWhere) {
    UploadReport report = Report();
    report.Count({Placing::Copied, true, true});
    report.Count({Placing::Copied, true, true}, true);
    report.Count({Placing::Appended, true, true});
    const UploadOutcome outcome = DescribeUpload(report);
    EXPECT_EQ(outcome.Short, "3 files uploaded");
    EXPECT_EQ(
        outcome.Long,
        "3 files uploaded to D:\\SRV1\\ : 2 copied, 1 appended to a file of that name.  3 listed in the "
        "index SRV1.IDX.  1 under a shorter name.");
}

TEST(DescribeUpload, TellsWhatWasNotMade) {
    UploadReport report = Report();
    report.Count({Placing::Copied, false, true});
    report.Count({Placing::Refused, false, false}, true);
    report.Count({Placing::Failed, false, false}, true);
    const UploadOutcome outcome = DescribeUpload(report);
    EXPECT_EQ(outcome.Short, "1 file uploaded, 1 refused, 1 failed");
    EXPECT_EQ(outcome.Long,
              "1 file uploaded to D:\\SRV1\\ : 1 copied.  Nothing is listed in the index.  Not uploaded: 1 "
              "refused, 1 "
              "failed.");
}

TEST(DescribeUpload, ClaimsNoSuccessWhereAllWereRefused) {
    UploadReport report = Report();
    report.Count({Placing::Refused, false, false});
    report.Count({Placing::Refused, false, false});
    const UploadOutcome outcome = DescribeUpload(report);
    EXPECT_EQ(outcome.Short, "Nothing uploaded, 2 refused");
    EXPECT_EQ(outcome.Long, "Nothing was uploaded to D:\\SRV1\\ : 2 refused.");
}

TEST(DescribeUpload, TellsARunThatDidNotBegin) {
    const UploadOutcome outcome = DescribeUpload({});
    EXPECT_EQ(outcome.Short, "Nothing uploaded");
    EXPECT_EQ(outcome.Long, "Nothing was uploaded.");
}

TEST(DescribeUpload, TellsThatTheIndexIsNew) {
    UploadReport report = Report();
    report.IndexIsNew = true;
    report.Count({Placing::Refused, false, false});
    EXPECT_EQ(DescribeUpload(report).Long,
              "Nothing was uploaded to D:\\SRV1\\ : 1 refused.  The index SRV1.IDX was made.");
    report.Count({Placing::Copied, false, true});
    EXPECT_EQ(DescribeUpload(report).Long,
              "1 file uploaded to D:\\SRV1\\ : 1 copied.  The index SRV1.IDX was made; nothing is listed in "
              "it.  Not "
              "uploaded: 1 refused.");
    report.Count({Placing::Copied, true, true});
    EXPECT_EQ(
        DescribeUpload(report).Long,
        "2 files uploaded to D:\\SRV1\\ : 2 copied.  1 listed in the new index SRV1.IDX.  Not uploaded: 1 "
        "refused.");
}

TEST(DescribeUpload, TellsFilesOfWhichALaterStepFailed) {
    UploadReport report = Report();
    report.Count({Placing::Copied, false, false});
    report.Count({Placing::Appended, true, false});
    EXPECT_EQ(DescribeUpload(report).Long,
              "2 files uploaded to D:\\SRV1\\ : 1 copied, 1 appended to a file of that name.  1 listed in "
              "the index "
              "SRV1.IDX.  2 not finished: index line, printing or renaming failed.");
}

TEST(DescribeDeletion, TellsWhatIsGoneAndWhatIsNot) {
    EXPECT_EQ(DescribeDeletion(1, 0, "C:\\FIELD\\").Long, "1 file deleted from C:\\FIELD\\.");
    EXPECT_EQ(DescribeDeletion(2, 1, "C:\\FIELD\\").Short, "2 files deleted, 1 could not be deleted");
    EXPECT_EQ(DescribeDeletion(0, 1, "C:\\FIELD\\").Long,
              "Nothing deleted from C:\\FIELD\\, 1 could not be deleted.");
}

}  // namespace
}  // namespace Dorvane
