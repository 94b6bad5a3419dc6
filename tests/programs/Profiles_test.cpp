// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basRead.h"
#include "datatree/basTree.h"
#include "programs/fieldbook/ReductionFiles.h"
#include "programs/total/TotalRun.h"
#include "tests/programs/ChildProgram.h"
#include "tests/support/ScriptedDesktop.h"
#include "upload/DataTypes.h"

// What an installation ships: every question that the system asks of the profiles has an answer, and the
// answers agree with each other and with the programs and structure files beside them.
namespace Dorvane {
namespace {

using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using namespace Testing;

namespace fs = std::filesystem;

const fs::path SiteFolder = DORVANE_SITE_FOLDER;
const char* const ProfileNames[] = {"dv_datatype.ini", "dv_input.ini",    "dv_main.ini",
                                    "dv_tarvex.ini",   "dv_download.ini", "dv_special.ini"};

std::string HostContent(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

List1<std::string> Words(const std::string& text) {
    List1<std::string> words;
    ParseFields(words, text);
    return words;
}

/// The shipped profiles in the Windows folder, the sample's structure files in Init_path.
class ShippedSite : public testing::Test {
  protected:
    ShippedSite() {
        Site.LayOut();
        for (const char* name : ProfileNames)
            PutFile(std::string("C:\\WINDOWS\\") + name, HostContent(SiteFolder / "system" / name));
        for (const auto& entry : fs::directory_iterator(SiteFolder / "samples/site/INIT"))
            PutFile("D:\\TARVEX\\INIT\\" + entry.path().filename().string(), HostContent(entry.path()));
        ReadIniDataTypes(Types);
    }

    static std::string Key(const DataType& type, const std::string& extension, const std::string& suffix) {
        return IniReadString("dv_datatype.ini", type.Name, extension + suffix);
    }

    /// The extensions of a type that have a reduction tab.
    std::vector<std::string> Tabs(const DataType& type) const {
        std::vector<std::string> tabs;
        for (const std::string& extension : type.Extensions)
            if (!ReadTypeKey(type.Name, extension, "_Name").empty())
                tabs.push_back(extension);
        return tabs;
    }

    TestSite Site;
    List1<DataType> Types;
};

TEST(ShippedFiles, EndEveryLineInCrLf) {
    for (const char* folder : {"system", "Keld", "samples"}) {
        for (const auto& entry : fs::recursive_directory_iterator(SiteFolder / folder)) {
            if (!entry.is_regular_file())
                continue;
            const std::string content = HostContent(entry.path());
            EXPECT_THAT(content, EndsWith("\r\n")) << entry.path();
            for (std::size_t at = content.find('\n'); at != std::string::npos;
                 at = content.find('\n', at + 1))
                EXPECT_TRUE(at > 0 && content[at - 1] == '\r') << entry.path() << " at " << at;
        }
    }
}

TEST(ShippedFiles, HaveNoValueThatWouldArriveCut) {
    for (const char* name : ProfileNames) {
        std::istringstream lines(HostContent(SiteFolder / "system" / name));
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size() - std::min(line.size(), line.find('=')), 127U) << line;
    }
}

TEST(ShippedFiles, NameEachSectionOnce) {
    // Sections ignore case and the first match counts: a second one of the name would never be read.
    for (const char* name : ProfileNames) {
        std::map<std::string, int> sections;
        std::istringstream lines(HostContent(SiteFolder / "system" / name));
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("["))
                ++sections[UpperCase(line)];
        }
        for (const auto& [section, count] : sections)
            EXPECT_EQ(count, 1) << name << " " << section;
        EXPECT_FALSE(sections.empty()) << name;
    }
}

TEST_F(ShippedSite, AnswersTheStartUp) {
    for (const char* key : {"Data_drive", "Calib_path", "Coord_path", "Init_path", "Param_path", "Temp_path",
                            "Work_path", "Download_path"}) {
        const std::string path = IniReadString("dv_tarvex.ini", "Tarvex Info", key);
        EXPECT_THAT(path, AnyOf(StartsWith("C:\\TARVEX\\"), StartsWith("D:\\TARVEX\\"))) << key;
        EXPECT_THAT(path, EndsWith("\\")) << key;
    }
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "1");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "1");
    // The reduction screen asks CALIB.PTH by that fixed name.
    EXPECT_THAT(IniReadString("dv_tarvex.ini", "Tarvex Info", "Calib_path"), EndsWith("\\CALIB\\"));
    EXPECT_EQ(ReadGeneralEditor().Program(), AppPath() + "Programs\\edittext.exe");
    EXPECT_TRUE(std::filesystem::exists(DORVANE_PROGRAMS_FOLDER "edittext.exe"));
}

