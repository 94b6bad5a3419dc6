// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "core/widgets/ScreenText.h"
#include "tests/app/PrintServer.h"
#include "tests/road/AwaitedProgram.h"
#include "tests/road/Workstation.h"

namespace Dorvane {

using namespace Testing;
using testing::Contains;
using testing::ElementsAre;

namespace {

constexpr const char* Survey = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
constexpr const char* Project = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";

// The moments of a run differ from run to run.
std::string WithoutMoments(const std::string& text) {
    static const QRegularExpression date(R"(\d{1,4}[-/.]\d{1,2}[-/.]\d{2,4})");
    static const QRegularExpression time(R"(\d{1,2}:\d\d(:\d\d)?( [AP]M)?)");
    return QString::fromLatin1(text).replace(date, "<date>").replace(time, "<time>").toStdString();
}

// Chooses an entry by keys.
void ChooseEntry(QWidget& screen, const char* list, int entry) {
    auto& control = Control<QComboBox>(screen, list);
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_Home);
    for (int i = 0; i < entry; ++i)
        QTest::keyClick(&control, Qt::Key_Down);
    EXPECT_EQ(control.currentIndex(), entry) << list;
}

// Clicks an option on its mark, since the room behind its words takes no click.
void ChooseOption(QWidget& screen, const char* option) {
    auto& control = Control<QRadioButton>(screen, option);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(8, control.height() / 2));
    EXPECT_TRUE(control.isChecked()) << option;
}

std::string HostContent(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

}  // namespace

/// The whole road through the screens, with folders chosen in the tree (1) or by hand (2), beside the road
/// that is walked without them.
class WholeRoad : public Workstation, public testing::WithParamInterface<int> {
  protected:
    WholeRoad() { Server.AddQueue("Pages"); }

    bool ByHand() const { return GetParam() == 2; }

    void PrepareSite() {
        Start();
        LayDownStructures();
        AddSurvey("NORTH", {"TOTAL"}, "SRV01", "First survey of the road");
        const std::string book = Global().ProgramFolder + "samples\\site\\FIELD\\DAM.GSI";
        MakeFolders("D:\\FIELD\\");
        Drives::CopyFile(book, "D:\\FIELD\\DAM.GSI");
        if (ByHand())
            Choose(Screen("frmMain"), "mnuManual");
    }

    /// What the operator does in the folder picker that a click opens: the tree or the file dialog.
    void PickFolderBy(QWidget& screen, const char* button, const std::string& title,
                      const std::string& folder) {
        if (ByHand()) {
            Person.ExpectFile(title, folder);
            return Click(screen, button);
        }
        WhenOpen("frmTree", [&, folder](QWidget& tree) {
            EXPECT_EQ(TextOf(tree), title);
            ChooseFolder(tree, folder);
            Click(tree, "cmdOK");
        });
        Click(screen, button);
        EXPECT_TRUE(QTest::qWaitFor([] { return !IsOpen("frmTree"); }));
        HandleEvents();
    }

    void UploadTheBook() {
        Click(Screen("frmMain"), "cmdMain2");
        QWidget& upload = Screen("frmUploadMenu");
        Person.ExpectFile("Upload Data From ", "D:\\FIELD\\");
        Click(upload, "cmdFromBrowse");
        PickFolderBy(upload, "cmdToBrowse", ByHand() ? "Upload Data To " : "Upload Data To", Survey);
        Click(upload, "cmdUpload");
        EXPECT_TRUE(FileExists(std::string(Survey) + "DAM.GSI"));
        EXPECT_TRUE(FileExists("D:\\FIELD\\DAM.999"));
        PickFolderBy(upload, "cmdReduce", "Data Reduction Directory Selection", Survey);
    }

