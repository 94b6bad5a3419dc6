// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>
#include <utility>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/Retrieval.h"
#include "datatree/GuardedReader.h"

namespace Dorvane {

namespace {

struct CopyFilter {
    const char* ResultFile;
    const char* Filter;
    const char* Extension;
};

// No result file is named "MOUNUMENT.OUT": monuments are meant to fall to the filter of all files.
constexpr CopyFilter CopyFilters[] = {
    {"3DIM.OUT", "All Files (*.*)|*.*|3D Files(*.3D)|*.3D", ".3D"},
    {"MOUNUMENT.OUT", "All Files (*.*)|*.*|2D Files(*.2D)|*.2D", ".2D"},
    {"BNCHMARK.OUT", "All Files (*.*)|*.*|1D Files(*.1D)|*.1D", ".1D"},
    {"IDEALS.OUT", "All Files (*.*)|*.*|ID Files(*.ID)|*.ID", ".ID"},
};

// The copy is proposed under the location's name, since all locations share the result file.
FileDialog CopyDialog(const RetrieveForm& form) {
    const std::string name = LocationOfKey(form.lblDirectory);
    FileDialog dialog;
    dialog.Purpose = FileDialog::Kind::Save;
    dialog.Folder = Global().Temp_path;
    dialog.Filter = "All Files (*.*)|*.*";
    dialog.FilterIndex = 1;
    dialog.Flags = 4;
    dialog.FileName = name + ".2D";  // only monuments have no filter of their own
    for (const CopyFilter& filter : CopyFilters) {
        if (!Contains(form.lblOutputFile, filter.ResultFile))
            continue;
        dialog.Filter = filter.Filter;
        dialog.FilterIndex = 2;
        dialog.FileName = name + filter.Extension;
        break;
    }
    return dialog;
}

bool MayWrite(const std::string& file) {
    if (!FileExists(file))
        return true;
    const Message question{"File " + file + " already exists.  Do you wish to overwrite?",
                           "File Already Exists", Icon::Question, Buttons::YesNo};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

std::unique_ptr<FileMeter> MeterOf(const RetrieveView& view) {
    return view.CopyMeter ? view.CopyMeter() : std::make_unique<FileMeter>();
}

}  // namespace

void ClickEditOutput(const RetrieveForm& form) {
    Guarded("frmDbRetrieve-cmdEdit_Click", [&](Guard& guard) {
        if (!FileExists(form.lblOutputFile))
            return;
        const GeneralEditor editor = ReadGeneralEditor();
        if (editor.Path.empty() || editor.Name.empty()) {
            TheDesktop().ShowMessage(
                {"No editor found in INI file.  Can not edit file.", "Editor Not Found", Icon::Exclamation});
            return;
        }
        guard.Run([&] { TheDesktop().StartProgram(editor.Program() + " " + form.lblOutputFile); });
    });
}

void ClickPrintOutput(const RetrieveForm& form) {
    Guarded("frmDbRetrieve-cmdPrint_Click", [&](Guard& guard) {
        GuardedReader file(guard, form.lblOutputFile);
        const std::unique_ptr<PrintJob> job = TheDesktop().BeginPrint("Courier", 12);
        while (!file.AtEnd())
            job->Line("     " + file.ReadLine());
        job->End();
        TheDesktop().ShowMessage(
            {"Output file " + form.lblOutputFile + " sent to printer.", "Printing Complete"});
    });
}

void ClickCopyOutput(const RetrieveForm& form, const RetrieveView& view) {
    Guarded("frmDbRetrieve-cmdCopy_Click", [&](Guard& guard) {
        const std::optional<std::string> file = TheDesktop().AskFile(CopyDialog(form));
        if (!file || !MayWrite(*file))
            return;
        {
            const std::unique_ptr<FileMeter> meter = MeterOf(view);
            OpenMeter open(*meter, 1);
            open.Begin(form.lblOutputFile, *file);
            guard.Run([&] { Drives::CopyFile(form.lblOutputFile, *file); });
            open.Advance(1);
        }
        if (view.ShowStatus)
            view.ShowStatus(*file + " copied");
    });
}

}  // namespace Dorvane