TEST_F(ShippedSite, NamesTheTenButtons) {
    for (int i = 1; i <= 10; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_NE(IniReadString("dv_main.ini", "Main Titles", "Title" + number), "") << i;
        EXPECT_NE(IniReadString("dv_main.ini", "Main Tips", "Tip" + number), "") << i;
        EXPECT_THAT(IniReadString("dv_main.ini", "Main Icons", "Icon" + number), EndsWith(".svg")) << i;
    }
}

TEST_F(ShippedSite, GivesEachDataTypeATabWhoseProgramIsThere) {
    ASSERT_EQ(Types.Count(), 4);
    for (const DataType& type : Types) {
        EXPECT_FALSE(type.Extensions.Empty()) << type.Name;
        const std::vector<std::string> tabs = Tabs(type);
        ASSERT_FALSE(tabs.empty()) << type.Name;
        for (const std::string& extension : tabs) {
            // Keys of a tab come from the section that holds its name.
            EXPECT_NE(Key(type, extension, "_Name"), "") << type.Name;
            EXPECT_THAT(Key(type, extension, "_RedIcon"), EndsWith(".svg")) << type.Name;
            EXPECT_NE(Key(type, extension, "_RedTip"), "") << type.Name;
            const List1<std::string> reduce = Words(Key(type, extension, "_Reduce"));
            ASSERT_GE(reduce.Count(), 2) << type.Name;
            EXPECT_TRUE(fs::exists(fs::path(DORVANE_PROGRAMS_FOLDER) / reduce[1])) << reduce[1];
            // The list must not name the error file: any file that it names passes for a result.
            const std::string errorFile = Key(type, extension, "_RedError");
            EXPECT_EQ("X:\\" + errorFile, ErrorPath("X:\\" + reduce[2])) << type.Name;
            EXPECT_FALSE(ContainsIgnoringCase(Key(type, extension, "_Reduce"), errorFile)) << type.Name;
        }
    }
}

TEST_F(ShippedSite, SaysHowEachExtensionIsUploaded) {
    for (const DataType& type : Types) {
        for (const std::string& extension : type.Extensions) {
            EXPECT_TRUE(ReadUploadKeys(type.Name, extension).InSurveyIndex) << type.Name << " " << extension;
            EXPECT_EQ(ReadUploadKeys(type.Name, extension).PrintProgram, "GENERIC")
                << type.Name << " " << extension;
            EXPECT_THAT(UpperCase(Key(type, extension, "_Append")), AnyOf("TRUE", "FALSE")) << type.Name;
        }
    }
}

TEST_F(ShippedSite, GivesEachReductionKindTheNamesItsParameterFileWants) {
    struct Wanted {
        int ReduceWords;
        int ParamWords;
        std::string ParameterFile;
    };
    const std::map<std::string, Wanted> kinds = {{"TOTAL", {2, 2, TotalProgram.ParameterFile}},
                                                 {"ANGLE", {3, 2, AngleProgram.ParameterFile}},
                                                 {"DISTANCE", {4, 4, DistanceProgram.ParameterFile}},
                                                 {"LEVEL", {3, 4, "LEVEL.PAR"}}};
    for (const DataType& type : Types) {
        for (const std::string& extension : Tabs(type)) {
            const List1<std::string> param = Words(Key(type, extension, "_Param"));
            ASSERT_GE(param.Count(), 2) << type.Name;
            const auto kind = kinds.find(param[1]);
            ASSERT_NE(kind, kinds.end()) << param[1];
            EXPECT_GE(param.Count(), kind->second.ParamWords) << type.Name;
            EXPECT_EQ(param[2], kind->second.ParameterFile) << type.Name;
            EXPECT_GE(Words(Key(type, extension, "_Reduce")).Count(), kind->second.ReduceWords) << type.Name;
        }
    }
}

