// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/WeightsDialog.h"

#include <array>
#include <charconv>
#include <type_traits>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "input/InputTypes.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

constexpr int FieldCount = 5;

void ShowField(WeightsTab& tab, int number, const char* title, double value) {
    tab.Fields[number] = {title, PlainDecimal(value), true};
}

void SetAvailable(WeightsTab& tab, int first, int last, bool available) {
    for (int i = first; i <= last; ++i)
        tab.Fields[i].Available = available;
}

template <class Weight>
void FillPolar(WeightsTab& tab, const Weight& weight) {
    ShowField(tab, 1, "Horiz Angle", weight.HAngle);
    ShowField(tab, 2, "Zenith Angle", weight.ZAngle);
    ShowField(tab, 3, "Distance", weight.SDist);
    ShowField(tab, 4, "Horizontal Error", weight.LHAngle);
    ShowField(tab, 5, "Zenith Error", weight.LZAngle);
    tab.HasLinear = true;
    ClickLinear(tab, weight.LinAngle == 1);
    // A "Total" tab that opens with the box on keeps its distance closed until the box is clicked, which is
    // meant.
    if (std::is_same_v<Weight, TotalWeight> && tab.Linear)
        SetAvailable(tab, 3, 3, false);
}

void Fill(WeightsTab& tab, const TrackerWeight& weight) {
    FillPolar(tab, weight);
}

void Fill(WeightsTab& tab, const TotalWeight& weight) {
    FillPolar(tab, weight);
}

void Fill(WeightsTab& tab, const AngleWeight& weight) {
    ShowField(tab, 1, "Horiz Angle", weight.HAngle);
    ShowField(tab, 2, "Zenith Angle", weight.ZAngle);
}

void Fill(WeightsTab& tab, const DistanceWeight& weight) {
    ShowField(tab, 1, "Distance", weight.SDist);
}

void Fill(WeightsTab& tab, const HeightWeight& weight) {
    ShowField(tab, 1, "Height Diff", weight.HDiff);
}

void Save(const WeightsTab& tab, const char* key, const std::string& text) {
    IniWriteString(InputProfile, tab.Entry.Type, key + std::to_string(tab.Entry.Number), text);
}

void SavePolar(const WeightsTab& tab) {
    Save(tab, tab.Linear ? "LHAngle" : "HAngle", tab.Fields[tab.Linear ? 4 : 1].Text);
    Save(tab, tab.Linear ? "LZAngle" : "ZAngle", tab.Fields[tab.Linear ? 5 : 2].Text);
    Save(tab, "SDist", tab.Fields[3].Text);
    Save(tab, "LinAngle", tab.Linear ? "1" : "0");
}

}  // namespace

List1<WeightsTab> OpenWeightsDialog() {
    List1<WeightsTab> tabs;
    Guarded("frmObsWeights-Form_Load", [&](Guard&) {
        ObservationModel own;
        ReadIniInputTypes(own.Types);
        ReadIniWeights(own.DistanceWeights, own.AngleWeights, own.TotalWeights, own.TrackerWeights,
                       own.HeightWeights);
        InitObsArrays(own.DistanceSets, own.AngleSets, own.TotalSets, own.TrackerSets, own.HeightSets);
        for (const InputType& type : own.Types) {
            WeightsTab tab;
            tab.Entry = type;
            tab.Picture = AppPath() + "Graphics\\" + type.Icon;
            tab.Fields.Resize(FieldCount);
            VisitObsSet(own, type, [&](const auto&, const auto& weight) { Fill(tab, weight); });
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
    for (const WeightsTab& tab : tabs) {
        if (tab.HasLinear) {
            SavePolar(tab);
        } else if (tab.Entry.Type == "Angle") {
            Save(tab, "HAngle", tab.Fields[1].Text);
            Save(tab, "ZAngle", tab.Fields[2].Text);
        } else if (tab.Entry.Type == "Distance") {
            Save(tab, "SDist", tab.Fields[1].Text);
        } else if (tab.Entry.Type == "Height") {
            Save(tab, "HDiff", tab.Fields[1].Text);
        }
    }
}

std::string PlainDecimal(double value) {
    std::array<char, 400> digits{};  // the longest doubles have some 330 digits without an exponent
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value == 0 ? 0 : value,
                                   std::chars_format::fixed);
    return std::string(digits.data(), end.ptr);
}

}  // namespace Dorvane
