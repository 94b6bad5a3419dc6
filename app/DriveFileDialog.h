// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <QList>
#include <QUrl>
#include <string>

#include "core/Desktop.h"

class QComboBox;

namespace Dorvane {

/// A file dialog that speaks drive paths: drives at its side, the drive path of the folder at its top, and
/// names typed with or without a drive, found ignoring case. With flag 256 it chooses a folder: the files are
/// shown and cannot be chosen, and the answer is the proposed name in the chosen folder. Without a title it
/// bears one made of its purpose and its filter.
class DriveFileDialog : public QFileDialog {
    Q_OBJECT

  public:
    DriveFileDialog(const FileDialog& dialog, QWidget* parent);
    ~DriveFileDialog() override;

    /// The drive path of the chosen file, or of the proposed name in the chosen folder, once the dialog was
    /// accepted.
    std::string ChosenPath() const;

  protected:
    void accept() override;

  private:
    void SetUpDrives();
    void SetUpFilters(const FileDialog& dialog);
    void SetUpFolderList();
    void SetUpRoom();
    void GoToStart(const FileDialog& dialog);
    void ShowFolder();
    void SetUpFolderChoice();
    void ShowChosenFolder();
    void ChooseFolder(const QString& typed);
    QString HostNameOf(const QString& typed) const;

    bool ChoosesFolder;
    QString Proposed;
    std::string ChosenFolder;
    QComboBox* Folders = nullptr;
    QList<QUrl> FormerSides;
};

}  // namespace Dorvane