TEST_F(ShippedSite, HasNoResultThatLooksLikeData) {
    // A result whose name held the extension would be taken for data, and a protocol written a second after
    // it would make it look old.
    for (const DataType& type : Types) {
        for (const std::string& extension : Tabs(type)) {
            const List1<std::string> reduce = Words(Key(type, extension, "_Reduce"));
            for (int i = 2; i <= reduce.Count(); ++i)
                for (const std::string& any : type.Extensions)
                    EXPECT_THAT(reduce[i], Not(HasSubstr(any))) << type.Name;
        }
    }
}

TEST_F(ShippedSite, FindsTheTypeOfEveryFolderThatTheStructuresAllow) {
    List1<ChoiceRecord> choices;
    // Only data systems stand here: the tree reads the structure of every system as that of a data system,
    // and the two groups of a calibration structure end too early for it.
    ASSERT_EQ(ReadChoiceFile(choices, "D:\\TARVEX\\INIT\\", "CHOICES.SYS"), 1);
    EXPECT_EQ(choices[1].Name, "DAM");
    EXPECT_EQ(choices[1].Kind, 1);
    EXPECT_EQ(choices[1].Description, "Upper Dam");
    List1<StructureRecord> structures;
    structures.Resize(1);
    ReadStrFile(structures, 1, "D:\\TARVEX\\INIT\\", "DAM.STR");
    const StructureRecord& dam = structures[1];
    EXPECT_EQ(dam.Name, "DAM");
    EXPECT_GE(dam.LocationCount, 1);
    EXPECT_EQ(dam.TypeCount, Types.Count());
    EXPECT_GE(dam.EpochCount, 1);
    for (int location = 1; location <= dam.LocationCount; ++location) {
        const std::string folder = "D:\\TARVEX\\DAM\\" + dam.Location[location] + "\\";
        EXPECT_THAT(dam.Location[location], Not(HasSubstr("SRV")));
        EXPECT_EQ(FindDataType(Types, folder + "ADJUST\\FIRST\\"), 0) << folder;
        for (int type = 1; type <= dam.TypeCount; ++type) {
            for (int epoch = 1; epoch <= dam.EpochCount; ++epoch) {
                const int found =
                    FindDataType(Types, folder + dam.Type[type] + "\\" + dam.Epoch[epoch] + "\\");
                ASSERT_NE(found, 0) << folder << dam.Type[type];
                EXPECT_EQ(Types[found].Name, dam.Type[type]);
                EXPECT_THAT(dam.Epoch[epoch], StartsWith("SRV"));
            }
        }
    }
}

TEST_F(ShippedSite, GivesATreeWithoutAnyReport) {
    ScriptedDesktop desktop;  // fails on any question
    Sorter sorter;
    List1<PathRecord> records;
    EXPECT_EQ(GetExistingTree(records, sorter), 0);
}

TEST_F(ShippedSite, KnowsTheCalibrationTypesOfItsTabs) {
    List1<StructureRecord> structures;
    structures.Resize(1);
    ReadCalibStrFile(structures, 1, "D:\\TARVEX\\INIT\\", "CALIB.STR");
    const StructureRecord& calib = structures[1];
    EXPECT_EQ(calib.Name, "CALIB");
    EXPECT_GE(calib.TypeCount, 1);
    int used = 0;
    for (const DataType& type : Types) {
        for (const std::string& extension : Tabs(type)) {
            const std::string wanted = Key(type, extension, "_Calib");
            if (wanted.empty())
                continue;
            ++used;
            int matches = 0;
            for (int i = 1; i <= calib.LocationCount; ++i)
                matches += calib.Location[i] == wanted ? 1 : 0;
            EXPECT_EQ(matches, 1) << wanted;
        }
    }
    EXPECT_GT(used, 0);
}

