// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/WeightsDialog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/InputTypes.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

constexpr int FieldCount = 5;
constexpr double SmallestWritten = 0.000005;  // below, an input file shows zeros alone
constexpr std::size_t MostTold = 12;          // fields, so that the message fits the desk

// A stored value. What is no number, which was told, stands as it was typed, so that it can be put right
// here.
std::string StoredText(const InputType& entry, const char* key) {
    const std::string text =
        IniFindString(InputProfile, entry.Type, key + std::to_string(entry.Number)).value_or("0");
    return IsNumeric(text) ? PlainDecimal(StrictNumber(text)) : text;
}

void ShowField(WeightsTab& tab, int number, const char* title, const char* key) {
    tab.Fields[number] = {title, StoredText(tab.Entry, key), true};
}

void SetAvailable(WeightsTab& tab, int first, int last, bool available) {
    for (int i = first; i <= last; ++i)
        tab.Fields[i].Available = available;
}

void FillPolar(WeightsTab& tab) {
    ShowField(tab, 1, "Horiz Angle", "HAngle");
    ShowField(tab, 2, "Zenith Angle", "ZAngle");
    ShowField(tab, 3, "Distance", "SDist");
    ShowField(tab, 4, "Horizontal Error", "LHAngle");
    ShowField(tab, 5, "Zenith Error", "LZAngle");
    tab.HasLinear = true;
    ClickLinear(tab, StoredText(tab.Entry, "LinAngle") == "1");
    // A "Total" tab that opens with the box on keeps its distance closed until the box is clicked, which is
    // meant.
    if (tab.Entry.Type == "Total" && tab.Linear)
        SetAvailable(tab, 3, 3, false);
}

void Fill(WeightsTab& tab) {
    const std::string& kind = tab.Entry.Type;
    if (kind == "Tracker" || kind == "Total") {
        FillPolar(tab);
    } else if (kind == "Angle") {
        ShowField(tab, 1, "Horiz Angle", "HAngle");
        ShowField(tab, 2, "Zenith Angle", "ZAngle");
    } else if (kind == "Distance") {
        ShowField(tab, 1, "Distance", "SDist");
    } else if (kind == "Height") {
        ShowField(tab, 1, "Height Diff", "HDiff");
    }
}

// The settings of one tab, each key with the entry's number behind it.
class TabSettings {
  public:
    TabSettings(std::vector<IniSetting>& settings, const InputType& entry)
        : Settings(settings), Entry(entry) {}

    void Add(const char* key, const std::string& text) {
        Settings.push_back({Entry.Type, key + std::to_string(Entry.Number), text});
    }

  private:
    std::vector<IniSetting>& Settings;
    const InputType& Entry;
};

void AddPolar(TabSettings& settings, const WeightsTab& tab) {
    settings.Add(tab.Linear ? "LHAngle" : "HAngle", tab.Fields[tab.Linear ? 4 : 1].Text);
    settings.Add(tab.Linear ? "LZAngle" : "ZAngle", tab.Fields[tab.Linear ? 5 : 2].Text);
    settings.Add("SDist", tab.Fields[3].Text);
    settings.Add("LinAngle", tab.Linear ? "1" : "0");
}

// Whether the click of OK writes a field. The distance of a polar kind is always written.
bool IsWritten(const WeightsTab& tab, int field) {
    if (tab.Fields[field].Title.empty())
        return false;
    return !tab.HasLinear || field == 3 || (field > 3) == tab.Linear;
}

// Linear errors are told apart: they become angles only with the length of a sight.
bool IsLinearError(const WeightsTab& tab, int field) {
    return tab.HasLinear && field > 3;
}

// A text that would be a number with a point in the place of its comma.
bool HasDecimalComma(std::string text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
        return false;
    text[comma] = '.';
    return IsNumeric(text);
}

std::string WhyNoPositiveNumber(const std::string& text) {
    if (Trim(text).empty())
        return "is empty";
    if (HasDecimalComma(text))
        return "has a decimal comma where a point is needed";
    if (!IsNumeric(text))
        return "is not a number";
    const double value = StrictNumber(text);
    if (value < 0)
        return "is below zero";
    return value == 0 ? "is zero, which an adjustment refuses" : "";
}

}  // namespace

