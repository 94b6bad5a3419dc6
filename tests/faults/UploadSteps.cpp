// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "reduction/ParamFile.h"
#include "tests/faults/Steps.h"
#include "tests/support/TestSite.h"
#include "upload/basUpload.h"

namespace Dorvane::Testing {

namespace {

const std::string From = "C:\\FIELD\\";
const std::string To = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\";
const std::string Index = "SRV12.IDX";

void PrepareFolders() {
    PutLines("C:\\WINDOWS\\dv_datatype.ini",
             {"[LEVEL]", "LEV_SrvIdx=TRUE", "DAT_SrvIdx=TRUE", "DAT_Append=TRUE"});
    PutLines(To + Index,
             {"\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12", " ", "DAY0     LEV       DAY0                3/6/2026"});
    PutLines(To + "DAY0.LEV", {"day 0"});
    PutLines(From + "DAY1.LEV", {"day 1", "1 2 3"});
    PutLines(From + "DAY1.DAT", {"more of day 1"});
    PutLines(To + "DAY1.DAT", {"day 1 so far"});
}

bool Upload(TellingDesktop&) {
    return UploadFile(From, To, "DAY1.LEV", "3/7/2026", Index, 0, "LEVEL");
}

bool UploadMore(TellingDesktop&) {
    return UploadFile(From, To, "DAY1.DAT", "3/7/2026", Index, 0, "LEVEL");
}

bool Append(TellingDesktop&) {
    return AppendDataFile(From, To, "DAY1.DAT");
}

void PrepareReduction() {
    PrepareFolders();
    PutLines("C:\\TARVEX\\PARAM\\RUN.PAR", {"of the run before"});
}

bool WriteParameters(TellingDesktop&) {
    return WriteParamFile(To, {"LEVEL", "RUN.PAR", "P3", "P4"}, {"RED.EXE", "R2.RES", "R3.RES"}, Index,
                          "STAFF", "E2026");
}

}  // namespace

const std::vector<Step> UploadSteps = {{"upload", PrepareFolders, Upload},
                                       {"upload more", PrepareFolders, UploadMore},
                                       {"append", PrepareFolders, Append},
                                       {"parameters", PrepareReduction, WriteParameters}};

}  // namespace Dorvane::Testing
