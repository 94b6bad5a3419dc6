// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/LocationTree.h"

#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "database/Retrieval.h"
#include "datatree/DirectoryTree.h"

namespace Dorvane {

void FillLocationTree(DirectoryTree& trvDirectory, const char* procedure) {
    QIcon folder;
    Guarded(procedure, [&](Guard&) { folder = LoadPicture("clsfolder.svg"); });
    Guarded(procedure, [&](Guard&) {
        LoadPicture("opnfolder.svg");
        folder.addFile(QString::fromStdString(Drives::HostPath(PictureFile("opnfolder.svg"))), {},
                       QIcon::Normal, QIcon::On);
    });
    TreeModel locations;
    Guarded(procedure, [&](Guard&) { SetupDbaseTree(locations); });
    trvDirectory.Build(locations, folder);
    trvDirectory.Expand({locations.Nodes().front().Key});
}

}  // namespace Dorvane
