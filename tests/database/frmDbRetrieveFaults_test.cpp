// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>

#include "tests/database/frmDbRetrieveTest.h"

namespace Dorvane::Testing {
namespace {

// What lies in the database or around it is damaged or gone.
class RetrievalFaults : public frmDbRetrieveTest {
  protected:
    void ExpectReported(const std::string& what, Answer answer = Answer::Ok) {
        Desk.ExpectMessageTitled("Program Error", answer);
        Click(*Opened, "cmdRetrieve");
        EXPECT_TRUE(Tells(Desk.Shown.back(), what)) << Desk.Shown.back().Text;
        EXPECT_EQ(TextOf(*Opened, "sbrRetrievePanel1"), "");
        ExpectOffer(*Opened, false);
        EXPECT_FALSE(IsShown(*Opened, "aniReduce"));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    void Chosen(const char* location = "NORTH") {
        Open();
        ClickNode(location);
        ClickOptions({"opt3dim", "optCurrent", "optMeters"});
    }
};

TEST_F(RetrievalFaults, ALocationWithoutADatabaseIsReported) {
    Chosen("SOUTH");
    ExpectReported("-frmDbRetrieve-cmdRetrieve_Click", Answer::Cancel);
}

TEST_F(RetrievalFaults, AMissingListIsReported) {
    Drives::DeleteFile(North + "3DIM.LST");
    Chosen();
    ExpectReported("Error : 53");
}

TEST_F(RetrievalFaults, ADamagedIndexIsReported) {
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    Chosen();
    ExpectReported("Error : 1101");
}

TEST_F(RetrievalFaults, ACutDataFileIsReported) {
    const std::string whole = FileContent(North + "3DIM.DAT");
    PutFile(North + "3DIM.DAT", whole.substr(0, whole.size() - 20));
    Chosen();
    ExpectReported("Error : 1101");
}

TEST_F(RetrievalFaults, ABinaryDatabaseIsReported) {
    for (const char* file : {"3DIM.DAT", "3DIM.IDX"})
        PutFile(North + file, std::string("\x00\xFF\x1A\r\x80", 5));
    Chosen();
    ExpectReported("Error : 1101");
}

TEST_F(RetrievalFaults, AFailureClearsTheWordsOfTheRetrievalBefore) {
    Retrieved();
    ClickOptions({"opt3dim"});
    Drives::DeleteFile(North + "3DIM.LST");
    ExpectReported("Error : 53");
}

TEST_F(RetrievalFaults, AFullDiskForTheResultIsReported) {
    OnSmallDisk(Temp, 64, [&] {
        Painted = false;
        Chosen();
        FillDisk(Temp);
        ExpectReported("Error : 61", Answer::No);
        Close();
    });
}

TEST_F(RetrievalFaults, AFolderWithoutPermissionIsReported) {
    AsNobody([&] {
        Painted = false;
        Chosen();
        ExpectReported("-frmDbRetrieve-cmdRetrieve_Click", Answer::Cancel);
        Close();
    });
}

TEST_F(RetrievalFaults, MissingFolderPicturesAreReportedAndTheScreenOpens) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\clsfolder.svg");
    Desk.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_TRUE(Tells(Desk.Shown[0], "-frmDbRetrieve-LoadForm"));
    EXPECT_EQ(Captions().size(), 6U);
}

}  // namespace
}  // namespace Dorvane::Testing
