// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/Globals.h"
#include "core/Host.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane::Drives {

namespace {

bool EndsWith(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

std::string LinkOf(char letter) {
    return Global().DrivesFolder + static_cast<char>(letter | 0x20) + ":";
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool DriveIsThere(char letter) {
    return Host::PathsAreDrivePaths() ? Host::Inspect(std::string(1, letter) + ":\\").Exists
                                      : Host::Inspect(LinkOf(letter)).IsFolder;
}

// The host names in `folder` that a name of ours stands for: the one spelled alike, else the first that is
// equal ignoring case. A "?" that stands for a character outside the code page is found this way, too.
std::optional<std::string> HostNameIn(const std::string& folder, const std::string& name) {
    std::string exact = Utf8FromText(name);
    if (Host::Inspect(folder + exact).Exists)
        return exact;
    if (!Host::Inspect(folder).IsFolder)
        return std::nullopt;
    std::optional<std::string> found;
    for (const std::string& candidate : Host::FolderNames(folder))
        if (EqualIgnoringCase(TextFromUtf8(candidate), name) && (!found || candidate < *found))
            found = candidate;
    return found;
}

std::string FolderWhereWeAre() {
    return Global().CurrentDrive == 0 ? Host::WorkingFolder() + "/" : LinkOf(Global().CurrentDrive) + "/";
}

// The host folder at which a path begins; what follows it stays in `path`.
std::string StartOf(std::string_view& path) {
    if (path.size() >= 2 && path[1] == ':') {
        if (!IsLetter(path[0]))
            throw RunTimeError(BadFileName, std::string(path));
        if (!DriveIsThere(path[0]))
            throw RunTimeError(DeviceUnavailable, std::string(path));
        std::string start = LinkOf(path[0]) + "/";
        path.remove_prefix(2);
        return start;
    }
    if (!path.empty() && path.front() == '\\' && Global().CurrentDrive == 0)
        return LinkOf('Z') + "/";
    return FolderWhereWeAre();
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// Names that lead to a device on hosts with drive letters, whatever stands behind their first point.
bool IsDeviceName(std::string_view part) {
    std::string name = UpperCase(part.substr(0, part.find('.')));
    name.erase(name.find_last_not_of(' ') + 1);
    if (name.size() == 4 && (name.starts_with("COM") || name.starts_with("LPT")))
        return name[3] >= '1' && name[3] <= '9';
    return name == "CON" || name == "PRN" || name == "AUX" || name == "NUL";
}

// A name that no path may hold: it would lead elsewhere, or write a second line where it is noted.
void CheckCharacters(std::string_view path) {
    const bool legal = !path.empty() && path.find_first_of("<>|\"*?/") == std::string_view::npos &&
                       std::none_of(path.begin(), path.end(), IsControl);
    if (!legal)
        throw RunTimeError(BadFileName, std::string(path));
    for (std::string_view rest = path.substr(path.find(':') + 1); !rest.empty();) {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        if (IsDeviceName(rest.substr(0, end)))
            throw RunTimeError(BadFileName, std::string(path));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

// The folder above, which no path leaves the drive by: `start` is its root.
std::string Above(const std::string& host, const std::string& start) {
    const std::size_t slash = host.find_last_of('/', host.size() - 2);
    return host.size() <= start.size() || slash == std::string::npos ? start : host.substr(0, slash + 1);
}

bool LiesBelow(const std::string& path, const std::string& root) {
    return path.compare(0, root.size(), root) == 0 &&
           (path.size() == root.size() || path[root.size()] == '/');
}

std::string WithoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

bool BeginsWith(const std::string& path, const std::string& folder) {
    return EqualIgnoringCase(Left(path, static_cast<int>(folder.size())), folder);
}

// A link on the way to a folder that the profile names is the site's own, and so is one in a folder that the
// profile frees.
bool IsAllowed(const std::string& link) {
    const Globals& global = Global();
    for (const std::string* folder :
         {&global.Data_drive, &global.Calib_path, &global.Coord_path, &global.Init_path, &global.Param_path,
          &global.Temp_path, &global.Work_path, &global.Download_path})
        if (BeginsWith(*folder, link))
            return true;
    return std::any_of(global.LinkFolders->begin(), global.LinkFolders->end(),
                       [&](const std::string& folder) { return BeginsWith(link, folder); });
}

// Raises where a part is a link that leads nowhere or out of `root`, that of the drive or of the last link on
// the way, and the profile does not allow it. What lies behind such a link belongs to somebody else.
void CheckLink(const std::string& host, std::string& root) {
    if (!Global().LinkFolders || Host::LinkTarget(host).empty())
        return;
    const std::string target = WithoutTrailingSlash(Host::RealPath(host));
    root = WithoutTrailingSlash(Host::RealPath(root));
    if (root == "/" || (Host::Inspect(host).Exists && LiesBelow(target, root)))
        return;
    const std::string link = DrivePath(host);
    if (!IsAllowed(link + "\\")) {
        RunTimeError error(PermissionDenied);
        error.Description = link + " is a link that leads nowhere or out of its drive.";
        throw error;
    }
    root = target;
}

// `path` with "/" for its links, found part by part. Parts that are not there stand as given.
std::string FindParts(std::string host, std::string_view path) {
    const std::string start = host;
    std::string root = host;
    bool there = true;
    while (!path.empty()) {
        const std::size_t end = path.find('\\');
        const std::string part(path.substr(0, end));
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            host = Above(host, start);
            there = Host::Inspect(host).IsFolder;
            continue;
        }
        const std::optional<std::string> found = there ? HostNameIn(host, part) : std::nullopt;
        host += found.value_or(Utf8FromText(part));
        if (there)
            CheckLink(host, root);
        there = found.has_value();
        if (end != std::string_view::npos)
            host += '/';
    }
    return host;
}

// The drive that a host path lies on, and how much of the path leads there.
struct DrivePlace {
    char Letter = 'Z';
    std::size_t Length = 0;
};

// The drive whose link the path goes through as it stands, which also tells where a file is to be that is not
// there yet. The drive of the host's root names no place of its own.
std::optional<DrivePlace> PlaceByLink(const std::string& path) {
    for (const char letter : DriveLetters()) {
        const std::string link = LinkOf(letter);
        if (LiesBelow(path, link) && Host::RealPath(link) != "/")
            return DrivePlace{letter, link.size()};
    }
    return std::nullopt;
}

DrivePlace NearestDrive(const std::string& path) {
    DrivePlace nearest;
    for (const char letter : DriveLetters()) {
        const std::string root = Host::RealPath(LinkOf(letter));
        if (root != "/" && root.size() > nearest.Length && LiesBelow(path, root))
            nearest = {letter, root.size()};
    }
    return nearest;
}

// A star is tried again, one character further, where what stands behind it does not match; one star before
// it need never be, so the time grows with the two lengths and no faster.
bool MatchesFrom(std::string_view name, std::string_view pattern) {
    constexpr std::size_t none = std::string_view::npos;
    std::size_t at = 0;
    std::size_t star = none;
    std::size_t begin = 0;  // of what stands behind the star
    for (std::size_t sign = 0;;) {
        if (sign < pattern.size() && pattern[sign] == '*') {
            star = sign++;
            begin = at;
        } else if (sign == pattern.size() && at == name.size()) {
            return true;
        } else if (sign < pattern.size() && pattern[sign] == '?') {
            // Before a point or the end of the name a question mark stands for nothing, as DOS has it.
            at += at < name.size() && name[at] != '.' ? 1 : 0;
            ++sign;
        } else if (sign < pattern.size() && at < name.size() && name[at] == pattern[sign]) {
            ++at;
            ++sign;
        } else if (star == none || begin == name.size()) {
            return false;
        } else {
            at = ++begin;
            sign = star + 1;
        }
    }
}

Entry EntryOf(std::string name, const Host::FileInfo& info) {
    return {std::move(name), info.IsFolder, info.Size, info.Modified};
}

void LayOutDrives(const std::string& folder) {
    if (Host::Inspect(folder + "z:").Exists)
        return;
    std::string made;
    for (const char c : folder) {
        made += c;
        if (c == '/' && made.size() > 1 && !Host::Inspect(made).Exists)
            Host::CreateFolder(made);
    }
    for (const char* name : {"c:", "c:/WINDOWS", "c:/TEMP"})
        if (!Host::Inspect(folder + name).Exists)
            Host::CreateFolder(folder + name);
    Host::CreateLink(folder + "z:", "/");
}

}  // namespace

void Open() {
    const std::string named = Host::EnvironmentVariable("DORVANE_DRIVES");
    Open(named.empty() ? Host::UserDataFolder() + "drives" : named);
}

void Open(const std::string& hostFolder) {
    if (Host::PathsAreDrivePaths())
        return;
    std::string folder = WithoutTrailingSlash(hostFolder) + "/";
    if (folder.front() != '/')
        folder.insert(0, Host::WorkingFolder() + "/");
    LayOutDrives(folder);
    Global().DrivesFolder = folder;
}

std::string HostPath(std::string_view path) {
    if (Host::PathsAreDrivePaths())
        return Utf8FromText(path);
    CheckCharacters(path);
    if (Global().DrivesFolder.empty())
        Open();
    const bool folder = path.back() == '\\';
    std::string start = StartOf(path);
    const std::string host = FindParts(std::move(start), path);
    return folder ? WithoutTrailingSlash(host) + "/" : host;
}

std::string DrivePath(const std::string& hostPath) {
    if (Host::PathsAreDrivePaths())
        return TextFromUtf8(hostPath);
    if (Global().DrivesFolder.empty())
        Open();
    const bool folder = !hostPath.empty() && hostPath.back() == '/';
    std::string path = WithoutTrailingSlash(hostPath);
    std::optional<DrivePlace> place = PlaceByLink(path);
    if (!place) {
        path = Host::RealPath(path);
        place = NearestDrive(path);
    }
    std::string rest = TextFromUtf8(path.substr(place->Length));
    std::replace(rest.begin(), rest.end(), '/', '\\');
    if (rest.empty() || rest.front() != '\\')
        rest.insert(0, 1, '\\');
    if (folder && rest.back() != '\\')
        rest += '\\';
    return std::string(1, place->Letter) + ":" + rest;
}

std::string DriveLetters() {
    if (!Host::PathsAreDrivePaths() && Global().DrivesFolder.empty())
        Open();
    std::string letters;
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        if (DriveIsThere(letter))
            letters += letter;
    return letters;
}

bool HasDrive(char letter) {
    if (Host::PathsAreDrivePaths())
        return Host::DriveOrLinkIsThere(std::string(1, letter) + ":\\");
    if (Global().DrivesFolder.empty())
        Open();
    return Host::DriveOrLinkIsThere(LinkOf(letter));
}

void ChangeDrive(char letter) {
    if (!IsLetter(letter) || !DriveIsThere(letter))
        throw RunTimeError(DeviceUnavailable, std::string(1, letter) + ":");
    Global().CurrentDrive = static_cast<char>(letter & ~0x20);
}

std::string CurrentHostFolder() {
    return FolderWhereWeAre();
}

std::vector<Entry> List(std::string_view folder, std::string_view pattern) {
    const std::string host =
        folder.empty() ? FolderWhereWeAre() : WithoutTrailingSlash(HostPath(folder)) + "/";
    std::vector<Entry> entries;
    if (!Host::Inspect(host).IsFolder)
        return entries;
    for (const std::string& hostName : Host::FolderNames(host)) {
        std::string name = TextFromUtf8(hostName);
        if (!Matches(name, pattern) || EndsWith(name, Host::StagedEnding))
            continue;
        const Host::FileInfo info = Host::Inspect(host + hostName);
        std::replace_if(
            name.begin(), name.end(), [](char c) { return c == '\\' || IsControl(c); }, '?');
        if (info.Exists)
            entries.push_back(EntryOf(std::move(name), info));
    }
    std::vector<std::pair<std::string, std::size_t>> order;
    for (std::size_t i = 0; i < entries.size(); ++i)
        order.emplace_back(UpperCase(entries[i].Name), i);
    std::sort(order.begin(), order.end());
    std::vector<Entry> sorted;
    for (const auto& [key, i] : order)
        sorted.push_back(std::move(entries[i]));
    return sorted;
}

bool Matches(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*")
        return true;
    // Blanks at a pattern's end count for nothing, as the platform has it.
    return MatchesFrom(UpperCase(name), UpperCase(pattern.substr(0, pattern.find_last_not_of(' ') + 1)));
}

bool Find(std::string_view path, Entry& entry) {
    const std::string host = HostPath(path);
    const Host::FileInfo info = Host::Inspect(host);
    if (info.Exists) {
        const std::string name = WithoutTrailingSlash(host);
        entry = EntryOf(TextFromUtf8(name.substr(name.find_last_of('/') + 1)), info);
    }
    return info.Exists;
}

bool IsThere(std::string_view path) {
    return Host::Inspect(HostPath(path)).Exists;
}

std::string FolderPart(std::string_view path) {
    return std::string(path.substr(0, path.find_last_of('\\') + 1));
}

std::string ReadFile(std::string_view path) {
    return Host::ReadFile(HostPath(path));
}

std::int64_t FileLength(std::string_view path) {
    Entry entry;
    if (!Find(path, entry))
        throw RunTimeError(FileNotFound, std::string(path));
    return entry.Size;
}

PiecewiseFile::PiecewiseFile(std::string_view path) : Handle(Host::OpenPieces(HostPath(path))) {
    try {
        Bytes = FileLength(path);
    } catch (...) {
        Host::ClosePieces(Handle);
        throw;
    }
}

PiecewiseFile::~PiecewiseFile() {
    Host::ClosePieces(Handle);
}

std::string PiecewiseFile::Read(std::int64_t offset, std::size_t count) const {
    std::string bytes(count, '\0');
    bytes.resize(Host::ReadPiece(Handle, offset, bytes.data(), count));
    return bytes;
}

std::string ChangeMark(std::string_view path) {
    return Host::ChangeMark(Host::RealPath(HostPath(path)));
}

bool MayReplace(std::string_view path) {
    return Host::MayReplace(Host::RealPath(HostPath(path)));
}

void AppendFile(std::string_view path, std::string_view content) {
    Host::AppendFile(HostPath(path), content);
}

void WriteFile(std::string_view path, std::string_view content) {
    StagedFile file(path);
    file.Write(content);
    file.Commit();
}

void RenameFile(std::string_view from, std::string_view to) {
    const std::string source = HostPath(from);
    const std::string target = HostPath(to);
    if (Host::Inspect(target).Exists && source != target)
        throw RunTimeError(FileAlreadyExists, std::string(to));
    Host::Rename(source, target);
}

void DeleteFile(std::string_view path) {
    Host::Delete(HostPath(path));
}

void CreateFolder(std::string_view path) {
    Host::CreateFolder(WithoutTrailingSlash(HostPath(path)));
}

void PutInPlace(std::string_view staged, std::string_view path) {
    Host::Rename(HostPath(staged), Host::RealPath(HostPath(path)));
}

struct StagedFile::State {
    std::string Target;
    std::string Staged;
    std::intptr_t Handle = 0;
    bool Flushed = false;
    bool Committed = false;
};

StagedFile::StagedFile(std::string_view path) : Own(std::make_unique<State>()) {
    // A link to a file elsewhere is followed, so that the link stays and its file is replaced.
    Own->Target = Host::RealPath(HostPath(path));
    Own->Handle = Host::OpenStaged(Own->Staged, Own->Target);
}

StagedFile::~StagedFile() {
    Host::CloseStaged(Own->Handle);
    if (Own->Committed)
        return;
    try {
        Host::Delete(Own->Staged);
    } catch (const RunTimeError&) {
        // What could not be taken away is not listed either, and the next write replaces it.
    }
}

void StagedFile::Write(std::string_view content) {
    Own->Flushed = false;
    Host::WriteStaged(Own->Handle, content);
}

void StagedFile::TakeTimeOf(std::string_view path) {
    Host::CopyTimeStamp(HostPath(path), Own->Handle);
}

void StagedFile::Flush() {
    if (!Own->Flushed)
        Host::FlushStaged(Own->Handle, Own->Target);
    Own->Flushed = true;
}

std::string StagedFile::Path() const {
    return DrivePath(Own->Staged);
}

void StagedFile::Commit() {
    Flush();
    Host::CommitStaged(Own->Handle, Own->Staged, Own->Target);
    Own->Committed = true;
}

void CopyFile(std::string_view from, std::string_view to) {
    const std::string content = ReadFile(from);
    StagedFile file(to);
    file.Write(content);
    file.TakeTimeOf(from);
    file.Commit();
}

}  // namespace Dorvane::Drives
