// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ResultFiles.h"

#include <optional>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "input/CountLines.h"
#include "input/InputTypes.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

constexpr const char* DataTypeProfile = "dv_datatype.ini";

bool ParseRecord(ResRecord& record, List1<std::string>& words, std::string_view line) {
    const int count = ParseFields(words, line);
    if (count < 3)
        return false;
    record.Station = words[1];
    record.Target = words[2];
    record.Value1 = LeadingNumber(words[3]);
    record.Value2 = count >= 4 ? LeadingNumber(words[4]) : 0;
    record.Value3 = count >= 5 ? LeadingNumber(words[5]) : 0;
    return true;
}

// The two files of one angle survey, read line for line together.
class AngleFiles {
  public:
    AngleFiles(Guard& guard, const std::string& firstPath, const std::string& secondPath, bool useSecond)
        : First(guard, firstPath) {
        if (useSecond)
            Second.emplace(guard, secondPath);
    }

    bool AtEnd() const { return First.AtEnd(); }

    void ReadLine() {
        ParseFields(FirstWords, First.ReadLine());
        if (Second)
            ParseFields(SecondWords, Second->ReadLine());
    }

    const std::string& Name() const { return FirstWords[1]; }
    bool NamesDiffer() const { return Second && FirstWords[1] != SecondWords[1]; }

    // The file names are fixed words, whatever the profile calls the files.
    void TellDifference(const std::string& what) const {
        TheDesktop().ShowMessage({.Text = what + " name " + FirstWords[1] +
                                          " from REDIR.RES does not match " + SecondWords[1] +
                                          " from ZENITH.RES",
                                  .Title = "Names do not Match",
                                  .Picture = Icon::Stop});
    }

    ResRecord Record(const std::string& station) const {
        ResRecord record;
        record.Station = station;
        record.Target = FirstWords[1];
        record.Value1 = LeadingNumber(FirstWords[2]);
        record.Value2 = Second ? LeadingNumber(SecondWords[2]) : 0;
        return record;
    }

  private:
    GuardedReader First;
    std::optional<GuardedReader> Second;
    List1<std::string> FirstWords;
    List1<std::string> SecondWords;
};

// Reads every block. False when the files differ, which has been told.
bool ReadBlocks(List1<ResRecord>& records, AngleFiles& files) {
    while (!files.AtEnd()) {
        files.ReadLine();
        if (files.NamesDiffer()) {
            files.TellDifference("Station");
            return false;
        }
        const std::string station = files.Name();
        for (files.ReadLine(); files.Name() != "QUIT"; files.ReadLine()) {
            if (files.NamesDiffer()) {
                files.TellDifference("Target");
                return false;
            }
            records.Add(files.Record(station));
        }
    }
    return true;
}

}  // namespace

std::int16_t ReadResTypes(List1<ResTypeEntry>& entries, std::int16_t dimension) {
    entries.Clear();
    const std::string key = std::to_string(dimension) + "dResFile";
    const bool done = Guarded("basRead-ReadResTypes", [&](Guard&) {
        List1<std::string> names;
        ParseFields(names, IniReadString(DataTypeProfile, "Data Types", "Epochs"));
        for (const std::string& name : names) {
            ResTypeEntry entry;
            entry.Name = name;
            ParseFields(entry.Words, IniReadString(InputProfile, name, key));
            entries.Add(std::move(entry));
        }
    });
    return done ? entries.Count() : std::int16_t{0};
}

std::int16_t ReadGenericRes(List1<ResRecord>& records, const std::string& folder, const std::string& file) {
    std::int16_t result = 0;
    Guarded("basRead-ReadGenericRes", [&](Guard& guard) {
        const std::string path = folder + file;
        records.Clear();
        guard.Run([&] { records.Resize(CountLines(path)); });
        GuardedReader lines(guard, path);
        List1<std::string> words;
        std::int16_t count = 0;
        while (!lines.AtEnd()) {
            if (!ParseRecord(records[++count], words, lines.ReadLine())) {
                ShowWarning("Problem with file format in file " + path + ".  Can not continue.",
                            "Format Error");
                return;
            }
        }
        result = count;
    });
    return result;
}

std::int16_t ReadAngleRes(List1<ResRecord>& records, const std::string& folder, const std::string& firstFile,
                          const std::string& secondFile) {
    std::int16_t result = 0;
    Guarded("basRead-ReadAngleRes", [&](Guard& guard) {
        // The length is asked for also of a second file that is not there, which is then reported; meant.
        std::int64_t length = 0;
        guard.Run([&] { length = Drives::FileLength(folder + secondFile); });
        AngleFiles files(guard, folder + firstFile, folder + secondFile, length >= 1);
        records.Clear();
        if (ReadBlocks(records, files))
            result = records.Count();
    });
    return result;
}

}  // namespace Dorvane
