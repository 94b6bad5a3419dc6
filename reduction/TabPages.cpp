// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/TabPages.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyleOptionTab>
#include <QStylePainter>
#include <functional>

namespace Dorvane {

namespace {

constexpr int MostRowsSeen = 4;
constexpr int WidestCaption = 24;    // characters
constexpr int NarrowestCaption = 8;  // characters

// One tab. Its caption is left out at the end where there is no room for it, and is the tip then.
class TabButton : public QAbstractButton {
  public:
    explicit TabButton(QWidget* parent) : QAbstractButton(parent) {
        setCheckable(true);
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return SizeFor(WidestCaption); }
    QSize minimumSizeHint() const override { return SizeFor(NarrowestCaption); }

    QStyleOptionTab::TabPosition PlaceInRow = QStyleOptionTab::OnlyOneTab;

    std::function<void(int by)> Walk;  // to the next tab and the one before, over the ends of rows too

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
            Walk(event->key() == Qt::Key_Left ? -1 : 1);
        else
            QAbstractButton::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter painter(this);
        QStyleOptionTab option = Option();
        const int room = style()->subElementRect(QStyle::SE_TabBarTabText, &option, this).width();
        option.text =
            fontMetrics().elidedText(text(), Qt::ElideRight, std::max(room, 1), Qt::TextShowMnemonic);
        painter.drawControl(QStyle::CE_TabBarTab, option);
    }

  private:
    QStyleOptionTab Option() const {
        QStyleOptionTab option;
        option.initFrom(this);
        option.shape = QTabBar::RoundedNorth;
        option.position = PlaceInRow;
        option.text = text();
        option.state.setFlag(QStyle::State_Selected, isChecked());
        option.state.setFlag(QStyle::State_Sunken, isDown());
        return option;
    }

    QSize SizeFor(int characters) const {
        const QStyleOptionTab option = Option();
        const int widest = fontMetrics().averageCharWidth() * characters;
        const int horizontal = style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option, this);
        const int vertical = style()->pixelMetric(QStyle::PM_TabBarTabVSpace, &option, this);
        const QSize content(
            std::min(fontMetrics().size(Qt::TextShowMnemonic, text()).width(), widest) + horizontal,
            fontMetrics().height() + vertical);
        return style()->sizeFromContents(QStyle::CT_TabBarTab, &option, content, this);
    }
};

QStyleOptionTab::TabPosition PlaceOf(int column, int tabsInRow) {
    if (tabsInRow == 1)
        return QStyleOptionTab::OnlyOneTab;
    if (column == 0)
        return QStyleOptionTab::Beginning;
    return column == tabsInRow - 1 ? QStyleOptionTab::End : QStyleOptionTab::Middle;
}

}  // namespace

TabPages::TabPages(QWidget* parent)
    : QWidget(parent),
      Strip(new QScrollArea(this)),
      StripContent(new QWidget(Strip)),
      Rows(new QGridLayout(StripContent)),
      Tabs(new QButtonGroup(this)),
      Pages(new QStackedWidget(this)) {
    Rows->setContentsMargins(0, 0, 0, 0);
    Rows->setSpacing(0);
    Strip->setWidget(StripContent);
    Strip->setWidgetResizable(true);
    StripContent->setAutoFillBackground(false);
    Strip->viewport()->setAutoFillBackground(false);
    Strip->setFrameShape(QFrame::NoFrame);
    Strip->setFocusPolicy(Qt::NoFocus);
    Strip->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Pages->setFrameShape(QFrame::StyledPanel);
    (new QVBoxLayout(this))->addWidget(Pages);
    Strip->raise();
    connect(Tabs, &QButtonGroup::idToggled, this, [this](int tab, bool on) {
        if (on)
            ShowPage(tab);
    });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this,
            [this] { Step(1); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this,
            [this] { Step(-1); });
    SetTabs({}, 1);
}

void TabPages::AddPage(QWidget* page) {
    Pages->addWidget(page);
}

int TabPages::PageCount() const {
    return Pages->count();
}

void TabPages::SetTabs(const QStringList& captions, int tabsPerRow) {
    const QList<QAbstractButton*> former = Tabs->buttons();
    for (QAbstractButton* tab : former)
        delete tab;
    const int count = static_cast<int>(captions.size());
    for (int i = 0; i < count; ++i) {
        auto* tab = new TabButton(StripContent);
        tab->setObjectName(QStringLiteral("tab%1").arg(i));
        tab->setText(captions[i]);
        tab->Walk = [this](int by) {
            Step(by);
            FocusTabs();
        };
        const int column = i % tabsPerRow;
        tab->PlaceInRow = PlaceOf(column, std::min(tabsPerRow, count - (i - column)));
        Tabs->addButton(tab, i);
        Rows->addWidget(tab, i / tabsPerRow, column);
    }
    for (int column = 0; column < std::max(Rows->columnCount(), tabsPerRow); ++column)
        Rows->setColumnStretch(column, column < tabsPerRow ? 1 : 0);
    MakeRoom((count + tabsPerRow - 1) / tabsPerRow);
    Strip->setVisible(count > 0);
    Pages->setVisible(count > 0);
    if (count > 0)
        SetCurrent(0);
}

// The strip lies over the page's upper edge by as much as the style lets tabs overlap it, so that the current
// tab of the last row is one with its page.
void TabPages::MakeRoom(int rows) {
    const int tabHeight = rows == 0 ? 0 : Tabs->button(0)->sizeHint().height();
    const int overlap = rows == 0 ? 0 : style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
    StripHeight = tabHeight * std::min(rows, MostRowsSeen);
    Strip->setVerticalScrollBarPolicy(rows > MostRowsSeen ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    layout()->setContentsMargins(0, StripHeight - overlap, 0, 0);
    updateGeometry();
    PlaceStrip();
}

QSize TabPages::minimumSizeHint() const {
    return QWidget::minimumSizeHint().expandedTo({Rows->minimumSize().width(), 0});
}

void TabPages::PlaceStrip() {
    Strip->setGeometry(0, 0, width(), StripHeight);
}

void TabPages::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PlaceStrip();
}

int TabPages::TabCount() const {
    return static_cast<int>(Tabs->buttons().size());
}

QWidgetList TabPages::TabWidgets() const {
    QWidgetList tabs;
    for (int i = 0; i < TabCount(); ++i)
        tabs.append(Tabs->button(i));
    return tabs;
}

void TabPages::SetCurrent(int tab) {
    Tabs->button(tab)->setChecked(true);
}

int TabPages::Current() const {
    return Tabs->checkedId();
}

void TabPages::FocusTabs() {
    if (QAbstractButton* tab = Tabs->checkedButton())
        tab->setFocus();
}

void TabPages::Step(int by) {
    if (TabCount() > 0)
        SetCurrent((Current() + by + TabCount()) % TabCount());
}

void TabPages::ShowPage(int tab) {
    Pages->setCurrentIndex(tab);
    Strip->ensureWidgetVisible(Tabs->button(tab), 0, 0);
    emit CurrentChanged(tab);
}

}  // namespace Dorvane
