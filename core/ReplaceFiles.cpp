// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReplaceFiles.h"

#include <functional>
#include <list>
#include <optional>

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/HostLock.h"
#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

std::optional<std::string> ContentOf(const std::string& path) {
    Drives::Entry entry;
    if (!Drives::Find(path, entry))
        return std::nullopt;
    return Drives::ReadFile(path);
}

bool IsThere(const std::string& path) {
    Drives::Entry entry;
    return Drives::Find(path, entry);
}

void PutBack(const std::string& path, const std::optional<std::string>& former) {
    if (ContentOf(path) == former)
        return;
    if (former)
        Drives::WriteFile(path, *former);
    else
        Drives::DeleteFile(path);
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('\\') + 1);
}

// One change: what waits beside its place, and how to take back what is done.
class Work {
  public:
    explicit Work(const Change& change) : Wanted(change), Home(FolderOf(change.Files.front().Path)) {}

    void Run() {
        try {
            for (const std::string& folder : Wanted.Folders)
                MakeFolder(folder);
            WriteOut();
            auto staged = Staged.begin();
            for (const FileChange& file : Wanted.Files)
                Replace(file, *staged++);
            for (const FileMove& move : Wanted.Moves)
                Move(move);
        } catch (RunTimeError& error) {
            TakeBack(error);
            throw;
        }
        DropNote();
    }

  private:
    struct Step {
        std::string Path;
        std::function<void()> Undo;
    };

    // All contents, beside their places.
    void WriteOut() {
        for (const FileChange& file : Wanted.Files) {
            Drives::StagedFile& staged = Staged.emplace_back(file.Path);
            staged.Write(file.Content);
            if (!file.TimeOf.empty())
                staged.TakeTimeOf(file.TimeOf);
        }
        // One file is put in its place in one step: there is nothing that could be half done.
        if (Wanted.Files.size() + Wanted.Moves.size() > 1)
            WriteNote();
    }

    void WriteNote() {
        ChangeNote note{Host::ProcessName(), Wanted.Folders, {}, Wanted.Moves};
        auto staged = Staged.begin();
        for (const FileChange& file : Wanted.Files) {
            staged->Flush();
            note.Files.push_back({staged->Path(), file.Path, SumOf(file.Content)});
            ++staged;
        }
        WriteChangeNote(Home, note);
        IsNoted = true;
    }

    // A note that stays finds nothing to be done.
    void DropNote() {
        if (!IsNoted)
            return;
        try {
            Drives::DeleteFile(ChangeNotePath(Home));
        } catch (const RunTimeError&) {
        }
        IsNoted = false;
    }

    void MakeFolder(const std::string& folder) {
        if (IsThere(folder))
            return;
        Drives::CreateFolder(folder);
        Done.push_back({folder, [folder] { Drives::RemoveFolder(folder); }});
    }

    // It counts as done before it is: its flush may fail when it has taken its place already.
    void Replace(const FileChange& file, Drives::StagedFile& staged) {
        const std::optional<std::string> former = ContentOf(file.Path);
        Done.push_back({file.Path, [path = file.Path, former] { PutBack(path, former); }});
        staged.Commit();
    }

    void Move(const FileMove& move) {
        Drives::RenameFile(move.From, move.To);
        Done.push_back({move.From, [move] { Drives::RenameFile(move.To, move.From); }});
    }

    void TakeBack(RunTimeError& error) {
        DropNote();      // it would have the change finished
        Staged.clear();  // what waits beside the files may take the room that the old content needs
        for (; !Done.empty(); Done.pop_back()) {
            try {
                Done.back().Undo();
            } catch (const RunTimeError&) {
                error.Description += "; " + Done.back().Path + " could not be put back";
            }
        }
    }

    const Change& Wanted;
    std::string Home;
    std::list<Drives::StagedFile> Staged;
    std::vector<Step> Done;
    bool IsNoted = false;
};

}  // namespace

void MakeChange(const Change& change) {
    const FolderLock lock(FolderOf(change.Files.front().Path));
    Work(change).Run();
}

void ReplaceInOrder(const std::vector<FileChange>& changes) {
    if (!changes.empty())
        MakeChange({.Files = changes});
}

}  // namespace Dorvane
