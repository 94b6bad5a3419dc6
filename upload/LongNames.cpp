// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/LongNames.h"

#include <fmt/format.h>

#include <set>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/DataTypes.h"
#include "upload/SurveyIndex.h"

namespace Dorvane {

namespace {

constexpr int LongestBase = 9;
constexpr int LongestExtension = 4;

bool NeedsShorterName(const std::string& name, const std::string& toPath, const std::string& dataTypeName) {
    if (InStr(name, ".") == 0 || BeforeFirstPoint(name).size() <= LongestBase)
        return false;
    const UploadKeys keys = ReadUploadKeys(dataTypeName, BehindFirstPoint(name));
    return keys.InSurveyIndex && (keys.Append || !FileExists(toPath + name));
}

/// The names that are taken, in upper case.
class TakenNames {
  public:
    TakenNames(const List1<FileEntry>& files, const std::string& toPath) {
        for (const FileEntry& file : files)
            OnDisk.insert(UpperCase(file.Name));
        for (const Drives::Entry& entry : Drives::List(toPath))
            OnDisk.insert(UpperCase(entry.Name));
        List1<FileEntry> indexes;
        GetFiles(indexes, toPath, "SRV*.IDX");
        for (const FileEntry& index : indexes)
            AddIndex(toPath, index.Name);
    }

    std::string Take(const std::string& base, const std::string& extension) {
        for (int number = 0;; ++number) {
            const std::string tail = number == 0 ? "" : std::to_string(number);
            const int room = LongestBase - static_cast<int>(tail.size());
            const std::string shorter = Trim(Left(base, room)) + tail;
            const std::string name = shorter + "." + extension;
            if (InIndex.contains(UpperCase(shorter + "." + Left(extension, LongestExtension))))
                continue;
            if (OnDisk.insert(UpperCase(name)).second)
                return name;
        }
    }

  private:
    void AddIndex(const std::string& folder, const std::string& name) {
        List1<SurveyIndexEntry> entries;
        ReadSurveyIdxFile(entries, folder, name);
        for (const SurveyIndexEntry& entry : entries)
            InIndex.insert(entry.Name + "." + entry.Extension);
    }

    std::set<std::string> OnDisk;
    std::set<std::string> InIndex;
};

std::string ListOf(const ShorterNames& names) {
    constexpr std::size_t most = 15;
    std::string list;
    std::size_t count = 0;
    for (const auto& [name, shorter] : names) {
        if (++count > most) {
            list += fmt::format("and {} more\r\n", names.size() - most);
            break;
        }
        list += name + "  as  " + shorter + "\r\n";
    }
    return list;
}

}  // namespace

ShorterNames ProposeShorterNames(const List1<FileEntry>& files, const std::string& toPath,
                                 const std::string& dataTypeName) {
    ShorterNames names;
    for (const FileEntry& file : files)
        if (NeedsShorterName(file.Name, toPath, dataTypeName))
            names[file.Name];
    if (names.empty())
        return names;
    TakenNames taken(files, toPath);
    for (auto& [name, shorter] : names)
        shorter = taken.Take(BeforeFirstPoint(name), BehindFirstPoint(name));
    return names;
}

bool AskForShorterNames(ShorterNames& names) {
    if (names.empty())
        return true;
    const Answer answer = TheDesktop().ShowMessage(
        {.Text =
             "The survey index has room for 9 characters of a file's name.  With a longer name the line is "
             "broken, and a reduction does not find the file.  Upload under a shorter name?\r\n\r\n" +
             ListOf(names) +
             "\r\nYes uploads under the shorter name, No under the long one, Cancel uploads nothing.",
         .Title = "Long File Name",
         .Picture = Icon::Exclamation,
         .Choices = Buttons::YesNoCancel});
    if (answer == Answer::No)
        names.clear();
    return answer == Answer::Yes || answer == Answer::No;
}

}  // namespace Dorvane
