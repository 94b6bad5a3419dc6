// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "database/BackupRestore.h"
#include "database/Update3D.h"
#include "database/basDatabase.h"
#include "tests/faults/Steps.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string North = "D:\\TARVEX\\COORD\\NORTH\\";
const std::string UpdateFile = "C:\\TARVEX\\TEMP\\DAM.DBS";

std::string PointLine(const std::string& name, const std::string& x) {
    return name + " 0.0 0.0 0.0 " + x + " 200.00000 50.00000 12.3 0.00123 0.00045 0.00067";
}

// A database with a backup of its first state, and a file for its next update.
void PrepareDatabase() {
    MakeFolders(North);
    WriteCoordNew(North, "NORTH");
    PutLines(UpdateFile, {"11-18-26  SRV10     NET1", PointLine("P1", "1.0")});
    Update3DPoints(North, UpdateFile);
    MakeCoordBackups(North, 3);
    PutLines(UpdateFile, {"11-19-26  SRV11     NET1", PointLine("P1", "2.0"), PointLine("P2", "3.0")});
    Update3DPoints(North, UpdateFile);
    PutLines(UpdateFile, {"11-20-26  SRV12     NET1", PointLine("P1", "4.0"), PointLine("A3", "5.0"),
                          PointLine("P2", "6.0")});
}

bool Update(TellingDesktop&) {
    return Update3DPoints(North, UpdateFile).value_or(0) == 3;
}

UpdateForm Form() {
    UpdateForm form;
    form.lblDirectory = "DATABASE\\DAM\\NORTH\\";
    form.lblUpDateFile = UpdateFile;
    form.opt3dim = true;
    return form;
}

bool UpdateByClick(TellingDesktop& desktop) {
    ClickUpdate(Form(), {});
    return desktop.HasTold("Update Complete") && !desktop.HasTold("Program Error");
}

bool BackUp(TellingDesktop&) {
    return MakeCoordBackups(North, 3);
}

bool Restore(TellingDesktop& desktop) {
    ClickRestore(Form(), {});
    return desktop.HasTold("Restore Complete");
}

}  // namespace

const std::vector<Step> DatabaseSteps = {{"update", PrepareDatabase, Update},
                                         {"update click", PrepareDatabase, UpdateByClick},
                                         {"backup", PrepareDatabase, BackUp},
                                         {"restore", PrepareDatabase, Restore}};

}  // namespace Dorvane::Testing
