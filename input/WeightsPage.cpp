// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/WeightsPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <map>

#include "core/ReportError.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int LinearRow = 4;

// The letters that lead to the fields, none of them twice on a tab.
QString WithMnemonic(const std::string& title) {
    static const std::map<std::string, const char*> captions = {
        {"Horiz Angle", "&Horiz Angle"},   {"Zenith Angle", "&Zenith Angle"},
        {"Distance", "&Distance"},         {"Horizontal Error", "Ho&rizontal Error"},
        {"Zenith Error", "Z&enith Error"}, {"Height Diff", "&Height Diff"}};
    const auto found = captions.find(title);
    return found == captions.end() ? ToCaption(title) : QLatin1String(found->second);
}

QString TipOf(const std::string& title) {
    if (title == "Horiz Angle" || title == "Zenith Angle")
        return QStringLiteral("Standard error of the angle, in gons");
    if (title == "Horizontal Error" || title == "Zenith Error")
        return QStringLiteral(
            "Error at the target, in meters, which makes the angle's the larger the shorter "
            "the sight is");
    return QStringLiteral("Standard error, in meters");
}

// The paper of a field takes a tint of red, which shows an empty one too, and leaves the text legible on
// light and dark desktops.
QPalette Doubtful(QPalette palette) {
    const QColor paper = palette.color(QPalette::Active, QPalette::Base);
    const QColor red(0xd9, 0x48, 0x3b);
    palette.setColor(QPalette::Base,
                     QColor((paper.red() * 3 + red.red()) / 4, (paper.green() * 3 + red.green()) / 4,
                            (paper.blue() * 3 + red.blue()) / 4));
    return palette;
}

}  // namespace

WeightsPage::WeightsPage(WeightsTab& tab, QWidget* parent)
    : QWidget(parent), Tab(tab), Linear(new QCheckBox(QStringLiteral("Calculate &Angular Weights"), this)) {
    auto* grid = new QGridLayout(this);
    for (int number = 1; number <= FieldCount; ++number)
        AddField(*grid, number, number < LinearRow ? number : number + 1);
    Linear->setObjectName(QStringLiteral("chkLinear"));
    Linear->setToolTip(QStringLiteral("Weigh angles by errors in meters at the target"));
    Linear->setChecked(Tab.Linear);
    Linear->setVisible(Tab.HasLinear);
    grid->addWidget(Linear, LinearRow, 0, 1, 2);
    grid->setRowStretch(FieldCount + 2, 1);
    grid->setColumnStretch(2, 1);
    connect(Linear, &QCheckBox::toggled, this, [this](bool on) {
        Guarded("frmObsWeights-chkLinear_Click", [&](Guard&) {
            ClickLinear(Tab, on);
            ShowAvailable();
        });
    });
    setTabOrder(Values[LinearRow - 1], Linear);
    setTabOrder(Linear, Values[LinearRow]);
    setTabOrder(Values[LinearRow], Values[FieldCount]);
    ShowAvailable();
}

void WeightsPage::AddField(QGridLayout& grid, int number, int row) {
    const auto place = static_cast<std::size_t>(number);
    const WeightField& field = Tab.Fields[number];
    auto* title = new QLabel(WithMnemonic(field.Title), this);
    title->setObjectName(QStringLiteral("lblTitle%1").arg(number));
    title->setTextFormat(Qt::PlainText);
    auto* value = new QLineEdit(ToScreen(field.Text), this);
    value->setObjectName(QStringLiteral("txtValue%1").arg(number));
    value->setMinimumWidth(value->fontMetrics().averageCharWidth() * 20);
    value->setCursorPosition(0);
    title->setBuddy(value);
    title->setHidden(field.Title.empty());
    value->setHidden(field.Title.empty());
    grid.addWidget(title, row, 0);
    grid.addWidget(value, row, 1);
    Titles[place] = title;
    Values[place] = value;
    connect(value, &QLineEdit::textChanged, this, [this, number](const QString& text) {
        Tab.Fields[number].Text = FromScreen(text);
        ShowDoubts();
    });
}

void WeightsPage::ShowAvailable() {
    for (int number = 1; number <= FieldCount; ++number) {
        const auto place = static_cast<std::size_t>(number);
        Titles[place]->setEnabled(Tab.Fields[number].Available);
        Values[place]->setEnabled(Tab.Fields[number].Available);
    }
    ShowDoubts();
}

// What would be saved and is no weight stands out, and tells why.
void WeightsPage::ShowDoubts() {
    for (int number = 1; number <= FieldCount; ++number) {
        QLineEdit& value = *Values[static_cast<std::size_t>(number)];
        const std::string reason = WhyNoWeight(Tab, number);
        value.setPalette(reason.empty() ? QPalette() : Doubtful(palette()));
        value.setToolTip(reason.empty() ? TipOf(Tab.Fields[number].Title)
                                        : ToTip("\"" + Tab.Fields[number].Text + "\" " + reason));
    }
}

void WeightsPage::GoTo(int field) {
    QLineEdit& value = *Values[static_cast<std::size_t>(field)];
    value.selectAll();
    (value.isEnabled() ? static_cast<QWidget&>(value) : *Linear).setFocus();
}

QLineEdit* WeightsPage::FirstField() const {
    for (std::size_t place = 1; place < Values.size(); ++place)
        if (Values[place]->isEnabledTo(this) && !Values[place]->isHidden())
            return Values[place];
    return nullptr;
}

}  // namespace Dorvane