    void ReduceTheBook() {
        QWidget& reduction = Screen("frmReduce");
        EXPECT_EQ(TextOf(reduction), "Data Reduction Menu");
        EXPECT_EQ(TextOf(reduction, "lblSelectedDirectory"), Survey);
        Click(reduction, "cmdReduce0");
        EXPECT_THAT(Items(reduction, "lstReductionResults0"), ElementsAre("TOTAL.RES", "TOTAL.PRO"));
        Click(reduction, "cmdInputCreator");
    }

    void SetUpTheProject() {
        QWidget& input = Screen("frmInput");
        Type(input, "txtProject", "Road of one field file");
        Type(input, "txtTask", "DAM.GSI");
        ChooseEntry(input, "icmbInput", Control<QComboBox>(input, "icmbInput").findText("Total Station"));
        PickFolderBy(input, "cmdImport", "Input Total Station field data from", Survey);
        Person.ExpectFile("Save Project File", "D:\\TARVEX\\ROAD.gpf");
        Choose(input, "mnuSaveProject");
        EXPECT_TRUE(FileExists("D:\\TARVEX\\ROAD.gpf"));
    }

    // Another type's weight, so that the observations keep theirs.
    void ChangeAWeight() {
        QWidget& input = Screen("frmInput");
        Choose(input, "mnuObservationWeights");
        EXPECT_FALSE(input.isVisible());
        QWidget& weights = Screen("frmObsWeights");
        auto& tabs = Control<QTabWidget>(weights, "sstabWeights");
        for (int i = 0; i < tabs.count(); ++i)
            if (tabs.tabText(i) == QLatin1String("Levelling"))
                tabs.setCurrentIndex(i);
        auto& value = Control<QLineEdit>(*tabs.currentWidget(), "txtValue1");
        value.selectAll();
        QTest::keyClicks(&value, "0.0003");
        Click(weights, "cmdOK");
        EXPECT_TRUE(Screen("frmInput").isVisible());
        EXPECT_THAT(FileContent("C:\\WINDOWS\\dv_input.ini"), testing::HasSubstr("HDiff1=0.0003"));
    }

    void CreateTheInput(const std::string& name) {
        QWidget& input = Screen("frmInput");
        if (!ByHand())
            WhenOpen("frmTree", [](QWidget& tree) {
                EXPECT_EQ(TextOf(tree), "VARN input file location");
                ChooseFolder(tree, Project);
                Click(tree, "cmdOK");
            });
        else
            Person.ExpectFile("VARN input file location", Project);
        Person.ExpectText("Enter VARN input file name", name);
        Person.ExpectMessageTitled("Input File Creation");
        Click(input, "cmdCreate");
        EXPECT_TRUE(IsEnabled(input, "cmdEdit"));
        EXPECT_EQ(TextOf(input, "lblFileName"), name + ".INP");
    }

    void Adjust(int type) {
        QWidget& varn = Screen("frmVarn");
        ChooseEntry(varn, "cmbVarn", type);
        Person.ExpectMessage("Varn Successful", "Varn completed successfully!");
        Click(varn, "cmdVarn");
        EXPECT_EQ(TextOf(varn, "lblGoReturn"), "0");
    }

    void AdjustInAllTypes() {
        QWidget& varn = Screen("frmVarn");
        EXPECT_EQ(TextOf(varn, "txtInput"), std::string(Project) + "FIRST.INP");
        for (const int type : {0, 2, 3, 1})
            Adjust(type);
    }

    // A version that leaves nothing out gives the master's coordinates.
    void AdjustAVersion() {
        Drives::CopyFile(std::string(Project) + "FIRST.INP", std::string(Project) + "FIRST_v01.INP");
        QWidget& varn = Screen("frmVarn");
        auto& path = Control<QLineEdit>(varn, "txtInput");
        path.clear();
        Type(varn, "txtInput", std::string(Project) + "FIRST.INP");
        ChooseEntry(varn, "cmbVersion", 1);
        Adjust(1);
        EXPECT_TRUE(FileExists(std::string(Project) + "FIRST_v01.OUT"));
        Person.ExpectMessage("Version File Not Found",
                             "Version file does not exists.  Can not display version differences.");
        Click(varn, "cmdViewVersion");
        EXPECT_FALSE(varn.isVisible());
        Click(Screen("frmOpenInput"), "cmdOK");
        EXPECT_TRUE(Screen("frmVarn").isVisible());
        ChooseEntry(varn, "cmbVersion", 0);
    }

