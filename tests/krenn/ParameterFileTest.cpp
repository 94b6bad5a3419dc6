// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/ParameterFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>

#include "krenn/Errors.h"
#include "krenn/Run.h"
#include "krenn/input/ParameterKeys.h"
#include "tests/krenn/TempFolder.h"

namespace {

using namespace Krenn;
using KrennTest::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The number, the cause and the details of what a text raises, a line each.
std::string Raised(std::string_view text) {
    try {
        ParseParameters(text, "NET.PAR");
        return "";
    } catch (const Failure& failure) {
        std::string told = std::to_string(static_cast<int>(failure.number)) + " " + failure.what();
        for (const std::string& detail : failure.details)
            told += "\n" + detail;
        return told;
    }
}

std::vector<std::string> SetBy(std::string_view text) {
    return Differences(ParseParameters(text, "NET.PAR"));
}

TEST(ParseParameters, TakesCommentsBlanksCaseAndEveryLineEnd) {
    const auto set = SetBy(
        "\xEF\xBB\xBF; SCALE = maybe\r\n\r\n  ; ; \n\t\n scale=on;why\rTracker\t=  rotations  ; a = b\r\n"
        "ITERATIONS = +2e1\n\x1A");
    EXPECT_THAT(set, ElementsAre("TRACKER = ROTATIONS", "SCALE = ON", "ITERATIONS = 20"));
    EXPECT_THAT(SetBy(""), IsEmpty());
    EXPECT_THAT(SetBy("\x1A"), IsEmpty());
    EXPECT_THAT(SetBy("SCALE = ON"), ElementsAre("SCALE = ON"));
    EXPECT_THAT(SetBy(";" + std::string(1000000, '=')), IsEmpty());
}

TEST(ParseParameters, NamesTheLineAndWhatIsAllowed) {
    EXPECT_EQ(Raised("\r\nSCALE = maybe   ; or not\r\n"),
              "52 The parameter file NET.PAR has a line that cannot be taken:\n"
              "line 2: SCALE = maybe   ; or not\n"
              "  \"maybe\" is none of its words; SCALE takes OFF or ON.");
    EXPECT_EQ(Raised("SCALE = ON\rITERATIONS = 501"),
              "52 The parameter file NET.PAR has a line that cannot be taken:\n"
              "line 2: ITERATIONS = 501\n"
              "  \"501\" is out of range; ITERATIONS takes 1 to 500.");
    EXPECT_THAT(Raised("POWER =   ; of what"), HasSubstr("\n  There is no value; POWER takes 50 to 99.9 %."));
}

TEST(ParseParameters, NamesAnUnknownKeyAndTheNearestOne) {
    EXPECT_EQ(Raised("DIRECTION = ON\n"),
              "51 The parameter file NET.PAR has a line that cannot be taken:\n"
              "line 1: DIRECTION = ON\n"
              "  There is no key \"DIRECTION\"; DIRECTIONS is one.");
    EXPECT_THAT(Raised("MAGIC = ON\n"), HasSubstr("\n  There is no key \"MAGIC\"."));
}

TEST(ParseParameters, NamesBothLinesOfAKeyThatStandsTwice) {
    EXPECT_EQ(Raised("SCALE = ON\n; \nscale = ON\n"),
              "53 The parameter file NET.PAR has a line that cannot be taken:\n"
              "line 3: scale = ON\n"
              "  SCALE stands on line 1 already.");
}

TEST(ParseParameters, RefusesALineThatIsNoEntry) {
    for (const char* line : {"SCALE", "= ON", "# SCALE = ON", "SCALE ON ; = ON", "\x01", "SCALE = \x02"})
        EXPECT_NE(Raised(line), "") << line;
    EXPECT_EQ(Raised("SCALE ON ; = ON"),
              "54 The parameter file NET.PAR has a line that cannot be taken:\n"
              "line 1: SCALE ON ; = ON\n"
              "  A line has the form KEY = value   ; comment.");
}

TEST(ParseParameters, NamesAllFaultyLinesAtOnce) {
    EXPECT_EQ(Raised("SCALE = 1\nPOWER = 10\nSCALE = ON\n"),
              "52 The parameter file NET.PAR has 3 lines that cannot be taken:\n"
              "line 1: SCALE = 1\n"
              "  \"1\" is none of its words; SCALE takes OFF or ON.\n"
              "line 2: POWER = 10\n"
              "  \"10\" is out of range; POWER takes 50 to 99.9 %.\n"
              "line 3: SCALE = ON\n"
              "  SCALE stands on line 1 already.");
    std::string many;
    for (int i = 0; i < 25; ++i)
        many += "X\n";
    EXPECT_THAT(Raised(many), testing::EndsWith("line 20: X\n  A line has the form KEY = value   ; "
                                                "comment.\nand 5 lines more"));
}

TEST(ParseParameters, RefusesALineOfAMillionCharacters) {
    for (const char c : {'X', '=', ' ', '\0'}) {
        const std::string told = Raised("SCALE = ON\nPOWER = " + std::string(1000000, c));
        EXPECT_THAT(told, HasSubstr("\nline 2: POWER = "));
        EXPECT_LT(told.size(), 500u);
    }
    EXPECT_THAT(Raised(std::string(1000000, 'X') + " = 1"), HasSubstr("51 "));
}

TEST(ParseParameters, RefusesABinaryFileInPlainText) {
    std::mt19937 random(7);
    std::string bytes;
    for (int i = 0; i < 1000000; ++i)
        bytes += static_cast<char>(random() % 256);
    const std::string told = Raised(bytes);
    EXPECT_THAT(told, testing::MatchesRegex("5[14] (.|\n)*"));
    EXPECT_LT(told.size(), 10000u);
    for (const char c : told)
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= ' ');
    // A text of two bytes a character.
    EXPECT_THAT(Raised(std::string("\xFF\xFES\0=\0O\0N\0\r\0\n\0", 14)), HasSubstr("54 "));
}

