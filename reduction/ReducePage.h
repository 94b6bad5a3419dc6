// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QWidget>
#include <map>
#include <memory>
#include <string>

#include "reduction/ReduceTabs.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class ReducePage;
}

/// The state pictures, each read once. One that cannot be read is reported once, and is empty.
class StatePictures {
  public:
    const QIcon& Of(const std::string& name, const char* procedure);

  private:
    std::map<std::string, QIcon> Read;
};

/// What stands behind one tab of the reduction screen. The names of its controls carry the tab's number from
/// 0, as "cmdReduce0". The pictures of state keep their tag as the property "Tag".
class ReducePage : public QWidget {
    Q_OBJECT

  public:
    ReducePage(int index, StatePictures& pictures, QWidget* parent = nullptr);
    ~ReducePage() override;

    /// Shows the whole tab. A picture of the run button that cannot be read is reported.
    void ShowTab(const ReduceTab& tab);
    /// Shows the reduction half alone, with nothing selected in its list.
    void ShowReduction(const ReductionState& state);

    /// The controls that the Tab key goes to, in that order.
    QWidgetList Stops() const;

    /// The chosen calibration epoch, from 1.
    int Epoch() const;
    /// The selected result files, from the top.
    List1<std::string> Selected() const;

  signals:
    void RunClicked();
    void EditClicked();
    void PrintClicked();

  private:
    void ShowState(QLabel& picture, const StatePicture& state, const QString& meaning, const char* procedure);
    void ShowCalibration(const ReduceTab& tab);

    StatePictures& Pictures;
    std::unique_ptr<Ui::ReducePage> Form;
};

}  // namespace Dorvane
