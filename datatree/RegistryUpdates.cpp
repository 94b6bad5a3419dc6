// SPDX-License-Identifier: GPL-3.0-or-later
#include <initializer_list>

#include "core/ColumnLine.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/LineWriter.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "datatree/basTree.h"

namespace Dorvane {

namespace {

void AppendLines(const std::string& path, std::initializer_list<std::string> lines) {
    LineAppender file(path);
    for (const std::string& line : lines)
        file.Line(line);
    file.Close();
}

void WriteLines(const std::string& path, const List1<std::string>& lines) {
    LineWriter file(path);
    for (const std::string& line : lines)
        file.Line(line);
    file.Close();
}

List1<std::string> ReadLines(Guard& guard, const std::string& path) {
    List1<std::string> lines;
    GuardedReader file(guard, path);
    while (!file.AtEnd())
        lines.Add(file.ReadLine());
    return lines;
}

// Position of the last line that is the heading as it stands, 0 when there is none.
int LastMatch(const List1<std::string>& lines, const std::string& heading) {
    for (int i = lines.Count(); i >= 1; --i)
        if (lines[i] == heading)
            return i;
    return 0;
}

// The lines with the event in front of the first line behind the heading that does not start with a blank. It
// is meant that the last group of the file has no such line and gets no event.
List1<std::string> WithEvent(const List1<std::string>& lines, int heading, const std::string& event) {
    List1<std::string> result;
    bool entered = false;
    for (int i = 1; i <= lines.Count(); ++i) {
        if (!entered && i > heading && Left(lines[i], 1) != " ") {
            result.Add(event);
            entered = true;
        }
        result.Add(lines[i]);
    }
    return result;
}

}  // namespace

void UpdatePthFileAdd(const std::string& system, const std::string& location, const std::string& type,
                      const std::string& epoch) {
    Guarded("basTree-UpdatePthFileAdd", [&](Guard& guard) {
        const std::string line =
            ColumnLine().At(2, "*").At(10, system).At(20, location).At(30, type).At(40, epoch).Text();
        guard.Run([&] { AppendLines(Global().Init_path + system + ".PTH", {line}); });
    });
}

void UpdateCalibPthFileAdd(const std::string& system, const std::string& type, const std::string& epoch) {
    Guarded("basTree-UpdateCalibPthFileAdd", [&](Guard& guard) {
        const std::string line = ColumnLine().At(2, "*").At(10, system).At(20, type).At(30, epoch).Text();
        guard.Run([&] { AppendLines(Global().Init_path + system + ".PTH", {line}); });
    });
}

void UpdateHisFileAdd(const std::string& system, const std::string& location, const std::string& type,
                      const std::string& epoch, const std::string& usage, const std::string& date) {
    Guarded("basTree-UpdateHisFileAdd", [&](Guard& guard) {
        const FolderLock lock(Global().Init_path);
        const std::string path = Global().Init_path + system + ".HIS";
        const std::string heading = system + "\\" + location + "\\" + type + "\\" + epoch;
        const std::string event = ColumnLine().At(5, "Created").At(17, date).At(31, usage).Text();
        if (!Drives::IsFile(path)) {
            const List1<std::string> lines{"             DATA FILESYSTEM HISTORY",
                                           "",
                                           "Subdirectory                  Usage",
                                           "----------------------        ---------------------------",
                                           heading,
                                           event};
            guard.Run([&] { WriteLines(path, lines); });
            return;
        }
        const List1<std::string> lines = ReadLines(guard, path);
        const int match = LastMatch(lines, heading);
        if (match == 0)
            guard.Run([&] { AppendLines(path, {heading, event}); });
        else
            guard.Run([&] { WriteLines(path, WithEvent(lines, match, event)); });
    });
}

}  // namespace Dorvane