TEST(ParseParameters, SurvivesRandomDamageOfAGoodFile) {
    const std::string whole = DefaultParameterText();
    std::mt19937 random(11);
    std::set<std::string> numbers;
    for (int i = 0; i < 2000; ++i) {
        std::string text = whole;
        for (int hit = 0; hit < 1 + i % 5; ++hit)
            text[random() % text.size()] = static_cast<char>(i % 3 ? random() % 256 : '0' + random() % 10);
        if (i % 7 == 0)
            text.resize(random() % text.size());
        if (i % 5 == 0)
            text += whole.substr(random() % whole.size(), 300);
        numbers.insert(Raised(text).substr(0, 2));
    }
    EXPECT_THAT(numbers, ElementsAre("", "51", "52", "53", "54"));
}

const std::string kHeights = "NORL\r\n\r\nHeight differences\r\nA B 1 0.001\r\nEND\r\n";

std::vector<std::string> FilesOf(const TempFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// The settings of a run on an input, and what its head tells of the file.
std::vector<std::string> SettingsBeside(const TempFolder& folder, const std::string& input) {
    const FoundParameters found = ParametersBeside((folder.path / input).string());
    std::vector<std::string> told = Differences(found.parameters);
    const std::string place = folder.path.string() + "/";
    const std::size_t at = found.file.find(place);
    told.push_back(at == std::string::npos ? found.file : std::string(found.file).erase(at, place.size()));
    return told;
}

TEST(ParametersBeside, WritesTheDefaultsWhereThereIsNoFile) {
    const TempFolder folder;
    EXPECT_THAT(SettingsBeside(folder, "NET.ONE.INP"), ElementsAre("NET.ONE.PAR, written with its defaults"));
    EXPECT_EQ(folder.Read("NET.ONE.PAR"), DefaultParameterText());
    EXPECT_THAT(SettingsBeside(folder, "NET.ONE.INP"), ElementsAre("NET.ONE.PAR"));
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.ONE.PAR"));
}

TEST(ParametersBeside, NeverWritesOverAFile) {
    const TempFolder folder;
    folder.Write("NET.PAR", "scale = on");
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("SCALE = ON", "NET.PAR"));
    EXPECT_EQ(folder.Read("NET.PAR"), "scale = on");
    folder.Write("NET.PAR", "");
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("NET.PAR"));
    EXPECT_EQ(folder.Read("NET.PAR"), "");
}

TEST(ParametersBeside, TakesTheOwnFileOfAVersionElseThatOfTheMaster) {
    const TempFolder folder;
    folder.Write("NET.PAR", "SCALE = ON\r\nITERATIONS = 20\r\n");
    EXPECT_THAT(SettingsBeside(folder, "NET_v01.INP"),
                ElementsAre("SCALE = ON", "ITERATIONS = 20", "NET.PAR, that of the master"));
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.PAR"));
    folder.Write("NET_v01.PAR", "ITERATIONS = 30\r\n");
    EXPECT_THAT(SettingsBeside(folder, "NET_v01.INP"), ElementsAre("ITERATIONS = 30", "NET_v01.PAR"));
    EXPECT_THAT(SettingsBeside(folder, "NET_v02.INP"),
                ElementsAre("SCALE = ON", "ITERATIONS = 20", "NET.PAR, that of the master"));
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("SCALE = ON", "ITERATIONS = 20", "NET.PAR"));
}