    // The real editor is waited for, and the screen goes on when it was closed.
    void EditTheInput() {
        QWidget& varn = Screen("frmVarn");
        Control<QCheckBox>(varn, "chkInputFile").click();
        AwaitedProgram editor("editinp.exe");
        Click(varn, "cmdEdit");
        EXPECT_EQ(editor.Arguments(), Drives::HostPath(std::string(Project) + "FIRST.INP"));
        EXPECT_EQ(Control<QComboBox>(varn, "cmbVersion").count(), 2);
        Control<QCheckBox>(varn, "chkInputFile").click();
    }

    void ExportAll() {
        QWidget& varn = Screen("frmVarn");
        for (const auto& [item, kind] :
             {std::pair{"mnuDbs", "DBS"}, std::pair{"mnuXyz", "XYZ"}, std::pair{"mnuInu", "7Fit INU"},
              std::pair{"mnuKeld", "KELD TRG"}, std::pair{"MnuSta", "STA"}}) {
            Person.ExpectFile(std::string("Save ") + kind + " File", "");
            Person.ExpectMessageTitled("Finished");
            Choose(varn, item);
        }
        Click(varn, "cmdHome");
    }

    void UpdateTheDatabase() {
        Click(Screen("frmMain"), "cmdMain7");
        Click(Screen("frmDbOption"), "cmdUpdate");
        QWidget& update = Screen("frmDbUpdate");
        ChooseFolder(update, "DATABASE\\DAM\\NORTH\\");
        ChooseOption(update, "opt3dim");
        Person.ExpectFile("Open DBS File", std::string(Project) + "FIRST.DBS");
        Click(update, "cmdBrowse");
        Person.ExpectMessageTitled("Update Overview", Answer::Yes);
        Person.ExpectMessage("Update Complete", "Update complete");
        Click(update, "cmdUpdate");
        Click(update, "cmdGoBack");
    }

    void RetrieveInAllUnits() {
        Click(Screen("frmDbOption"), "cmdRetrieve");
        QWidget& retrieve = Screen("frmDbRetrieve");
        ChooseFolder(retrieve, "DATABASE\\DAM\\NORTH\\");
        for (const char* option : {"opt3dim", "optCurrent"})
            ChooseOption(retrieve, option);
        for (const char* unit : {"optMeters", "optInches", "optFeet"}) {
            ChooseOption(retrieve, unit);
            Click(retrieve, "cmdRetrieve");
            EXPECT_EQ(TextOf(retrieve, "lblOutputFile"), "C:\\TARVEX\\TEMP\\3DIM.OUT");
        }
        Person.ExpectFile("Save 3D File", "D:\\TARVEX\\COPY.OUT");
        Click(retrieve, "cmdCopy");
        EXPECT_EQ(FileContent("D:\\TARVEX\\COPY.OUT"), FileContent("C:\\TARVEX\\TEMP\\3DIM.OUT"));
        Person.ExpectMessageTitled("Printing Complete");
        Click(retrieve, "cmdPrint");
        const auto pages = Server.PrintedPages("Pages");
        ASSERT_FALSE(pages.empty());
        EXPECT_THAT(pages[0], Contains(testing::HasSubstr("Units    : feet")));
        Click(retrieve, "cmdHome");
    }