TEST_F(ShippedSite, KeepsToTheColumnsOfStructureFiles) {
    for (const char* name : {"DAM.STR", "CALIB.STR"}) {
        int line = 0;
        for (const std::string& text : FileLines(std::string("D:\\TARVEX\\INIT\\") + name)) {
            if (++line == 2 || text.empty())
                continue;
            EXPECT_LE(text.size(), 29U) << text;
            EXPECT_EQ(Mid(text, 9, 1), " ") << text;
            EXPECT_NE(Mid(text, 1, 1), " ") << text;
            EXPECT_NE(Mid(text, 10, 1), " ") << text;
        }
    }
    for (const std::string& text : FileLines("D:\\TARVEX\\INIT\\CHOICES.SYS")) {
        EXPECT_LE(text.size(), 31U) << text;
        EXPECT_EQ(Mid(text, 9, 1), " ") << text;
        EXPECT_EQ(Mid(text, 11, 1), " ") << text;
        EXPECT_NE(Mid(text, 12, 1), " ") << text;
    }
}

TEST_F(ShippedSite, HasABiasForEveryLocation) {
    int standard = 0;
    for (const std::string& line : FileLines("D:\\TARVEX\\INIT\\BIAS.STR")) {
        if (line.starts_with(";") || line.starts_with(" "))
            continue;
        const List1<std::string> words = Words(line);
        ASSERT_GE(words.Count(), 5) << line;
        for (int i = 2; i <= 5; ++i)
            EXPECT_TRUE(IsNumeric(words[i])) << line;
        standard += UpperCase(Trim(Left(line, 8))) == "STDBIAS" ? 1 : 0;
    }
    EXPECT_EQ(standard, 1);
}

TEST_F(ShippedSite, NamesObservationTypesWithWeightsAndKnownLocations) {
    const std::map<std::string, std::vector<std::string>> weights = {
        {"Tracker", {"HAngle", "ZAngle", "SDist", "LHAngle", "LZAngle", "LinAngle"}},
        {"Total", {"HAngle", "ZAngle", "SDist", "HDist", "LHAngle", "LZAngle", "LinAngle"}},
        {"Height", {"HDiff"}},
        {"Angle", {"HAngle", "ZAngle"}},
        {"Distance", {"SDist", "HDist"}},
        {"Gyro", {}},
        {"Offset", {}}};
    for (const auto& [kind, keys] : weights) {
        const std::string number = IniReadString("dv_input.ini", kind, "Number");
        ASSERT_TRUE(IsNumeric(number)) << kind;
        EXPECT_EQ(LeadingInteger(number) > 0, !keys.empty()) << kind;
        for (int i = 1; i <= LeadingInteger(number); ++i) {
            const std::string n = std::to_string(i);
            EXPECT_NE(IniReadString("dv_input.ini", kind, "Name" + n), "") << kind;
            EXPECT_THAT(IniReadString("dv_input.ini", kind, "Icon" + n), EndsWith(".svg")) << kind;
            const List1<std::string> locations = Words(IniReadString("dv_input.ini", kind, "Location" + n));
            EXPECT_FALSE(locations.Empty()) << kind;
            for (const std::string& word : locations)
                EXPECT_TRUE(std::any_of(Types.begin(), Types.end(), [&](const DataType& type) {
                    return type.Name == word;
                })) << word;
            for (const std::string& key : keys) {
                const std::string value = IniReadString("dv_input.ini", kind, key + n);
                ASSERT_TRUE(IsNumeric(value)) << kind << " " << key << n;
                EXPECT_TRUE(key == "LinAngle" || StrictNumber(value) > 0) << kind << " " << key << n;
            }
        }
    }
}

TEST_F(ShippedSite, ImportsWhatTheReductionsWrite) {
    for (const DataType& type : Types) {
        int used = 0;
        for (int dimension = 1; dimension <= 3; ++dimension) {
            const List1<std::string> words =
                Words(IniReadString("dv_input.ini", type.Name, std::to_string(dimension) + "dResFile"));
            if (words.Empty())
                continue;
            ++used;
            EXPECT_THAT(words[1], AnyOf("TOTALRES", "DISTANCERES", "LEVELRES")) << type.Name;
            ASSERT_GE(words.Count(), 2) << type.Name;
            const std::string reduce = UpperCase(Key(type, Tabs(type).front(), "_Reduce"));
            for (int i = 2; i <= words.Count(); ++i) {
                EXPECT_THAT(reduce, HasSubstr(words[i])) << type.Name;
                EXPECT_THAT(words[i], EndsWith(".RES")) << "only a folder with such a file is read";
            }
        }
        EXPECT_GT(used, 0) << type.Name;
    }
}

