// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "database/Update3D.h"
#include "tests/database/DatabaseSite.h"
#include "tests/support/Reports.h"

namespace Dorvane::Testing {

inline const std::string UpdateFile = "C:\\TARVEX\\TEMP\\DAM.DBS";
inline const std::string UpdateHeader = "11-20-26  SRV12     NET1";

inline std::string PointLine(const std::string& name, const std::string& x = "100.00000") {
    return name + " 0.0 0.0 0.0 " + x + " 200.00000 50.00000 12.3 0.00123 0.00045 0.00067";
}

/// A site with an update file of its own choice for NORTH.
class UpdateSite : public DatabaseSite {
  protected:
    UpdateSite() {
        Form.lblDirectory = "DATABASE\\DAM\\NORTH\\";
        Form.lblUpDateFile = UpdateFile;
        Form.opt3dim = true;
    }

    void ExpectTold(const std::string& text) const {
        ASSERT_FALSE(Desk.Shown.empty());
        EXPECT_NE(Desk.Shown.back().Text.find(text), std::string::npos) << Desk.Shown.back().Text;
    }

    UpdateForm Form;
};

}  // namespace Dorvane::Testing
