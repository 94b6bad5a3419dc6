// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "input/ObservationModel.h"

// What the weights dialog shows and what its OK writes. Lists count from 1.
namespace Dorvane {

/// A title with its value field; both are available or not together.
struct WeightField {
    std::string Title;
    std::string Text;
    bool Available = false;
};

/// One tab of the dialog.
struct WeightsTab {
    InputType Entry;            // its Name is the tab's caption
    std::string Picture;        // path of the tab's picture
    List1<WeightField> Fields;  // five, those that the kind does not have never available
    bool HasLinear = false;     // the box "Calculate Angular Weights" is available
    bool Linear = false;        // it is checked
};

/// The tabs as the dialog opens, one per input type, from types and weights read anew. A field shows its
/// value as plain decimal text; what the profile has instead of a number is reported as
/// "basRead-ReadIniWeights" and stands as it was typed. Reports as "frmObsWeights-Form_Load".
List1<WeightsTab> OpenWeightsDialog();

/// The click of the box: with it on the linear errors and the distance are available, otherwise the angular
/// errors and the distance.
void ClickLinear(WeightsTab& tab, bool on);

/// A field whose text the click of OK would write, and that is no weight.
struct DoubtfulWeight {
    int Tab = 0;    // from 1
    int Field = 0;  // from 1
    std::string Reason;
};

/// Why the text of a field is no weight: it is no number above zero, or too small for the five decimals of
/// the input file. Empty for a weight, and for a field that OK does not write.
std::string WhyNoWeight(const WeightsTab& tab, int field);

/// All of them, tab by tab.
std::vector<DoubtfulWeight> DoubtfulWeights(const List1<WeightsTab>& tabs);

/// Names the doubtful fields and asks whether they are to be saved all the same. True when they are, or when
/// there are none.
bool MaySave(const List1<WeightsTab>& tabs);

/// The click of OK: writes the texts as typed, without a check, tab by tab. Fields that are not available
/// keep their old values in the profile.
void SaveWeights(const List1<WeightsTab>& tabs);

/// A number in decimal digits without an exponent, as short as it can be.
std::string PlainDecimal(double value);

}  // namespace Dorvane
