// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/ParameterFile.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <vector>

#include "krenn/Errors.h"
#include "krenn/HostFile.h"
#include "krenn/Scan.h"
#include "krenn/input/ParameterKeys.h"

namespace Krenn {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPathShown = 500;
constexpr char kEndOfFile = '\x1A';
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Fault {
    ErrorNumber number;
    std::string what;
};

struct Reader {
    void ReadLine(std::string_view line);
    std::optional<Fault> ReadEntry(std::string_view line);

    Parameters parameters;
    std::map<const ParameterKey*, int> lineOf;
    int line = 0;
    ErrorNumber firstFault = ErrorNumber::Good;
    std::size_t faults = 0;
    std::vector<std::string> details;
};

bool HasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

Fault UnknownKey(std::string_view name) {
    std::string what = "There is no key \"" + Printable(name, 40) + "\"";
    if (const ParameterKey* nearest = NearestParameterKey(name))
        what += std::string("; ") + nearest->key + " is one";
    return {ErrorNumber::UnknownParameter, what + "."};
}

// Without a fault the entry is taken.
std::optional<Fault> Reader::ReadEntry(std::string_view text) {
    const std::size_t sign = text.find('=');
    const std::string_view name = Trimmed(text.substr(0, sign));
    if (sign == std::string_view::npos || name.empty() || HasControlCharacter(text))
        return Fault{ErrorNumber::BadParameterLine, "A line has the form KEY = value   ; comment."};
    const ParameterKey* key = FindParameterKey(name);
    if (key == nullptr)
        return UnknownKey(name);
    const auto [former, isFirst] = lineOf.emplace(key, line);
    if (!isFirst)
        return Fault{ErrorNumber::RepeatedParameter, std::string(key->key) + " stands on line " +
                                                         std::to_string(former->second) + " already."};
    const std::string problem = SetParameter(*key, Trimmed(text.substr(sign + 1)), parameters);
    if (!problem.empty())
        return Fault{ErrorNumber::BadParameterValue, problem};
    return std::nullopt;
}

void Reader::ReadLine(std::string_view whole) {
    constexpr std::size_t kMostShown = 20;
    const std::string_view entry = Trimmed(whole.substr(0, whole.find(';')));
    if (entry.empty())
        return;
    const std::optional<Fault> fault = ReadEntry(entry);
    if (!fault)
        return;
    if (firstFault == ErrorNumber::Good)
        firstFault = fault->number;
    if (++faults > kMostShown)
        return;
    details.push_back("line " + std::to_string(line) + ": " + Printable(whole));
    details.push_back("  " + fault->what);
}

std::string NameOf(const std::string& path) {
    return Printable(fs::path(path).filename().string(), kPathShown);
}

// The name of the master's parameter file; that of the input itself when it is no version.
std::string MasterName(const std::string& stem) {
    constexpr std::size_t kMark = 4;  // _vNN
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const std::string mark = stem.size() > kMark ? UpperCase(stem.substr(stem.size() - kMark)) : "";
    const bool isVersion =
        mark.starts_with("_V") && isDigit(mark[2]) && isDigit(mark[3]) && !mark.ends_with("00");
    return (isVersion ? stem.substr(0, stem.size() - kMark) : stem) + ".PAR";
}

Parameters ReadParameters(const std::string& path) {
    std::string text;
    try {
        text = ReadWholeFile(path);
    } catch (const Failure&) {
        throw Failure(ErrorNumber::ParametersNotReadable, "It is there, but is no file, or cannot be opened.",
                      {Printable(path, kPathShown)});
    }
    return ParseParameters(text, NameOf(path));
}

// What the head of the listing says of a file that was not there.
std::string WriteDefaults(const std::string& inputPath, const std::string& name) {
    const std::string path = fs::path(inputPath).replace_filename(name).string();
    const std::string shown = Printable(path, kPathShown);
    try {
        WriteWholeFile(path, DefaultParameterText());
    } catch (const Failure&) {
        return "defaults; " + shown + " cannot be written";
    }
    return shown + ", written with its defaults";
}

}  // namespace

Parameters ParseParameters(std::string_view text, const std::string& name) {
    while (!text.empty() && text.back() == kEndOfFile)
        text.remove_suffix(1);
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    Reader reader;
    LineCutter lines(text);
    while (lines.Next()) {
        reader.line = lines.number;
        reader.ReadLine(lines.line);
    }
    if (reader.faults == 0)
        return reader.parameters;
    if (reader.details.size() < 2 * reader.faults)
        reader.details.push_back("and " + std::to_string(reader.faults - reader.details.size() / 2) +
                                 " lines more");
    throw Failure(reader.firstFault,
                  "The parameter file " + name + " has " +
                      (reader.faults == 1 ? "a line that cannot be taken:"
                                          : std::to_string(reader.faults) + " lines that cannot be taken:"),
                  reader.details);
}

FoundParameters ParametersBeside(const std::string& inputPath) {
    const std::string stem = fs::path(inputPath).stem().string();
    const std::string own = stem + ".PAR";
    const std::string master = MasterName(stem);
    if (const auto path = FileBeside(inputPath, own))
        return {ReadParameters(*path), Printable(*path, kPathShown)};
    if (const auto path = FileBeside(inputPath, master))
        return {ReadParameters(*path), Printable(*path, kPathShown) + ", that of the master"};
    return {Parameters{}, WriteDefaults(inputPath, master)};
}

}  // namespace Krenn
