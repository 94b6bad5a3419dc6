// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DriveFileDialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int NoValidation = 256;

// "Save DBS File" for the filter "DBS Files(*.dbs)".
QString DefaultTitle(const FileDialog& dialog) {
    const QStringList parts = ToScreen(dialog.Filter).split(QLatin1Char('|'));
    QString kind = parts.value(2 * (dialog.FilterIndex - 1)).section(QLatin1Char('('), 0, 0).trimmed();
    if (kind.startsWith(QLatin1String("All ")))
        kind = kind.mid(4);
    if (kind.endsWith(QLatin1String("Files")))
        kind.chop(1);
    if (kind.isEmpty())
        kind = QStringLiteral("File");
    const bool save = dialog.Purpose == FileDialog::Kind::Save;
    return (save ? QStringLiteral("Save ") : QStringLiteral("Open ")) + kind;
}

QString HostFolder(const std::string& path) {
    return QString::fromStdString(Drives::HostPath(path));
}

std::string DriveFolder(const QString& hostFolder) {
    std::string path = Drives::DrivePath(QDir::cleanPath(hostFolder).toStdString());
    if (path.empty() || path.back() != '\\')
        path += '\\';
    return path;
}

std::string RootOf(char letter) {
    return std::string(1, letter) + ":\\";
}

// The patterns of a filter in the toolkit's writing: every file also has those without a point.
QString ToolkitPatterns(const QString& patterns) {
    QStringList names;
    for (const QString& pattern : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        names += pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed();
    return names.join(QLatin1Char(' '));
}

// The folder itself or, where it is gone, the nearest one above it; empty when even its drive is gone.
std::string NearestFolder(std::string folder) {
    while (!folder.empty() && !FolderExists(folder)) {
        folder.pop_back();
        const std::size_t slash = folder.find_last_of('\\');
        folder = slash == std::string::npos ? "" : folder.substr(0, slash + 1);
    }
    return folder;
}

}  // namespace

DriveFileDialog::DriveFileDialog(const FileDialog& dialog, QWidget* parent)
    : QFileDialog(parent), ChoosesFolder((dialog.Flags & NoValidation) != 0) {
    setOptions(DontUseNativeDialog | DontConfirmOverwrite | HideNameFilterDetails);
    setWindowTitle(dialog.Title.empty() ? DefaultTitle(dialog) : ToScreen(dialog.Title));
    const bool save = dialog.Purpose == FileDialog::Kind::Save;
    setAcceptMode(save ? AcceptSave : AcceptOpen);
    setFileMode(ChoosesFolder ? Directory : save ? AnyFile : ExistingFile);
    SetUpDrives();
    SetUpFilters(dialog);
    SetUpFolderList();
    SetUpRoom();
    if (ChoosesFolder)
        SetUpFolderChoice();
    GoToStart(dialog);
}

DriveFileDialog::~DriveFileDialog() {
    // The toolkit keeps the places at the side for the dialogs of other programs.
    setSidebarUrls(FormerSides);
}

void DriveFileDialog::SetUpDrives() {
    FormerSides = sidebarUrls();
    QList<QUrl> drives;
    for (const char letter : Drives::DriveLetters())
        drives += QUrl::fromLocalFile(HostFolder(RootOf(letter)));
    setSidebarUrls(drives);
}

void DriveFileDialog::SetUpFilters(const FileDialog& dialog) {
    const QStringList parts = ToScreen(dialog.Filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i] + QStringLiteral(" (") + ToolkitPatterns(parts[i + 1]) + QLatin1Char(')');
    if (filters.isEmpty())
        return;
    setNameFilters(filters);
    if (dialog.FilterIndex >= 1 && dialog.FilterIndex <= filters.size())
        selectNameFilter(filters[dialog.FilterIndex - 1]);
}

// In place of the toolkit's list of the folders above, which holds host paths.
void DriveFileDialog::SetUpFolderList() {
    auto* hostFolders = findChild<QComboBox*>(QStringLiteral("lookInCombo"));
    if (hostFolders == nullptr || hostFolders->parentWidget() == nullptr)
        return;
    Folders = new QComboBox(hostFolders->parentWidget());
    Folders->setObjectName(QStringLiteral("cmbFolders"));
    Folders->setSizePolicy(hostFolders->sizePolicy());
    Folders->setToolTip(tr("The folder shown, the folders above it and the drives"));
    delete layout()->replaceWidget(hostFolders, Folders, Qt::FindChildrenRecursively);
    hostFolders->hide();
    connect(this, &QFileDialog::directoryEntered, this, [this] { ShowFolder(); });
    connect(Folders, &QComboBox::activated, this, [this](int index) {
        setDirectory(Folders->itemData(index).toString());
        ShowFolder();
    });
}

// Room for a name of usual length beside a whole date.
void DriveFileDialog::SetUpRoom() {
    const int letter = fontMetrics().averageCharWidth();
    resize(size().expandedTo({letter * 125, fontMetrics().lineSpacing() * 32}));
    if (auto* list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
        constexpr int Name = 0;
        constexpr int Date = 3;
        list->sortByColumn(Name, Qt::AscendingOrder);
        list->header()->resizeSection(Name, letter * 46);
        list->header()->resizeSection(Date, letter * 28);
    }
}

