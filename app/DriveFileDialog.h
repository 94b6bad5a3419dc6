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
/// names typed with or without a drive, found ignoring case. With flag 256 it picks a folder, too: the
/// proposed name need not exist, and the button goes into a folder that is marked before it takes the one
/// that is open.
class DriveFileDialog : public QFileDialog {
    Q_OBJECT

  public:
    DriveFileDialog(const FileDialog& dialog, QWidget* parent);
    ~DriveFileDialog() override;

    /// The chosen file's drive path, once the dialog was accepted.
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
    bool EnterMarkedFolder();
    QString HostNameOf(const QString& typed) const;

    bool NamesNeedNotExist;
    QString Proposed;
    QComboBox* Folders = nullptr;
    QList<QUrl> FormerSides;
};

}  // namespace Dorvane
