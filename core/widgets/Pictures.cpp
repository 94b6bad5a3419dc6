// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Pictures.h"

#include <QAbstractButton>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int InvalidPicture = 481;

std::string WithoutExtension(const std::string& name) {
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? name : name.substr(0, point);
}

}  // namespace

std::string PictureFile(const std::string& name) {
    if (name.empty())
        return "";
    const std::string folder = AppPath() + "graphics\\";
    for (const std::string& file : {folder + name, folder + WithoutExtension(name) + ".svg"})
        if (FileExists(file))
            return file;
    return "";
}

QIcon LoadPicture(const std::string& name) {
    const std::string file = PictureFile(name);
    if (file.empty())
        throw RunTimeError(FileNotFound, AppPath() + "graphics\\" + name);
    const QIcon picture(QString::fromStdString(Drives::HostPath(file)));
    if (picture.pixmap(16, 16).isNull())
        throw RunTimeError(InvalidPicture, file);
    return picture;
}

void SetOptionalPicture(QAbstractButton& button, const std::string& name) {
    if (!PictureFile(name).empty())
        button.setIcon(LoadPicture(name));
}

}  // namespace Dorvane
