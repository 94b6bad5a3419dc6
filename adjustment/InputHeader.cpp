// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/InputHeader.h"

#include "core/FileThere.h"
#include "core/Globals.h"
#include "core/basGeneral.h"

namespace Dorvane {

KeywordLine ReadKeywordLine(LineReader& reader) {
    List1<std::string> words;
    for (;;) {
        const std::string_view line = reader.ReadLine();
        if (ParseFields(words, line) == 0)
            continue;
        const std::size_t equals = line.find('=');
        return {words[1], equals == std::string_view::npos ? "" : std::string(line.substr(equals + 1))};
    }
}

int ReadInputHeader(const std::string& folder, const std::string& fileName, std::string& project,
                    std::string& task, std::string& date) {
    const std::string path = folder + fileName;
    if (!Drives::IsFile(path)) {
        TheDesktop().ShowMessage({"File " + path + " does not exist!", "File Not Found", Icon::Stop});
        return 0;
    }
    LineReader reader(path);
    reader.ReadLine();
    for (int found = 0; found < 4;) {
        const KeywordLine line = ReadKeywordLine(reader);
        if (line.Keyword == "PROJECT")
            project = line.Value;
        else if (line.Keyword == "TASK")
            task = line.Value;
        else if (line.Keyword == "DATE")
            date = line.Value;
        else if (line.Keyword != "LISTING")
            continue;
        ++found;
    }
    return -1;
}

}  // namespace Dorvane
