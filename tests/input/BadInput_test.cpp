// SPDX-License-Identifier: GPL-3.0-or-later
#include <random>

#include "input/CoordinateFiles.h"
#include "input/GatherData.h"
#include "input/ProjectFile.h"
#include "input/ResultFiles.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

using namespace std::string_literals;

// Gives up on whatever it is asked, and holds on to a file for every file dialog.
struct IndifferentDesktop : ScriptedDesktop {
    Answer ShowMessage(const Message&) override {
        ++Messages;
        return Answer::Cancel;
    }
    std::optional<std::string> AskFile(const FileDialog&) override { return File; }

    int Messages = 0;
    std::string File;
};

// Contents that no program should have written: cut, binary, endless, without line ends, almost right.
std::vector<std::string> BadContents() {
    std::vector<std::string> contents{"",
                                      "\r\n",
                                      "\n\n\n",
                                      "\x1A",
                                      std::string(3, '\0'),
                                      std::string(1000000, 'A'),
                                      std::string(1000000, ' '),
                                      std::string(1000000, '9') + "\r\n",
                                      "A B 1e400\r\n",
                                      "A B 1 2 3",
                                      "ST1\r\nP1\r\nQUIT\r\n",
                                      "ST1\r\nP1 1\r\n",
                                      "QUIT\r\nQUIT\r\n",
                                      "\r\nBIAS     x\r\nA 1 2",
                                      "\r\nBIAS\r\nA 1e308 1e308 1 2 3 4\r\n",
                                      "a b c\r\nA 0 0 0 1e999 1 1 1 1 1 1\r\n",
                                      "P\r\nT\r\n99999999\r\n\r\n",
                                      "P\r\nT\r\n2\r\n>\r\nEnd\r\n"};
    std::mt19937 random(20261120);
    const std::string alphabet = "AP1 2.,-\t\r\n\0\x1A>eEQUITBIAS\xE9\xFF"s;
    for (int i = 0; i < 200; ++i) {
        std::string content;
        const int length = static_cast<int>(random() % 400);
        for (int k = 0; k < length; ++k)
            content += i % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random() % 256);
        contents.push_back(content);
    }
    return contents;
}

class BadInput : public InputSite {
  protected:
    BadInput() { PutProfiles(); }

    IndifferentDesktop Indifferent;
};

TEST_F(BadInput, NoResultFileHarmsTheImport) {
    for (const std::string& content : BadContents()) {
        for (const char* name : {"TOTAL.RES", "REDIR.RES", "ZENITH.RES", "DIST.RES", "LEVEL.RES"})
            PutFile("D:\\SURVEY\\" + std::string(name), content);
        InputScreen screen = OpenScreen();
        AddTreeFolder(screen.trvInput, "Laser", "D:\\SURVEY\\");
        GatherData(screen, Services());
        screen = OpenScreen();
        AddTreeFolder(screen.trvInput, "Totalstation", "D:\\SURVEY\\");
        GatherData(screen, Services());
        screen = OpenScreen();
        AddTreeFolder(screen.trvInput, "Directions", "D:\\SURVEY\\");
        GatherData(screen, Services());
        EXPECT_EQ(FileContent("D:\\SURVEY\\TOTAL.RES"), content);
    }
    EXPECT_GT(Indifferent.Messages, 0);
}

TEST_F(BadInput, NoCoordinateFileHarmsItsReader) {
    for (const std::string& content : BadContents()) {
        PutFile("D:\\BAD.TXT", content);
        List1<ObsPoint> points;
        ReadGenFile(points, "D:\\", "BAD.TXT");
        ReadBddFile(points, "D:\\", "BAD.TXT");
        List1<Dbs3DPoint> records;
        std::string header[3];
        ReadDbs3DFile(records, "D:\\", "BAD.TXT", header[0], header[1], header[2]);
    }
    EXPECT_GT(Indifferent.Messages, 0);
}

TEST_F(BadInput, NoProjectFileHarmsTheScreen) {
    Indifferent.File = "D:\\BAD.GPF";
    InputScreen screen = OpenScreen();
    for (const std::string& content : BadContents()) {
        PutFile("D:\\BAD.GPF", content);
        OpenProject(screen, Services());
        EXPECT_GE(screen.icmbDimension, 1);
        EXPECT_LE(screen.icmbDimension, 3);
        EXPECT_EQ(screen.trvInput.Nodes()[0].Key, "Data Types");
    }
    EXPECT_GT(Indifferent.Messages, 0);
}

TEST_F(BadInput, NoProfileHarmsTheOpening) {
    for (const std::string& content : BadContents()) {
        PutFile("C:\\WINDOWS\\dv_input.ini", "[Tracker]\r\nNumber=1\r\n" + content);
        OpenScreen();
    }
}

}  // namespace
}  // namespace Dorvane::Testing
