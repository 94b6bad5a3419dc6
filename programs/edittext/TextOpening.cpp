// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextOpening.h"

#include <string_view>
#include <vector>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/basGeneral.h"
#include "programs/edittext/TextMessages.h"
#include "programs/window/ArgumentPath.h"

namespace Dorvane {

namespace {

std::optional<TextFile> OpenNew(const std::string& path, bool readOnly) {
    std::string folder = Drives::FolderPart(path);
    if (!FolderExists(folder)) {
        WarnOfText(path + " is not there, and there is no folder " + folder + ".");
        return std::nullopt;
    }
    if (readOnly) {
        WarnOfText(path + " is not there.");
        return std::nullopt;
    }
    if (!ConfirmText(path + " is not there. Begin it as a new file?", Answer::Yes))
        return std::nullopt;
    return OpenTextFile(path, false);
}

}  // namespace

TextArguments ReadTextArguments(int count, const char* const* arguments) {
    TextArguments read;
    std::vector<const char*> words;
    for (int i = 0; i < count; ++i)
        if (i == 1 && std::string_view(arguments[i]) == "--read")
            read.ReadOnly = true;
        else
            words.push_back(arguments[i]);
    read.Path = ArgumentPath(static_cast<int>(words.size()), words.data());
    return read;
}

std::optional<TextFile> AskTextFile(const std::string& path, bool readOnly) {
    if (path.empty())
        return ChooseTextFile("", "Open Text File", readOnly);
    switch (KindOf(path)) {
        case PathKind::Missing: return OpenNew(path, readOnly);
        case PathKind::Folder: {
            const std::string folder = path.back() == '\\' ? path : path + "\\";
            return ChooseTextFile(folder, folder + " is a folder: choose a file", readOnly);
        }
        case PathKind::Other: WarnOfText(path + " is no file that holds a text."); return std::nullopt;
        case PathKind::File: break;
    }
    if (LooksBinary(path) &&
        !ConfirmText(path + " does not look like a text. Open it all the same?", Answer::No))
        return std::nullopt;
    return OpenTextFile(path, readOnly);
}

std::optional<TextFile> ChooseTextFile(const std::string& folder, const std::string& title, bool readOnly) {
    FileDialog dialog;
    dialog.Title = title;
    dialog.Folder = folder;
    dialog.Flags = 4;
    const std::optional<std::string> chosen = TheDesktop().AskFile(dialog);
    if (!chosen || chosen->empty() || KindOf(*chosen) == PathKind::Folder)
        return std::nullopt;
    return AskTextFile(*chosen, readOnly);
}

}  // namespace Dorvane
