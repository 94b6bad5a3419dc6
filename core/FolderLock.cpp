// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderLock.h"

#include <chrono>
#include <map>
#include <thread>

#include "core/BrokenChange.h"
#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/HostLock.h"
#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

using std::chrono::milliseconds;

// It begins with a point, so that a network drive hides it from old programs, and ends as what is never
// listed.
constexpr const char* LockName = "/.lock.dv~";

// Most changes last some milliseconds: so long nothing is shown.
constexpr milliseconds FirstPause{1};
constexpr milliseconds LongestPause{40};
constexpr milliseconds Patience{400};

struct HeldFolder {
    std::string LockPath;  // made when it is taken: what lets it go must not fail
    std::intptr_t Handle = -1;
    int Times = 0;
};

// The folders that this program holds.
std::map<std::string, HeldFolder>& HeldFolders() {
    static std::map<std::string, HeldFolder> folders;
    return folders;
}

// Empty for a path that leads to no drive: what is to be done there tells that.
std::string HostFolderOf(const std::string& folder) {
    std::string host;
    try {
        host = Host::RealPath(folder.empty() ? Drives::CurrentHostFolder() : Drives::HostPath(folder));
    } catch (const RunTimeError&) {
        return "";
    }
    while (host.size() > 1 && host.back() == '/')
        host.pop_back();
    return host;
}

std::string WaitText(const std::string& folder, const std::string& holder) {
    return folder + " is being changed by " + (holder.empty() ? "another workstation" : holder);
}

// Tries again and again, at first unseen.
Host::LockTry WaitForLock(const std::string& path, const std::string& folder) {
    milliseconds waited{0};
    milliseconds pause = FirstPause;
    std::unique_ptr<SharedWait> shown;
    for (;;) {
        Host::LockTry attempt = Host::TryLock(path, Host::ProcessName());
        if (attempt.State != Host::LockState::Busy)
            return attempt;
        if (waited < Patience) {
            std::this_thread::sleep_for(pause);
            waited += pause;
            pause = std::min(pause * 2, LongestPause);
            continue;
        }
        if (shown == nullptr)
            shown = TheDesktop().BeginSharedWait();
        if (!shown->GoOn(WaitText(folder, attempt.Holder)))
            throw RunTimeError(PermissionDenied, WaitText(folder, attempt.Holder));
    }
}

// What who died with the lock left behind: a change that is half done, and files that were on their way.
void ClearUp(const std::string& folder, const std::string& hostFolder, bool holderDied) {
    // Asked of the host first: a path that is not there would be looked for in the whole folder.
    const std::string noted = folder.empty() || folder.ends_with('\\') ? folder : folder + "\\";
    if (Host::Inspect(hostFolder + "/" + ChangeNoteName).Exists)
        FinishBrokenChange(noted);
    if (!holderDied)
        return;
    for (const std::string& name : Host::FolderNames(hostFolder))
        if (name.ends_with(Host::StagedEnding) && "/" + name != LockName)
            Host::DeleteRemains(hostFolder + "/" + name);
}

}  // namespace

FolderLock::FolderLock(std::string_view folder) : FolderLock(std::vector<std::string>{std::string(folder)}) {}

FolderLock::FolderLock(std::vector<std::string> folders) {
    std::map<std::string, std::string> order;
    for (const std::string& folder : folders)
        order.emplace(HostFolderOf(folder), folder);
    try {
        for (const auto& [host, folder] : order)
            if (!host.empty())
                Take(host, folder);
    } catch (...) {
        Release();
        throw;
    }
}

FolderLock::~FolderLock() {
    Release();
}

void FolderLock::Take(const std::string& hostFolder, const std::string& folder) {
    Held.reserve(Held.size() + 1);
    std::string own = hostFolder;
    HeldFolder& held = HeldFolders()[hostFolder];
    Host::LockTry taken;
    if (held.Times == 0) {
        try {
            held.LockPath = hostFolder + LockName;
            taken = WaitForLock(held.LockPath, folder);
        } catch (...) {
            HeldFolders().erase(hostFolder);
            throw;
        }
        held.Handle = taken.Handle;
    }
    ++held.Times;
    Held.push_back(std::move(own));
    if (taken.State == Host::LockState::Held)
        ClearUp(folder, hostFolder, !taken.Holder.empty());
}

void FolderLock::Release() {
    for (; !Held.empty(); Held.pop_back()) {
        const auto held = HeldFolders().find(Held.back());
        if (--held->second.Times > 0)
            continue;
        if (held->second.Handle != -1)
            Host::Unlock(held->second.Handle, held->second.LockPath);
        HeldFolders().erase(held);
    }
}

}  // namespace Dorvane