// Files are told from folders by their grey: no name of a file matches.
void DriveFileDialog::SetUpFolderChoice() {
    if (auto* files = findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"))) {
        files->setNameFilters({QStringLiteral("/")});
        files->setNameFilterDisables(true);
    }
    for (const char* name : {"fileTypeLabel", "fileTypeCombo"})
        if (auto* control = findChild<QWidget*>(QLatin1String(name)))
            control->hide();
    setLabelText(FileName, tr("&Folder:"));
    setLabelText(Accept, tr("&Choose"));
    // The toolkit does not know drive paths: it would complete them wrongly and switch the button off.
    const auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    disconnect(field, &QLineEdit::textChanged, this, nullptr);
    connect(field, &QLineEdit::textChanged, this, [this] {
        if (auto* buttons = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox")))
            buttons->button(QDialogButtonBox::Open)->setEnabled(true);
    });
    // The toolkit tells the field of a folder only when what is marked changes, and the first one may be
    // marked already.
    for (const char* name : {"listView", "treeView"})
        if (const auto* list = findChild<QAbstractItemView*>(QLatin1String(name)))
            connect(list, &QAbstractItemView::clicked, this, [this](const QModelIndex& item) {
                auto* marked = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                if (marked != nullptr && (item.flags() & Qt::ItemIsEnabled) != 0)  // and so no file
                    marked->setText(item.siblingAtColumn(0).data().toString());
            });
    // The toolkit empties the field when it has entered a folder.
    connect(
        this, &QFileDialog::directoryEntered, this, [this] { ShowChosenFolder(); }, Qt::QueuedConnection);
}

void DriveFileDialog::ShowChosenFolder() {
    if (auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        field->setText(ToScreen(DriveFolder(directory().absolutePath())));
        field->selectAll();
    }
}

void DriveFileDialog::GoToStart(const FileDialog& dialog) {
    std::string folder = dialog.Folder;
    std::string name = dialog.FileName;
    const std::size_t slash = name.find_last_of('\\');
    if (slash != std::string::npos) {
        folder = name.substr(0, slash + 1);
        name = name.substr(slash + 1);
    }
    Proposed = ToScreen(name);
    folder = NearestFolder(folder);
    const std::string drives = Drives::DriveLetters();
    if (folder.empty() && !drives.empty())
        folder = RootOf(drives.front());
    if (!folder.empty())
        setDirectory(HostFolder(folder));
    ShowFolder();
    if (auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        field->setText(Proposed);
        field->selectAll();
        field->setFocus();
    }
    if (ChoosesFolder)
        ShowChosenFolder();
}

void DriveFileDialog::ShowFolder() {
    if (Folders == nullptr)
        return;
    Folders->clear();
    std::string folder = DriveFolder(directory().absolutePath());
    while (!folder.empty()) {
        Folders->addItem(ToScreen(folder), HostFolder(folder));
        folder.pop_back();
        folder.erase(folder.find_last_of('\\') + 1);
    }
    const char own = FromScreen(Folders->itemText(0)).front();
    for (const char letter : Drives::DriveLetters())
        if (letter != own)
            Folders->addItem(ToScreen(RootOf(letter)), HostFolder(RootOf(letter)));
    Folders->setCurrentIndex(0);
}

QString DriveFileDialog::HostNameOf(const QString& typed) const {
    std::string path = FromScreen(typed);
    const bool hasDrive = path.size() >= 2 && path[1] == ':';
    if (typed.startsWith(QLatin1Char('/')) || typed.startsWith(QLatin1Char('~')))
        return typed;
    if (hasDrive && path.size() == 2)
        path += '\\';
    if (!hasDrive)
        path = path.front() == '\\' ? DriveFolder(directory().absolutePath()).substr(0, 2) + path
                                    : DriveFolder(directory().absolutePath()) + path;
    try {
        return QString::fromStdString(Drives::HostPath(path));
    } catch (const RunTimeError&) {
        return typed;  // no name of ours: the dialog says what it finds
    }
}

void DriveFileDialog::ChooseFolder(const QString& typed) {
    const QString host = typed.isEmpty() ? directory().absolutePath() : HostNameOf(typed);
    if (QFileInfo(host).isDir()) {
        ChosenFolder = DriveFolder(host);
        return QDialog::accept();
    }
    QMessageBox box(QMessageBox::Warning, windowTitle(), typed + tr("\nThere is no such folder."),
                    QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void DriveFileDialog::accept() {
    auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (ChoosesFolder)
        return ChooseFolder(field == nullptr ? QString() : field->text());
    if (field == nullptr || field->text().isEmpty())
        return QFileDialog::accept();
    const QString typed = field->text();
    const QString host = HostNameOf(typed);
    if (QFileInfo(host).isDir()) {
        setDirectory(host);
        emit directoryEntered(host);
        field->setText(Proposed);
        return;
    }
    field->setText(host);
    QFileDialog::accept();
    if (result() != Accepted)
        field->setText(typed);
}

std::string DriveFileDialog::ChosenPath() const {
    if (ChoosesFolder)
        return ChosenFolder + FromScreen(Proposed);
    const QStringList files = selectedFiles();
    return files.isEmpty() ? "" : Drives::DrivePath(files.first().toStdString());
}

}  // namespace Dorvane
