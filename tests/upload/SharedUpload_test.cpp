// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "core/basGeneral.h"
#include "tests/support/Workstations.h"
#include "tests/upload/UploadSite.h"
#include "upload/basUpload.h"

// Two workstations that upload books of the same names into one folder: one of each is stored, its sender is
// the one who is told so, and the other keeps his.
namespace Dorvane::Testing {

namespace {

constexpr int Books = 40;

struct SharedUpload : UploadSite {
    SharedUpload() { DataTypeProfile({"[LEVEL]", "LEV_SrvIdx=TRUE"}); }

    static std::string Source(int workstation) { return "C:\\FIELD" + std::to_string(workstation) + "\\"; }
    static std::string Book(int i) { return "B" + std::to_string(i) + ".LEV"; }
    static std::string Told(int workstation) { return "C:\\TOLD" + std::to_string(workstation) + ".TXT"; }
};

/// Takes the message that a book exists already.
class RefusedDesktop : public ScriptedDesktop {
  public:
    Answer ShowMessage(const Message& message) override {
        EXPECT_EQ(message.Title, "File already exists") << message.Text;
        return Answer::Ok;
    }
};

}  // namespace

TEST_F(SharedUpload, StoresEachBookOfOneOfThem) {
    for (int number = 0; number < 2; ++number)
        for (int i = 0; i < Books; ++i)
            PutFile(Source(number) + Book(i), "of " + std::to_string(number));
    PutFile(To + Index, IndexHead);
    Together(2, [](int number) {
        RefusedDesktop desktop;
        for (int i = 0; i < Books; ++i)
            if (UploadFile(Source(number), To, Book(i), "3/7/2026", Index, 0, "LEVEL"))
                PutFile(Told(number) + std::to_string(i), "");
    });
    for (int i = 0; i < Books; ++i) {
        const std::string stored = FileContent(To + Book(i));
        for (int number = 0; number < 2; ++number) {
            const bool told = FileExists(Told(number) + std::to_string(i));
            EXPECT_EQ(told, stored == "of " + std::to_string(number)) << Book(i);
            EXPECT_EQ(FileExists(Source(number) + Book(i)), !told) << Book(i);
        }
    }
    EXPECT_EQ(FileLines(To + Index).size(), 2u + Books);
}

}  // namespace Dorvane::Testing
