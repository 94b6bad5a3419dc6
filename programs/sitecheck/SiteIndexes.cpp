// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteIndexes.h"

#include <algorithm>
#include <set>

#include "core/Drives.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/sitecheck/SiteRegistries.h"
#include "upload/DataTypes.h"

namespace Dorvane {

namespace {

constexpr std::size_t HeadLines = 2;
constexpr int NameLength = 9;  // as much as the index holds of them
constexpr int ExtensionLength = 4;

// A file's name as the index holds it.
std::string Listed(const std::string& base, const std::string& extension) {
    return UpperCase(Trim(Left(base, NameLength))) + "." + UpperCase(Trim(Left(extension, ExtensionLength)));
}

std::string ListedFile(const std::string& file) {
    return Listed(BeforeFirstPoint(file), BehindFirstPoint(file));
}

std::string ListedLine(const std::string& line) {
    return Listed(Left(line, NameLength), Mid(line, NameLength + 1, ExtensionLength));
}

const DataType* TypeOf(const List1<DataType>& types, const std::string& name) {
    const auto found =
        std::find_if(types.begin(), types.end(), [&](const DataType& type) { return type.Name == name; });
    return found == types.end() ? nullptr : &*found;
}

bool IsBook(const DataType& type, const std::string& file) {
    const std::string extension = UpperCase(BehindFirstPoint(file));
    return std::find(type.Extensions.begin(), type.Extensions.end(), extension) != type.Extensions.end() &&
           ReadUploadKeys(type.Name, extension).InSurveyIndex;
}

std::set<std::string> FilesIn(const std::string& folder) {
    std::set<std::string> files;
    for (const Drives::Entry& entry : Drives::List(folder))
        if (!entry.IsFolder)
            files.insert(entry.Name);
    return files;
}

// The names that the index lists. A line that a long name broke begins with blanks and is none.
std::set<std::string> CheckLines(SiteReport& report, const std::string& index,
                                 const std::set<std::string>& there) {
    const std::vector<std::string> lines = LinesOf(index);
    std::set<std::string> listed;
    if (lines.size() < HeadLines)
        report.Findings.push_back({index, 0, "lacks its two heading lines, so that reading it fails"});
    for (std::size_t i = HeadLines; i < lines.size(); ++i) {
        if (Trim(Left(lines[i], NameLength)).empty())
            continue;
        const std::string name = ListedLine(lines[i]);
        if (listed.insert(name).second && there.count(name) == 0)
            report.Findings.push_back(
                {index, static_cast<long>(i) + 1, "lists " + name + ", which is not in the folder"});
    }
    return listed;
}

}  // namespace

std::string IndexIn(const std::string& folder, const std::string& epoch) {
    std::string first;
    for (const Drives::Entry& entry : Drives::List(folder, "*.IDX")) {
        if (entry.IsFolder)
            continue;
        if (EqualIgnoringCase(entry.Name, epoch + ".IDX"))
            return entry.Name;
        if (first.empty())
            first = entry.Name;
    }
    return first;
}

void CheckIndex(SiteReport& report, const std::string& folder, const SurveyNames& names) {
    if (!LookAt(report, folder))
        return;
    const std::string index = IndexIn(folder, names.Epoch);
    if (index.empty()) {
        report.Findings.push_back({folder, 0, "has no index of its books", Mend::MakeIndex, folder, names});
        return;
    }
    const std::set<std::string> files = FilesIn(folder);
    std::set<std::string> there;
    for (const std::string& file : files)
        there.insert(ListedFile(file));
    const std::set<std::string> listed = CheckLines(report, folder + index, there);
    List1<DataType> types;
    ReadIniDataTypes(types);
    const DataType* const type = TypeOf(types, names.Type);
    if (type == nullptr)
        return;
    for (const std::string& file : files)
        if (IsBook(*type, file) && listed.count(ListedFile(file)) == 0)
            report.Findings.push_back({folder + file, 0, "is not listed in " + folder + index,
                                       Mend::EnterBook, folder + index, names});
}

}  // namespace Dorvane
