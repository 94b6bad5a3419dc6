// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CreateInput.h"

#include "core/FileThere.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/GatherData.h"
#include "input/ImportFolder.h"
#include "input/InputContents.h"
#include "input/InputTypes.h"
#include "input/InputWriter.h"
#include "input/SummaryFile.h"
#include "input/UserDbFiles.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* NotWritten = "Input file NOT written";

bool MayOverwrite(const std::string& name) {
    const Message question{
        .Text = "File " + name + ".INP already exists in the choosen path!  Do you wish to overwrite?",
        .Title = "File Exists",
        .Picture = Icon::Question,
        .Choices = Buttons::YesNo,
        .Default = Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

// Composes the four files under a name in the chosen folder and puts them in their places together; only then
// they are the files in hand. False when one could not be written, which has been told.
bool WriteFiles(Guard& guard, InputScreen& screen, const InputServices& services,
                const std::string& inputName) {
    const std::string& folder = screen.lblDirectory;
    const std::string name = BeforeFirstPoint(inputName);
    const ObservationModel& model = screen.Model;
    InputFiles files;
    if (!WriteInputHeader(files, folder, inputName, name + ".ORG", screen.txtProject, screen.txtTask)) {
        services.ShowStatus("Error writing header to input file");
        ShowWarning("Problem writing header to input file.  Can not continue.", "Error Writing Input File");
        return false;
    }
    if (!WriteSummaryHeader(files, folder, inputName, model.Points, screen.txtProject, screen.txtTask)) {
        services.ShowStatus(NotWritten);
        return false;
    }
    TheDesktop().YieldEvents();
    WriteInputSections(files, model);
    WriteVersionSkeleton(files, folder + name + ".VER");
    TheDesktop().YieldEvents();
    CloseInputFiles(guard, files);
    screen.lblFileName = inputName;
    screen.FileFolder = folder;
    screen.Contents = DescribeInput(model, folder, inputName);
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
    const bool written = WriteFiles(guard, screen, services, inputName);
    services.ShowAnimation(false);
    if (!written)
        return;
    services.ShowHourglass(false);
    services.ShowStatus("Input file completed");
    ShowInformation("Input file completed", "Input File Creation");
    screen.cmdEditEnabled = true;
    screen.cmdPrintEnabled = screen.cmdPrintEnabled || Global().PrinterPresent;
}

}  // namespace

void CreateInputFile(InputScreen& screen, const InputServices& services) {
    const bool ended =
        Guarded("frmInput-cmdCreate_Click", [&](Guard& guard) { Create(guard, screen, services); });
    if (!ended) {
        services.ShowAnimation(false);
        services.ShowStatus(NotWritten);
    }
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
        const std::optional<std::string> folder = ChooseFolder(
            services, "VARN input file location", ProposePath(LastTreePath(), "ADJUST"), "VarnInput");
        if (!folder)
            return;  // the folder shown may be one of reduced data, where no input belongs
        screen.lblDirectory = *folder;
        ready = !folder->empty();
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
        if (!Drives::IsFile(folder + name + ".INP") || MayOverwrite(name))
            return name + ".INP";
    }
}

}  // namespace Dorvane
