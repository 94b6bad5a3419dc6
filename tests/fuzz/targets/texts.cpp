// SPDX-License-Identifier: GPL-3.0-or-later
// The small readers that all formats are made of: numbers, patterns, dates, words, paths, drive names.
#include <cmath>
#include <cstring>

#include "core/ColumnLine.h"
#include "core/DateText.h"
#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/Pattern.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void Numbers(const std::string& text) {
    Quietly([&] {
        const double value = LeadingNumber(text);
        Hold(std::isfinite(value), "a leading number is one");
        if (IsNumeric(text))
            Hold(StrictNumber(text) <= value && StrictNumber(text) >= value, "a number is its own beginning");
    });
    Quietly([&] { LeadingInteger(text); });
    if (!IsNumeric(text))
        Hold(!Quietly([&] { StrictNumber(text); }), "what is no number is refused");
}

void Patterns(Choices choices) {
    static const std::vector<std::string> patterns{"##0.00000", "0", "#", "0.0", "#.##", "000000.0#", ""};
    const Pattern pattern(choices.OneOf(patterns));
    const std::string bytes = choices.Bytes(sizeof(double));
    double value = 0;
    std::memcpy(&value, bytes.data(), bytes.size());
    if (!Quietly([&] { pattern(value); })) {
        Hold(!std::isfinite(value), "every number has its digits");
        return;
    }
    const std::string digits = pattern(value);
    Hold(pattern(value, 20) == RightJustify(digits, 20), "a width sets blanks before the digits");
    Hold(digits.empty() || digits == "-" || digits == "." || IsNumeric(digits), "the digits are a number");
    const double back = LeadingNumber(digits);
    Hold(std::abs(back - value) <= 0.5000001 + std::abs(value) * 1e-12, "the digits are near the number");
    Hold(pattern(-value) == digits || pattern(-value) == "-" + digits || "-" + pattern(-value) == digits,
         "the sign changes no digit");
}

void Dates(const std::string& text) {
    const std::size_t blank = std::min(text.find('\n'), text.size());
    const std::string time = blank < text.size() ? text.substr(blank + 1) : "";
    Quietly([&] {
        const long long seconds = SecondsOf(text.substr(0, blank), time);
        Hold(!IsNewer(text.substr(0, blank), time, text.substr(0, blank), time),
             "no moment is newer than itself");
        Hold(seconds < 400000000000 && seconds > -400000000000, "seconds lie in the years of four digits");
    });
}

void Words(const std::string& text) {
    List1<std::string> fields;
    Quietly([&] {
        ParseFields(fields, text);
        for (const std::string& field : fields)
            Hold(!field.empty() && field.find_first_of(" ,\t") == std::string::npos, "a word has no gap");
    });
    HoldSame(UpperCase(text), UpperCase(UpperCase(text)), "upper case stays");
    HoldSame(Trim(text), Trim(Trim(text)), "what is trimmed stays");
    HoldSame(StripAtNul(text), StripAtNul(StripAtNul(text)), "what is cut at a NUL stays");
    Utf8FromText(text);
    TextFromUtf8(text);
    const std::string known = TextFromUtf8(Utf8FromText(text));
    HoldSame(Utf8FromText(text), Utf8FromText(known), "a text survives its way to people and back");
    ReplaceFirst(text, "a", "bb");
    FindLastChar(text, '\\');
}

void Rows(const std::string& text) {
    LineReader reader = LineReader::OfText(text);
    std::string joined;
    while (!reader.AtEnd())
        joined += std::string(reader.ReadLine()) + "\r\n";
    LineReader again = LineReader::OfText(joined);
    long lines = 0;
    for (; !again.AtEnd(); ++lines)
        again.ReadLine();
    Hold(lines == reader.LineNumber(), "lines that are written again are as many");
    Hold(!Quietly([&] { reader.ReadLine(); }), "no line stands behind the last");
    WithLines(text, "next\r\n");
    ColumnLine line;
    line.At(1, text.substr(0, 9)).At(10, text.substr(std::min<std::size_t>(9, text.size())));
}

void Paths(const std::string& text) {
    Quietly([&] { Drives::HostPath(text); });
    Quietly([&] { Drives::DrivePath(text); });
    Quietly([&] {
        const std::string host = Drives::HostPath("D:\\" + text);
        Hold(host.starts_with(Drives::HostPath("D:\\")), "no path leaves its drive");
        Hold(host.find("/../") == std::string::npos && !host.ends_with("/.."), "no path climbs");
    });
    FileExists(text);
    std::string folder = text;
    FolderExists(folder);
    List1<std::string> parts;
    Quietly([&] { SplitPathParts(text, parts); });
    Quietly([&] {
        std::string file;
        SplitFolderFile(text, folder, file);
        HoldSame(text, folder + file, "folder and file are the path");
    });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string text = TextOf(data, size);
    Numbers(text);
    Patterns(Choices(data, size));
    Dates(text);
    Words(text);
    Rows(text);
    Paths(text);
    return 0;
}
