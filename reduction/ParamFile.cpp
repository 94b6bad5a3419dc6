// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ParamFile.h"

#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

struct Parameters {
    const std::string& Folder;
    const List1<std::string>& Param;
    const List1<std::string>& Reduce;
    std::string Calib;  // the calibration folder
};

void AngleLines(const Parameters& p, std::vector<std::string>& lines) {
    lines.push_back(p.Folder + p.Reduce[2]);
    lines.push_back(p.Folder + p.Reduce[3]);
}

void ProvideHeights(const std::string& folder, Guard& guard) {
    guard.Run([&] {
        if (!Drives::IsFile(folder + "HEIGHTS.DAT"))
            Drives::CopyFile(AppPath() + "samples\\temp\\HEIGHTS.DAT", folder + "HEIGHTS.DAT");
    });
}

void DistanceLines(const Parameters& p, std::vector<std::string>& lines) {
    lines.push_back(p.Folder + p.Param[3]);
    lines.push_back(p.Folder + "BM.DAT");
    lines.push_back(p.Calib + p.Param[4]);
    lines.push_back(p.Folder + "LEVRED.LST");
    lines.push_back(p.Folder + "HEIGHTS.DAT");
    lines.push_back(p.Calib + p.Param[3]);
    lines.push_back(p.Folder + p.Reduce[2]);
    lines.push_back(p.Folder + p.Reduce[3]);
    lines.push_back(p.Folder + p.Reduce[4]);
    lines.push_back(p.Calib + p.Param[4]);
}

void LevelLines(const Parameters& p, std::vector<std::string>& lines) {
    lines.push_back(p.Folder + p.Reduce[2]);
    lines.push_back(p.Folder + p.Reduce[3]);
    lines.push_back(p.Folder + "INVLEVEL.IVL");
    lines.push_back(p.Calib);
    lines.push_back(p.Calib + p.Param[3]);
    lines.push_back(p.Calib + p.Param[4]);
}

// Adds the lines of the reduction kind. A missing word ends it with error 9, the lines before it added.
void KindLines(const Parameters& p, std::vector<std::string>& lines, Guard& guard) {
    const std::string& kind = p.Param[1];
    if (kind == "ANGLE") {
        AngleLines(p, lines);
    } else if (kind == "DISTANCE") {
        ProvideHeights(p.Folder, guard);
        DistanceLines(p, lines);
    } else if (kind == "LEVEL") {
        LevelLines(p, lines);
    } else if (kind == "TOTAL") {
        lines.push_back(p.Folder + p.Reduce[2]);
    }
}

void WriteLines(const std::string& path, const std::vector<std::string>& lines) {
    LineWriter file(path);
    for (const std::string& line : lines)
        file.Line(line);
    file.Close();
}

std::string ParameterFile(const List1<std::string>& paramTokens) {
    const std::string& name = paramTokens[2];
    if (Global().Param_path.empty())
        throw RunTimeError(PathNotFound, name);
    return Global().Param_path + name;
}

}  // namespace

bool WriteParamFile(const std::string& folder, const List1<std::string>& paramTokens,
                    const List1<std::string>& reduceTokens, const std::string& surveyIndexName,
                    const std::string& calibrationType, const std::string& epoch) {
    bool written = false;
    Guarded("basReduce-WriteParamFile", [&](Guard& guard) {
        // A file that cannot be opened is told before anything else is done.
        std::string path;
        const bool opens = guard.Run([&] {
            path = ParameterFile(paramTokens);
            LineWriter opened(path);
        });
        if (!opens)
            return;
        const std::string calib = Global().Calib_path + calibrationType + "\\" + epoch + "\\";
        std::vector<std::string> lines = {folder, folder + surveyIndexName};
        const bool complete = Guarded("basReduce-WriteParamFile", [&](Guard& copying) {
            KindLines({folder, paramTokens, reduceTokens, calib}, lines, copying);
        });
        // After a failure the file is left with the lines made so far.
        const bool closed = guard.Run([&] { WriteLines(path, lines); });
        written = complete && closed;
    });
    return written;
}

}  // namespace Dorvane