std::string WhyNoWeight(const WeightsTab& tab, int field) {
    if (!IsWritten(tab, field))
        return "";
    const std::string& text = tab.Fields[field].Text;
    const std::string reason = WhyNoPositiveNumber(text);
    if (!reason.empty() || IsLinearError(tab, field))
        return reason;
    return StrictNumber(text) < SmallestWritten ? "is 0.00000 with the five decimals of an input file" : "";
}

std::vector<DoubtfulWeight> DoubtfulWeights(const List1<WeightsTab>& tabs) {
    std::vector<DoubtfulWeight> doubtful;
    for (int tab = 1; tab <= tabs.Count(); ++tab)
        for (int field = 1; field <= FieldCount; ++field)
            if (const std::string reason = WhyNoWeight(tabs[tab], field); !reason.empty())
                doubtful.push_back({tab, field, reason});
    return doubtful;
}

bool MaySave(const List1<WeightsTab>& tabs) {
    const std::vector<DoubtfulWeight> doubtful = DoubtfulWeights(tabs);
    if (doubtful.empty())
        return true;
    std::string text = "No standard error above zero :\r\n";
    for (std::size_t i = 0; i < std::min(doubtful.size(), MostTold); ++i) {
        const WeightsTab& tab = tabs[doubtful[i].Tab];
        const WeightField& field = tab.Fields[doubtful[i].Field];
        text +=
            "\r\n" + tab.Entry.Name + ", " + field.Title + " : \"" + field.Text + "\" " + doubtful[i].Reason;
    }
    if (doubtful.size() > MostTold)
        text += "\r\nand " + std::to_string(doubtful.size() - MostTold) + " more";
    const Message question{.Text = text + "\r\n\r\nDo you wish to save the weights all the same?",
                           .Title = "Doubtful Weights",
                           .Picture = Icon::Exclamation,
                           .Choices = Buttons::YesNo,
                           .Default = Answer::No};
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

List1<WeightsTab> OpenWeightsDialog() {
    List1<WeightsTab> tabs;
    Guarded("frmObsWeights-Form_Load", [&](Guard&) {
        ObservationModel own;
        ReadIniInputTypes(own.Types);
        ReadIniWeights(own.DistanceWeights, own.AngleWeights, own.TotalWeights, own.TrackerWeights,
                       own.HeightWeights);
        for (const InputType& type : own.Types) {
            WeightsTab tab;
            tab.Entry = type;
            tab.Picture = AppPath() + "Graphics\\" + type.Icon;
            tab.Fields.Resize(FieldCount);
            Fill(tab);
            tabs.Add(std::move(tab));
        }
    });
    return tabs;
}

void ClickLinear(WeightsTab& tab, bool on) {
    tab.Linear = on;
    SetAvailable(tab, 1, 2, !on);
    SetAvailable(tab, 3, 3, true);
    SetAvailable(tab, 4, 5, on);
}

void SaveWeights(const List1<WeightsTab>& tabs) {
    std::vector<IniSetting> all;
    for (const WeightsTab& tab : tabs) {
        TabSettings settings(all, tab.Entry);
        if (tab.HasLinear) {
            AddPolar(settings, tab);
        } else if (tab.Entry.Type == "Angle") {
            settings.Add("HAngle", tab.Fields[1].Text);
            settings.Add("ZAngle", tab.Fields[2].Text);
        } else if (tab.Entry.Type == "Distance") {
            settings.Add("SDist", tab.Fields[1].Text);
        } else if (tab.Entry.Type == "Height") {
            settings.Add("HDiff", tab.Fields[1].Text);
        }
    }
    IniWriteSettings(InputProfile, all);
}

std::string PlainDecimal(double value) {
    std::array<char, 400> digits{};  // the longest doubles have some 330 digits without an exponent
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value == 0 ? 0 : value,
                                   std::chars_format::fixed);
    return std::string(digits.data(), end.ptr);
}

}  // namespace Dorvane