    // The next input takes its approximate coordinates from the database.
    void CreateASecondInput() {
        Click(Screen("frmMain"), "cmdMain4");
        QWidget& input = Screen("frmInput");
        Person.ExpectFile("Open Project File", "D:\\TARVEX\\ROAD.gpf");
        Choose(input, "mnuOpenProject");
        EXPECT_EQ(TextOf(input, "txtTask"), "DAM.GSI");
        ClickItem(input, "lstCoordDirectorys", "DAM\\NORTH");
        ClickItem(input, "lstCoordTypes", "3 Dimensional");
        CreateTheInput("SECOND");
        Person.ExpectMessageTitled("Project Not Saved", Answer::No);
        Click(input, "cmdHome");
    }

    /// Walks the same road without screens, in a process of its own, and returns its data drive.
    std::string RoadWithoutScreens() {
        const std::string site = Site.HostFolder() + "/road";
        std::filesystem::create_directories(site);
        const std::string command =
            DORVANE_FOLDER "/Programs/ROAD.EXE '" + site + "' > '" + site + "/told' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << HostContent(site + "/told");
        return site + "/drives";
    }

    // The listing names its input where it lies on the host; that of the run that wrote the parameter file
    // says so, and the operator's was not the first.
    std::string WithoutPlaces(const std::string& text) const {
        static const QRegularExpression place(R"(/\S*/d:)");
        return QString::fromStdString(WithoutMoments(text))
            .replace(place, "<drive>")
            .remove(", written with its defaults")
            .toStdString();
    }

    void CompareWith(const std::string& drives) {
        const std::string project = drives + "/d:/TARVEX/DAM/NORTH/ADJUST/SRV01/";
        for (const char* name :
             {"FIRST.INP", "FIRST.ORG", "FIRST.SUM", "FIRST.VER", "FIRST.OUT", "FIRST.DBS", "FIRST.XYZ",
              "FIRST.INU", "FIRST.TRG", "FIRST.STA", "FIRST.PAR", "SECOND.INP"})
            EXPECT_EQ(WithoutPlaces(FileContent(std::string(Project) + name)),
                      WithoutPlaces(HostContent(project + name)))
                << name;
        const std::string survey = drives + "/d:/TARVEX/DAM/NORTH/TOTAL/SRV01/";
        for (const char* name : {"DAM.GSI", "SRV01.IDX", "TOTAL.RES"})
            EXPECT_EQ(WithoutMoments(FileContent(std::string(Survey) + name)),
                      WithoutMoments(HostContent(survey + name)))
                << name;
        for (const auto& entry : std::filesystem::directory_iterator(drives + "/d:/TARVEX/COORD/NORTH")) {
            const std::string name = entry.path().filename();
            EXPECT_EQ(WithoutMoments(FileContent("D:\\TARVEX\\COORD\\NORTH\\" + name)),
                      WithoutMoments(HostContent(entry.path())))
                << name;
        }
        EXPECT_EQ(WithoutMoments(FileContent("C:\\TARVEX\\TEMP\\3DIM.OUT")),
                  WithoutMoments(HostContent(drives + "/c:/TARVEX/TEMP/3DIM.OUT")));
    }

    PrintServer Server;
};

TEST_P(WholeRoad, ThroughTheScreensEndsInTheFilesOfTheRoadWithoutThem) {
    PrepareSite();
    UploadTheBook();
    ReduceTheBook();
    SetUpTheProject();
    ChangeAWeight();
    CreateTheInput("FIRST");
    Click(Screen("frmInput"), "cmdVarn");
    AdjustInAllTypes();
    AdjustAVersion();
    EditTheInput();
    ExportAll();
    UpdateTheDatabase();
    RetrieveInAllUnits();
    CreateASecondInput();
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_FALSE(FileExists(Global().ProgramFolder + "ERROR.LOG"));
    CompareWith(RoadWithoutScreens());
}

INSTANTIATE_TEST_SUITE_P(FoldersChosen, WholeRoad, testing::Values(1, 2));

}  // namespace Dorvane
