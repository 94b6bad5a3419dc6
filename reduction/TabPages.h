// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

class QButtonGroup;
class QGridLayout;
class QScrollArea;
class QStackedWidget;

namespace Dorvane {

/// Pages of which one is seen, behind tabs that run over as many rows as they need. The arrow keys go from
/// tab to tab on the tabs themselves, Ctrl+PageDown and Ctrl+PageUp wherever the focus is. Tabs and pages
/// count from 0; a page is kept as long as this lives, also while it has no tab.
class TabPages : public QWidget {
    Q_OBJECT

  public:
    explicit TabPages(QWidget* parent = nullptr);

    void AddPage(QWidget* page);
    int PageCount() const;

    /// Gives the first pages these tabs, so many in a row, and makes the first one current. Without captions
    /// nothing is seen.
    void SetTabs(const QStringList& captions, int tabsPerRow);
    int TabCount() const;
    /// The tabs, in their order, for the order of the Tab key.
    QWidgetList TabWidgets() const;

    void SetCurrent(int tab);
    /// -1 when there are no tabs.
    int Current() const;

    QSize minimumSizeHint() const override;

    /// The focus goes to the current tab.
    void FocusTabs();

  signals:
    void CurrentChanged(int tab);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Step(int by);
    void ShowPage(int tab);
    void MakeRoom(int rows);
    void PlaceStrip();

    QScrollArea* Strip;
    QWidget* StripContent;
    QGridLayout* Rows;
    QButtonGroup* Tabs;
    QStackedWidget* Pages;
    int StripHeight = 0;
};

}  // namespace Dorvane
