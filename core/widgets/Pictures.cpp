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

std::vector<std::string> ExistingFiles(const std::string& name) {
    std::vector<std::string> files;
    const std::string folder = AppPath() + "graphics\\";
    const std::string drawing = folder + WithoutExtension(name) + ".svg";
    for (const std::string& file : {folder + name, drawing})
        if (!name.empty() && FileExists(file) && (files.empty() || files.front() != file))
            files.push_back(file);
    return files;
}

}  // namespace

std::string PictureFile(const std::string& name) {
    const std::vector<std::string> files = ExistingFiles(name);
    return files.empty() ? "" : files.front();
}

std::vector<std::string> PictureFiles(const std::string& name) {
    std::vector<std::string> files = ExistingFiles(name);
    if (files.empty())
        throw RunTimeError(FileNotFound, AppPath() + "graphics\\" + name);
    return files;
}

QIcon LoadPicture(const std::string& name) {
    const std::vector<std::string> files = PictureFiles(name);
    for (const std::string& file : files) {
        const QIcon picture(QString::fromStdString(Drives::HostPath(file)));
        if (!picture.pixmap(16, 16).isNull())
            return picture;
    }
    throw RunTimeError(InvalidPicture, files.front());
}

void SetOptionalPicture(QAbstractButton& button, const std::string& name) {
    if (!PictureFile(name).empty())
        button.setIcon(LoadPicture(name));
}

}  // namespace Dorvane
