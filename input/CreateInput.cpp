// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CreateInput.h"

#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/GatherData.h"
#include "input/ImportFolder.h"
#include "input/InputTypes.h"
#include "input/InputWriter.h"
#include "input/SummaryFile.h"
#include "input/UserDbFiles.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

bool MayOverwrite(const std::string& name) {
    const Message question{
        .Text = "File " + name + ".INP already exists in the choosen path!  Do you wish to overwrite?",
        .Title = "File Exists",
        .Picture = Icon::Question,
        .Choices = Buttons::YesNo,
        .Default = Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

// Writes the input file, its master and the summary under a name in the chosen folder. False when their
// headers could not be written, which has been told.
bool WriteFiles(Guard& guard, InputScreen& screen, const InputServices& services,
                const std::string& inputName) {
    const std::string& folder = screen.lblDirectory;
    const ObservationModel& model = screen.Model;
    const std::string orgName = BeforeFirstPoint(inputName) + ".ORG";
    InputFiles files;
    if (!WriteInputHeader(files, folder, inputName, orgName, screen.txtProject, screen.txtTask)) {
        services.ShowStatus("Error writing header to input file");
        ShowWarning("Problem writing header to input file.  Can not continue.", "Error Writing Input File");
        return false;
    }
    WriteSummaryHeader(folder, inputName, model.Points, screen.txtProject, screen.txtTask);
    TheDesktop().YieldEvents();
    screen.lblFileName = inputName;
    WriteInputSections(files, model);
    TheDesktop().YieldEvents();
    CloseInputFiles(guard, files);
    return true;
}

void Create(Guard& guard, InputScreen& screen, const InputServices& services) {
    const ObservationModel& model = screen.Model;
    services.ShowHourglass(true);
    SaveUserDbList(screen.lstUserDBFiles);
    GatherData(screen, services);
    if (!SetupCreateInput(screen, services, model.Points.Count(), model.Stations.Count())) {
        services.ShowStatus("No data");
        return;
    }
    services.ShowAnimation(true);
    const std::string inputName = GetInputFileName(screen.lblDirectory);
    if (inputName.empty())
        return;  // the animation stays on; meant
    if (!WriteFiles(guard, screen, services, inputName))
        return;
    services.ShowAnimation(false);
    services.ShowHourglass(false);
    services.ShowStatus("Input file completed");
    ShowInformation("Input file completed", "Input File Creation");
    screen.cmdEditEnabled = true;
    screen.cmdPrintEnabled = screen.cmdPrintEnabled || Global().PrinterPresent;
    const std::string versionPath = screen.lblDirectory + BeforeFirstPoint(inputName) + ".VER";
    guard.Run([&] { WriteVersionSkeleton(versionPath); });
}

}  // namespace

void CreateInputFile(InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-cmdCreate_Click", [&](Guard& guard) { Create(guard, screen, services); });
    services.ShowHourglass(false);
    EmptyModel(screen.Model);
}

bool SetupCreateInput(InputScreen& screen, const InputServices& services, std::int16_t pointCount,
                      std::int16_t stationCount) {
    bool ready = false;
    Guarded("basInput-SetupCreateInput", [&](Guard&) {
        if (pointCount == 0 && stationCount == 0) {
            TheDesktop().ShowMessage({.Text = "No observation data exists!  You must first import it!",
                                      .Title = "No Observation Data",
                                      .Picture = Icon::Stop});
            return;
        }
        services.ShowStatus("Creating VARN input file");
        const std::string caption = "VARN input file location";
        if (Global().Path_type == 1) {
            const std::string lastPath = LastTreePath();
            services.PickFolder(caption, ProposePath(lastPath, "ADJUST"), screen.lblDirectory);
        } else {
            const std::string lastPath = LastManualPath();
            const std::string folder = BrowseForFolder(lastPath, "VarnInput", caption);
            if (!folder.empty())
                screen.lblDirectory = folder;
        }
        ready = !screen.lblDirectory.empty();
    });
    return ready;
}

std::string GetInputFileName(const std::string& folder) {
    std::string name;
    for (;;) {
        const std::optional<std::string> answer =
            TheDesktop().AskText("Enter VARN input file name", "Enter Input File Name", name);
        name = BeforeFirstPoint(UpperCase(Trim(answer.value_or(""))));
        if (name.empty())
            return "";
        if (!FileExists(folder + name + ".INP") || MayOverwrite(name))
            return name + ".INP";
    }
}

}  // namespace Dorvane
