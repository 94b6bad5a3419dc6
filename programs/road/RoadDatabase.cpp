// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>

#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/Retrieval.h"
#include "database/Update3D.h"
#include "programs/road/RoadWalk.h"

namespace Dorvane::Road {

namespace {

std::string LocationKey(const Walk& walk) {
    return "DATABASE\\" + walk.Root + "\\" + walk.Location + "\\";
}

void PrintHead(Walk& walk, const std::string& path, int lines) {
    LineReader reader(path);
    for (int i = 0; i < lines && !reader.AtEnd(); ++i)
        walk.Out << "      | " << Utf8FromText(reader.ReadLine()) << "\n";
}

}  // namespace

void UpdateTheDatabase(Walk& walk) {
    walk.Step("The DBS file goes into the coordinate database behind a backup");
    UpdateForm form;
    form.lblDirectory = LocationKey(walk);
    walk.Screen.FileToOpen = walk.ProjectFolder + "FIRST.DBS";
    ClickBrowseUpdate(form);
    form.opt3dim = true;
    ClickUpdate(form);
    walk.Need(walk.Screen.LastTitle == "Update Complete", "the database was not updated");
    walk.Done();
}

void RetrieveInAllUnits(Walk& walk) {
    walk.Step("The coordinates are retrieved in meters, inches and feet");
    for (const char* unit : {"meters", "inches", "feet"}) {
        RetrieveForm form;
        form.lblDirectory = LocationKey(walk);
        form.opt3dim = true;
        form.optCurrent = true;
        form.optMeters = unit == std::string("meters");
        form.optInches = unit == std::string("inches");
        form.optFeet = unit == std::string("feet");
        std::string status;
        RetrieveView view;
        view.ShowStatus = [&status](const std::string& text) { status = text; };
        ClickRetrieve(form, view);
        walk.Need(status == "Retreival Complete" && FileExists(form.lblOutputFile), "nothing was retrieved");
        walk.Say(std::string(unit) + ": " + form.lblOutputFile);
        PrintHead(walk, form.lblOutputFile, 12);
    }
    walk.Done();
}

}  // namespace Dorvane::Road
