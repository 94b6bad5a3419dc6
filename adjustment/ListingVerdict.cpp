// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ListingVerdict.h"

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "core/FileGlance.h"
#include "core/LineReader.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

using Mark = ListingVerdict::Mark;

// The head of a listing is some kilobytes; behind it may follow hundreds of megabytes.
constexpr std::size_t HeadSize = 1 << 18;

// A line of the box " | label         sentence ... |": columns of the label and of the sentence.
constexpr std::string_view BoxLine = " | ";
constexpr int LabelColumn = 4;
constexpr int LabelWidth = 14;
constexpr int SentenceColumn = LabelColumn + LabelWidth;

bool Begins(std::string_view line, std::string_view text) {
    return line.substr(0, text.size()) == text;
}

Mark MarkOf(const std::string& result) {
    constexpr std::array<std::pair<std::string_view, Mark>, 4> marks = {{
        {"GOOD", Mark::Good},
        {"DOUBTFUL", Mark::Doubt},
        {"GROSS ERRORS SUSPECTED", Mark::Doubt},
        {"RUN FAILED", Mark::Failed},
    }};
    for (const auto& [text, mark] : marks)
        if (result == text)
            return mark;
    return Mark::Remark;
}

// A word near the beginning of a sentence, counted from 1.
std::string WordAt(const std::string& sentence, int number) {
    constexpr int beginning = 60;
    List1<std::string> words;
    return ParseFields(words, Left(sentence, beginning)) >= number ? words[number] : "";
}

long CountAt(std::string_view line, int column) {
    const std::string digits = Trim(Mid(line, column));
    long count = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), count);
    return count;
}

// Gathers the head line by line.
class HeadReader {
  public:
    void Take(std::string_view line) {
        if (Begins(line, " RUN FAILED"))
            Verdict.Result = "RUN FAILED";
        else if (Begins(line, BoxLine))
            TakeBoxLine(line);
        else if (Begins(line, "  Run         "))
            Verdict.When = Trim(Mid(line, 14));
        else if (Begins(line, "  Error ") && Verdict.Result == "RUN FAILED")
            Verdict.Doubt = Trim(line);
        else if (Begins(line, "  Stations  ") || Begins(line, "  Points    "))
            Verdict.Points += CountAt(line, 13);
        IsComplete = Begins(line, "  Points    ") || Begins(line, "Final results");
    }

    ListingVerdict Finished() {
        EndEntry();
        if (Verdict.Result.empty())
            return {};
        Verdict.Sign = MarkOf(Verdict.Result);
        return Verdict;
    }

    bool IsComplete = false;

  private:
    void TakeBoxLine(std::string_view line) {
        const std::string label = Trim(Mid(line, LabelColumn, LabelWidth));
        std::string sentence = Mid(line, SentenceColumn);
        sentence = Trim(sentence.substr(0, sentence.rfind('|')));
        if (!label.empty()) {
            EndEntry();
            Label = label;
            Sentence = sentence;
        } else if (!sentence.empty()) {
            Sentence += ' ' + sentence;
        }
    }

    void EndEntry() {
        if (Label == "RESULT")
            Verdict.Result = Sentence;
        if (Label == "m0")
            TakeM0();
        if (Label == "redundancy")
            Verdict.Observations = WordAt(Sentence, 3);
        if (Label == "iterations")
            Verdict.Iterations = WordAt(Sentence, 1);
        if (Label == "DOUBT" && ++Verdict.Doubts == 1)
            Verdict.Doubt = Sentence;
        Label.clear();
    }

    void TakeM0() {
        const std::size_t end = Sentence.find(';');
        Verdict.M0 = Sentence.substr(0, end);
        if (end != std::string::npos)
            Verdict.Test = Trim(Sentence.substr(end + 1));
    }

    ListingVerdict Verdict;
    std::string Label;  // of the entry of the box that is being read; a sentence may take several lines
    std::string Sentence;
};

}  // namespace

ListingVerdict ReadListingVerdict(const std::string& path) {
    if (!FileExists(path))
        return {};
    try {
        LineReader lines = LineReader::OfText(FileHead(path, HeadSize));
        HeadReader head;
        while (!lines.AtEnd() && !head.IsComplete)
            head.Take(lines.ReadLine());
        return head.Finished();
    } catch (const RunTimeError& error) {
        ListingVerdict unreadable;
        unreadable.Sign = Mark::Failed;
        unreadable.Result = "LISTING CANNOT BE READ";
        unreadable.Doubt = error.Description;
        return unreadable;
    }
}

}  // namespace Dorvane
