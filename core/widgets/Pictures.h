// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>
#include <string>
#include <vector>

class QAbstractButton;

// The pictures in graphics\ below the program's folder. A picture is known by a bare file name. Where no file
// of that name lies there but a drawing of the same base name ("trashfull.ico", "trashfull.svg"), the drawing
// is taken, so a site can lay its own picture over ours under the name that the system has always used. It is
// taken, too, where the host cannot show the site's own: an AVI, or an icon of an unknown kind.
namespace Dorvane {

/// The drive path of a picture; empty when there is none.
std::string PictureFile(const std::string& name);

/// The drive paths of a picture and of the drawing that stands in for it, as far as they are there. Error 53
/// when none is.
std::vector<std::string> PictureFiles(const std::string& name);

/// The picture, crisp at every scaling. Error 53 when there is none, 481 when neither it nor its drawing can
/// be read as a picture.
QIcon LoadPicture(const std::string& name);

/// Gives a button its picture when the name is not empty and there is such a picture; else it stays as it is.
void SetOptionalPicture(QAbstractButton& button, const std::string& name);

}  // namespace Dorvane
