// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/TypePictures.h"

#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"

namespace Dorvane {

namespace {

// The small folders of the tree are drawn from the same files as the large ones.
std::string FileOf(const std::string& name) {
    return name == "sclsfolder" || name == "sopnfolder" ? name.substr(1) + ".svg" : name;
}

}  // namespace

const QIcon& TypePictures::Of(const std::string& name, const std::string& expanded) {
    const std::string key = name + ">" + expanded;
    if (const auto found = Loaded.find(key); found != Loaded.end())
        return found->second;
    return Loaded[key] = Load(name, expanded);
}

QIcon TypePictures::Load(const std::string& name, const std::string& expanded) const {
    QIcon picture;
    if (!name.empty())
        Guarded(Procedure, [&](Guard&) { picture = LoadPicture(FileOf(name)); });
    if (!expanded.empty())
        Guarded(Procedure, [&](Guard&) {
            LoadPicture(FileOf(expanded));
            const std::string open = Drives::HostPath(PictureFile(FileOf(expanded)));
            picture.addFile(QString::fromStdString(open), {}, QIcon::Normal, QIcon::On);
        });
    return picture;
}

}  // namespace Dorvane
