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
    value->setToolTip(TipOf(field.Title));
    title->setBuddy(value);
    title->setHidden(field.Title.empty());
    value->setHidden(field.Title.empty());
    grid.addWidget(title, row, 0);
    grid.addWidget(value, row, 1);
    Titles[place] = title;
    Values[place] = value;
    connect(value, &QLineEdit::textChanged, this,
            [this, number](const QString& text) { Tab.Fields[number].Text = FromScreen(text); });
}

void WeightsPage::ShowAvailable() {
    for (int number = 1; number <= FieldCount; ++number) {
        const auto place = static_cast<std::size_t>(number);
        Titles[place]->setEnabled(Tab.Fields[number].Available);
        Values[place]->setEnabled(Tab.Fields[number].Available);
    }
}

QLineEdit* WeightsPage::FirstField() const {
    for (std::size_t place = 1; place < Values.size(); ++place)
        if (Values[place]->isEnabledTo(this) && !Values[place]->isHidden())
            return Values[place];
    return nullptr;
}

}  // namespace Dorvane