TEST_F(ShippedSite, KeepsRoomForUserDatabasesAndAProject) {
    const std::string content = HostContent(SiteFolder / "system/dv_input.ini");
    for (int i = 1; i <= 16; ++i)
        EXPECT_THAT(content, HasSubstr("\r\nNames" + std::to_string(i) + "= \r\n"));
    EXPECT_THAT(content, HasSubstr("[Project]\r\nLast=\r\n"));
}

TEST_F(ShippedSite, ListsFilesForEachDownloadGroup) {
    const List1<std::string> groups = Words(IniReadString("dv_download.ini", "Titles", "List"));
    EXPECT_FALSE(groups.Empty());
    for (const std::string& group : groups)
        EXPECT_FALSE(Words(IniReadString("dv_download.ini", group, "List")).Empty()) << group;
}

/// The coordinates that the sample's field books were made from.
std::map<std::string, std::array<double, 3>> Truth() {
    std::map<std::string, std::array<double, 3>> truth;
    std::istringstream lines(HostContent(SiteFolder / "samples/site/TRUTH.TXT"));
    for (std::string line; std::getline(lines, line);) {
        const List1<std::string> words = Words(Trim(line.substr(0, line.find('\r'))));
        if (words.Count() == 4 && IsNumeric(words[2]) && IsNumeric(words[3]) && IsNumeric(words[4]))
            truth[words[1]] = {StrictNumber(words[2]), StrictNumber(words[3]), StrictNumber(words[4])};
    }
    return truth;
}

TEST(SampleFieldBook, ReducesToItsTruth) {
    const auto truth = Truth();
    ASSERT_EQ(truth.size(), 12U);
    ReductionSite site("TOTAL");
    site.AddFile("DAM.GSI", HostContent(SiteFolder / "samples/site/FIELD/DAM.GSI"));
    site.PutParameters("TOTAL.PAR", {"TOTAL.RES"});
    ASSERT_EQ(RunChild(site.Site, "TOTRED.EXE").ExitCode, 0);
    const std::vector<std::string> lines = FileLines(site.Folder + "TOTAL.RES");
    EXPECT_EQ(lines.size(), 34U);
    std::map<std::string, int> stations;
    std::map<std::string, int> targets;
    for (const std::string& line : lines) {
        const List1<std::string> words = Words(line);
        ASSERT_EQ(words.Count(), 5);
        ++stations[words[1]];
        ++targets[words[2]];
        const auto& from = truth.at(words[1]);
        const auto& to = truth.at(words[2]);
        const double across = std::hypot(to[0] - from[0], to[1] - from[1]);
        const double rise = to[2] - from[2];
        constexpr double gon = 3.14159265358979323846 / 200;
        const double distance = StrictNumber(words[5]);
        EXPECT_NEAR(distance, std::hypot(across, rise), 0.003) << line;
        EXPECT_NEAR(distance * std::cos(StrictNumber(words[4]) * gon), rise, 0.006) << line;
    }
    EXPECT_EQ(stations.size(), 4U);
    EXPECT_EQ(targets.size(), 12U);
    for (const auto& [target, count] : targets)
        EXPECT_GE(count, 2) << target;
}

TEST(SampleLevellingBook, ReducesToItsTruth) {
    const auto truth = Truth();
    ReductionSite site("LEVEL");
    site.AddFile("DAM.LEV", HostContent(SiteFolder / "samples/site/FIELD/DAM.LEV"));
    site.PutParameters("LEVEL.PAR", {"HDIFF.RES", "HDIFF.PRO"});
    ASSERT_EQ(RunChild(site.Site, "LEVRED.EXE").ExitCode, 0);
    const std::vector<std::string> lines = FileLines(site.Folder + "HDIFF.RES");
    EXPECT_EQ(lines.size(), 4U);
    for (const std::string& line : lines) {
        const List1<std::string> words = Words(line);
        ASSERT_EQ(words.Count(), 3);
        EXPECT_NEAR(StrictNumber(words[3]), truth.at(words[2])[2] - truth.at(words[1])[2], 0.001) << line;
    }
}

}  // namespace
}  // namespace Dorvane
