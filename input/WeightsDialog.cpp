// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/WeightsDialog.h"

#include <array>
#include <charconv>
#include <vector>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/InputTypes.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

constexpr int FieldCount = 5;

// A stored value. What is no number, which was told, stands as it was typed, so that it can be put right
// here.
std::string StoredText(const InputType& entry, const char* key) {
    const std::string text = IniReadString(InputProfile, entry.Type, key + std::to_string(entry.Number));
    if (text.empty())
        return "0";
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

}  // namespace

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
