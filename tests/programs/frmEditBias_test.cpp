// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditBias.h"
#include "tests/programs/EditStructuresTest.h"

namespace Dorvane::Testing {

TEST_F(EditStructures, EditsTheBiasValuesInTheirPlaces) {
    PutFile(Init + "BIAS.STR", "; first\r\nSTDBIAS  0 0 0 0\r\n; second\r\nNORTH    1 2 3 4\r\nSHORT 1\r\n");
    Show(new frmEditBias(Init));
    EXPECT_EQ(TextOf(*Form), "Edit Bias Values");
    EXPECT_EQ(Lines("tblBias"), (Texts{"STDBIAS|0|0|0|0", "NORTH|1|2|3|4"}));
    TypeInto("tblBias", 0, 4, "0.25");
    ChooseCell("tblBias", 1);
    Press("tblBias", "cmdAdd");
    Finish("tblBias", "south");
    Desktop.ExpectMessage("Edit Bias Values", "SOUTH has a value that is no number: \"\".");
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    for (int column = 1; column <= 4; ++column)
        TypeInto("tblBias", 2, column, std::to_string(column));
    ChooseCell("tblBias", 1);
    Press("tblBias", "cmdRemove");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "BIAS.STR"),
              "; first\r\nSTDBIAS  0 0 0 0.25\r\n; second\r\nSHORT 1\r\nSOUTH    1 2 3 4\r\n");
}

TEST_F(EditStructures, CannotSaveBiasValuesThatAreNoText) {
    PutFile(Init + "BIAS.STR", "STDBIAS 0 0 0 0\x01\r\n");
    Show(new frmEditBias(Init));
    EXPECT_FALSE(IsEnabled(*Form, "cmdOK"));
    EXPECT_TRUE(IsShown(*Form, "lblProblem"));
}

}  // namespace Dorvane::Testing