TEST(ParametersBeside, WritesThatOfTheMasterForAVersionWithoutBoth) {
    const TempFolder folder;
    EXPECT_THAT(SettingsBeside(folder, "NET_v99.INP"), ElementsAre("NET.PAR, written with its defaults"));
    EXPECT_THAT(SettingsBeside(folder, "NET_v99.INP"), ElementsAre("NET.PAR, that of the master"));
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.PAR"));
}

TEST(ParametersBeside, TakesAsVersionsOnlyThoseFrom01To99) {
    for (const char* name : {"NET_v00", "NET_v1", "NET_v001", "NET_vXY", "NETv01", "_v01"}) {
        const TempFolder folder;
        SettingsBeside(folder, std::string(name) + ".INP");
        EXPECT_THAT(FilesOf(folder), ElementsAre(std::string(name) + ".PAR"));
    }
    const TempFolder folder;
    SettingsBeside(folder, "net_V07.inp");
    EXPECT_THAT(FilesOf(folder), ElementsAre("net.PAR"));
}

TEST(ParametersBeside, FindsAFileInOtherCase) {
    const TempFolder folder;
    folder.Write("net.par", "SCALE = ON");
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("SCALE = ON", "net.par"));
    EXPECT_THAT(SettingsBeside(folder, "NET_v01.INP"),
                ElementsAre("SCALE = ON", "net.par, that of the master"));
    folder.Write("Net_V01.Par", "CURVATURE = ON");
    EXPECT_THAT(SettingsBeside(folder, "NET_v01.INP"), ElementsAre("CURVATURE = ON", "Net_V01.Par"));
    folder.Write("NET.PAR", "ZERO_POINT = ON");
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("ZERO_POINT = ON", "NET.PAR"));
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.PAR", "Net_V01.Par", "net.par"));
}

TEST(ParametersBeside, FindsAFileBesideAnInputNamedWithoutItsFolder) {
    const TempFolder folder;
    folder.Write("NET.PAR", "SCALE = ON");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path);
    const FoundParameters exact = ParametersBeside("NET.INP");
    const FoundParameters inCase = ParametersBeside("net.inp");
    std::filesystem::current_path(before);
    EXPECT_EQ(exact.file, "NET.PAR");
    EXPECT_EQ(inCase.file, "NET.PAR");
    EXPECT_TRUE(inCase.parameters.scale);
}

// Runs a text as NET.INP of a folder; the listing that comes of it.
std::string RunIn(const TempFolder& folder, ErrorNumber expected, const std::string& input = "NET.INP") {
    EXPECT_EQ(RunAdjustment(folder.Write(input, kHeights), 1), expected);
    return folder.Read(input.substr(0, input.size() - 3) + "OUT");
}

TEST(RunAdjustment, WritesAParameterFileBesideTheInput) {
    const TempFolder folder;
    RunIn(folder, ErrorNumber::Good);
    EXPECT_EQ(folder.Read("NET.PAR"), DefaultParameterText());
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.INP", "NET.OUT", "NET.PAR"));
}

TEST(RunAdjustment, WritesNoParameterFileBesideWhatIsNoInput) {
    const TempFolder folder;
    EXPECT_EQ(RunAdjustment((folder.path / "NONE.INP").string(), 1), ErrorNumber::InputNotReadable);
    EXPECT_EQ(RunAdjustment(folder.Write("TEXT.TXT", "hello\r\n"), 1), ErrorNumber::NotAnInputFile);
    const std::string parameters = folder.Write("NET.PAR", DefaultParameterText());
    EXPECT_EQ(RunAdjustment(parameters, 1), ErrorNumber::NotAnInputFile);
    EXPECT_EQ(folder.Read("NET.PAR"), DefaultParameterText());
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.OUT", "NET.PAR", "NONE.OUT", "TEXT.OUT", "TEXT.TXT"));
}

TEST(RunAdjustment, AdjustsAsTheParameterFileTells) {
    const TempFolder folder;
    folder.Write("NET.PAR", "HEIGHT_DIFFERENCES = OFF");
    RunIn(folder, ErrorNumber::NoObservations);
    folder.Write("NET.PAR", "HEIGHT_DIFFERENCES = ON");
    RunIn(folder, ErrorNumber::Good);
}

