// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>

#include "input/WeightsDialog.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace Dorvane {

/// What one tab of the weights dialog holds: its own lblTitle1 to lblTitle5, txtValue1 to txtValue5 and
/// chkLinear. What the operator types and clicks goes into the tab's record at once. What the kind does not
/// have is hidden, what is not available at present is greyed.
class WeightsPage : public QWidget {
    Q_OBJECT

  public:
    /// The record has to outlive the page.
    explicit WeightsPage(WeightsTab& tab, QWidget* parent = nullptr);

    /// The first field that the keyboard may go to; nothing when there is none.
    QLineEdit* FirstField() const;
    /// Takes the keyboard to a field (from 1), or to the box that opens it when it is not available.
    void GoTo(int field);
    /// The last field, shown or not, behind which the tab order goes on.
    QLineEdit* LastField() const { return Values.back(); }

  private:
    static constexpr int FieldCount = 5;

    void AddField(QGridLayout& grid, int number, int row);
    void ShowAvailable();
    void ShowDoubts();

    WeightsTab& Tab;
    std::array<QLabel*, FieldCount + 1> Titles{};  // from 1
    std::array<QLineEdit*, FieldCount + 1> Values{};
    QCheckBox* Linear;
};

}  // namespace Dorvane
