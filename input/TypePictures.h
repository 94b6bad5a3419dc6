// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <map>
#include <string>

namespace Dorvane {

/// The pictures of the input types and of their folders, each loaded once. One that is missing is reported
/// once and leaves its place empty; an entry without the name of a picture has none.
class TypePictures {
  public:
    /// `procedure` is what failures are reported as.
    explicit TypePictures(const char* procedure) : Procedure(procedure) {}

    /// The picture of a file name, or of one of the tree's own: "sclsfolder" and, when open, "sopnfolder".
    const QIcon& Of(const std::string& name, const std::string& expanded = "");

  private:
    QIcon Load(const std::string& name, const std::string& expanded) const;

    const char* Procedure;
    std::map<std::string, QIcon> Loaded;
};

}  // namespace Dorvane