TEST(RunAdjustment, TellsAFaultyParameterFileInTheListing) {
    const TempFolder folder;
    folder.Write("NET.PAR", "\r\nITERATION = 10\r\n");
    const std::string listing = RunIn(folder, ErrorNumber::UnknownParameter, "NET_v03.INP");
    EXPECT_TRUE(
        listing.starts_with(" RUN FAILED\r\n\r\n"
                            "  Error 51: A key of the parameter file is not known.\r\n\r\n"
                            "  The parameter file NET.PAR has a line that cannot be taken:\r\n"
                            "    line 2: ITERATION = 10\r\n"
                            "      There is no key \"ITERATION\"; ITERATIONS is one.\r\n"));
    EXPECT_EQ(folder.Read("NET.PAR"), "\r\nITERATION = 10\r\n");
    folder.Write("NET.PAR", "SCALE = ?");
    RunIn(folder, ErrorNumber::BadParameterValue);
    folder.Write("NET.PAR", "SCALE = ON\nscale = ON");
    RunIn(folder, ErrorNumber::RepeatedParameter);
    folder.Write("NET.PAR", "hello");
    RunIn(folder, ErrorNumber::BadParameterLine);
}

TEST(RunAdjustment, RefusesAParameterFileThatIsAFolder) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.path / "net.par");
    EXPECT_THAT(RunIn(folder, ErrorNumber::ParametersNotReadable), HasSubstr("/net.par\r\n"));
    std::filesystem::remove(folder.path / "net.par");
    std::filesystem::create_symlink("nowhere", folder.path / "NET.PAR");
    RunIn(folder, ErrorNumber::ParametersNotReadable);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "NET.PAR"));
}

// The place beside which the file is written first is taken.
TEST(RunAdjustment, GoesOnWithTheDefaultsWhenTheParameterFileCannotBeWritten) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.path / "NET.PAR.new");
    RunIn(folder, ErrorNumber::Good);
    EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("defaults; NET.PAR cannot be written"));
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.INP", "NET.OUT", "NET.PAR.new"));
}

// A superuser may do everything; the body runs in a process that may not.
void AsNobody(const std::function<void()>& body) {
    EXPECT_EXIT(
        {
            if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
                _exit(100);
            body();
            _exit(testing::Test::HasFailure() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(RunAdjustment, TellsAParameterFileThatMayNotBeReadOrWritten) {
    GTEST_FLAG_SET(death_test_style, "fast");
    namespace fs = std::filesystem;
    const TempFolder folder;
    const std::string input = folder.Write("NET.INP", kHeights);
    fs::permissions(folder.path, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                     fs::perms::others_exec);
    AsNobody([&] {
        EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::ListingNotWritten);
        EXPECT_THAT(SettingsBeside(folder, "NET.INP"), ElementsAre("defaults; NET.PAR cannot be written"));
    });
    EXPECT_THAT(FilesOf(folder), ElementsAre("NET.INP"));
    fs::permissions(folder.path, fs::perms::all);
    fs::permissions(folder.Write("NET.PAR", ""), fs::perms::none);
    AsNobody([&] {
        EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::ParametersNotReadable);
        EXPECT_THAT(folder.Read("NET.OUT"), HasSubstr("Error 50:"));
    });
}

TEST(RunAdjustment, LeavesNoHalfParameterFileOnAFullDisk) {
    GTEST_FLAG_SET(death_test_style, "fast");
    const TempFolder folder;
    const auto onSmallDisk = [&] {
        // Where the root is no mount point of its own, a private mount is refused and the disk goes with the
        // process's own mounts.
        if (unshare(CLONE_NEWNS) != 0)
            _exit(100);
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        if (mount("none", folder.path.c_str(), "tmpfs", 0, "size=16k,mode=0777") != 0)
            _exit(101);
        const std::string input = folder.Write("NET.INP", kHeights);
        folder.Write("FILL.DAT", std::string(12 * 1024, 'x'));
        const ErrorNumber number = RunAdjustment(input, 1);
        const std::vector<std::string> files = FilesOf(folder);
        const bool isGone = umount2(folder.path.c_str(), MNT_DETACH) == 0;
        EXPECT_EQ(number, ErrorNumber::ListingNotWritten);
        EXPECT_THAT(files, ElementsAre("FILL.DAT", "NET.INP"));
        _exit(isGone && !testing::Test::HasFailure() ? 0 : 1);
    };
    EXPECT_EXIT(onSmallDisk(), testing::ExitedWithCode(0), "");
}

}  // namespace
