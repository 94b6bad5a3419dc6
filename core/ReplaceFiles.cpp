// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReplaceFiles.h"

#include <list>
#include <new>
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

void PutBack(const std::string& path, const std::optional<std::string>& former) {
    if (ContentOf(path) == former)
        return;
    if (former)
        Drives::WriteFile(path, *former);
    else
        Drives::DeleteFile(path);
}

// One change: what waits beside its place, and how to take back what is done.
class Work {
  public:
    explicit Work(const std::vector<FileChange>& wanted)
        : Wanted(wanted), Home(Drives::FolderPart(wanted.front().Path)) {}

    void Run() {
        try {
            WriteOut();
            auto staged = Staged.begin();
            for (const FileChange& file : Wanted)
                Replace(file, *staged++);
        } catch (RunTimeError& error) {
            TakeBack(error);
            throw;
        } catch (const std::bad_alloc&) {
            RunTimeError error(OutOfMemory);
            TakeBack(error);
            throw error;
        }
        DropNote();
    }

  private:
    struct Replaced {
        std::string Path;
        std::optional<std::string> Former;
    };

    // All contents, beside their places.
    void WriteOut() {
        for (const FileChange& file : Wanted) {
            Drives::StagedFile& staged = Staged.emplace_back(file.Path);
            staged.Write(file.Content);
            if (!file.TimeOf.empty())
                staged.TakeTimeOf(file.TimeOf);
        }
        // One file is put in its place in one step: there is nothing that could be half done.
        if (Wanted.size() > 1)
            WriteNote();
    }

    void WriteNote() {
        ChangeNote note{Host::ProcessName(), {}};
        auto staged = Staged.begin();
        for (const FileChange& file : Wanted) {
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

    // It counts as done before it is: its flush may fail when it has taken its place already.
    void Replace(const FileChange& file, Drives::StagedFile& staged) {
        Done.push_back({file.Path, ContentOf(file.Path)});
        staged.Commit();
    }

    void TakeBack(RunTimeError& error) {
        DropNote();      // it would have the change finished
        Staged.clear();  // what waits beside the files may take the room that the old content needs
        for (; !Done.empty(); Done.pop_back()) {
            try {
                PutBack(Done.back().Path, Done.back().Former);
            } catch (const RunTimeError&) {
                error.Description += "; " + Done.back().Path + " could not be put back";
            }
        }
    }

    const std::vector<FileChange>& Wanted;
    std::string Home;
    std::list<Drives::StagedFile> Staged;
    std::vector<Replaced> Done;
    bool IsNoted = false;
};

}  // namespace

void ReplaceInOrder(const std::vector<FileChange>& files) {
    if (files.empty())
        return;
    const FolderLock lock(Drives::FolderPart(files.front().Path));
    Work(files).Run();
}

}  // namespace Dorvane
