// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryTable.h"

#include <gmock/gmock.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "tests/support/ScreenTest.h"

// The keys of the tables that the editors share.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

struct Entries : testing::Test {
    Entries() {
        auto* layout = new QVBoxLayout(&Window);
        Before = new QPushButton(&Window);
        Table = new EntryTable(&Window);
        Behind = new QPushButton(&Window);
        for (QWidget* each : std::initializer_list<QWidget*>{Before, Table, Behind})
            layout->addWidget(each);
        Table->SetUp({{.Title = "Name", .Longest = 8, .UpperCase = true},
                      {.Title = "State", .Fixed = true},
                      {.Title = "Switch",
                       .Default = "ON",
                       .Choices =
                           [](const Texts&) {
                               return Texts{"OFF", "ON"};
                           }}},
                     Most);
        Table->SetLines({{1, {"A", "s", "ON"}}, {2, {"B", "t", "OFF"}}});
        Window.show();
        Window.activateWindow();
        Choose(0, 0);
        HandleEvents();
    }

    QTableWidget& Grid() { return Table->Table(); }
    void Choose(int row, int column) {
        Grid().setFocus();
        Grid().setCurrentCell(row, column);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* target = QApplication::focusWidget();
        ASSERT_NE(target, nullptr);
        QTest::keyClick(target, key, modifiers);
        HandleEvents();
    }
    std::pair<int, int> Cell() { return {Grid().currentRow(), Grid().currentColumn()}; }
    QLineEdit* Field() { return Grid().findChild<QLineEdit*>(); }
    Texts Names() {
        Texts names;
        for (const EntryTable::Line& line : Table->Lines())
            names.push_back(line.Texts[0] + "|" + line.Texts[2]);
        return names;
    }

    static constexpr int Most = 4;
    QWidget Window;
    QPushButton* Before;
    EntryTable* Table;
    QPushButton* Behind;
};

using Place = std::pair<int, int>;

}  // namespace

TEST_F(Entries, TabGoesToTheNextCellThatCanBeChanged) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(), Place(0, 2));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(), Place(1, 0));
    EXPECT_EQ(Field(), nullptr);
}

TEST_F(Entries, ShiftTabGoesBackAndOutAtTheBeginning) {
    Choose(1, 0);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Cell(), Place(0, 2));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Cell(), Place(0, 0));
    EXPECT_TRUE(Grid().hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Before->hasFocus());
}

TEST_F(Entries, TabTakesWhatIsTypedAndOpensTheNextCell) {
    Grid().editItem(Grid().item(0, 0));
    QTest::keyClicks(Field(), "x");
    Press(Qt::Key_Tab);
    EXPECT_THAT(Names(), ElementsAre("X|ON", "B|OFF"));
    EXPECT_EQ(Cell(), Place(0, 2));
    ASSERT_NE(Grid().findChild<QComboBox*>("cmbField"), nullptr);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Cell(), Place(0, 0));
    EXPECT_NE(Field(), nullptr);
}

TEST_F(Entries, TabBehindTheLastCellMakesANewLine) {
    Choose(1, 2);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(), Place(2, 0));
    ASSERT_NE(Field(), nullptr);
    QTest::keyClicks(Field(), "c");
    Press(Qt::Key_Tab);
    EXPECT_THAT(Names(), ElementsAre("A|ON", "B|OFF", "C|ON"));
}

TEST_F(Entries, TabLeavesAfterALineLeftBlank) {
    Choose(1, 2);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Cell(), Place(2, 2));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Grid().rowCount(), 3);
    EXPECT_FALSE(Grid().isAncestorOf(QApplication::focusWidget()));
    EXPECT_FALSE(Grid().hasFocus());
    EXPECT_TRUE(Table->IsBlank(Table->Lines()[2]));
    EXPECT_FALSE(Table->IsBlank(Table->Lines()[1]));
}

TEST_F(Entries, ALineThatWasGivenIsNeverBlank) {
    Table->SetLines({{1, {"", "s", "ON"}}});
    EXPECT_FALSE(Table->IsBlank(Table->Lines()[0]));
    Choose(0, 2);
    Press(Qt::Key_Tab);
    ASSERT_EQ(Grid().rowCount(), 2);
    EXPECT_TRUE(Table->IsBlank(Table->Lines()[1]));
}

TEST_F(Entries, TabLeavesATableThatIsFull) {
    Table->SetLines({{1, {"A", "", "ON"}}, {2, {"B", "", "ON"}}, {3, {"C", "", "ON"}}, {4, {"D", "", "ON"}}});
    Choose(3, 2);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Grid().rowCount(), Most);
    EXPECT_FALSE(Grid().hasFocus());
}

TEST_F(Entries, TabLeavesATableWithoutLines) {
    Table->SetLines({});
    Grid().setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(Grid().rowCount(), 0);
    EXPECT_FALSE(Grid().hasFocus());
}

TEST_F(Entries, EnterGoesDownInItsColumn) {
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(), Place(1, 0));
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(), Place(1, 0));
    EXPECT_EQ(Grid().rowCount(), 2);
    Choose(0, 0);
    Grid().editItem(Grid().item(0, 0));
    QTest::keyClicks(Field(), "y");
    Press(Qt::Key_Return);
    EXPECT_THAT(Names(), ElementsAre("Y|ON", "B|OFF"));
    EXPECT_EQ(Cell(), Place(1, 0));
    EXPECT_EQ(Field(), nullptr);
}

TEST_F(Entries, EnterInTheLastCellMakesANewLine) {
    Choose(1, 2);
    Press(Qt::Key_Enter);
    EXPECT_EQ(Cell(), Place(2, 0));
    EXPECT_NE(Field(), nullptr);
}

TEST_F(Entries, EscapeGivesUpWhatIsTyped) {
    Grid().editItem(Grid().item(0, 0));
    QTest::keyClicks(Field(), "zz");
    Press(Qt::Key_Escape);
    EXPECT_THAT(Names(), ElementsAre("A|ON", "B|OFF"));
    EXPECT_EQ(Cell(), Place(0, 0));
}

TEST_F(Entries, AListKeepsAValueThatItDoesNotOffer) {
    Table->SetLines({{1, {"A", "", "ODD"}}});
    Choose(0, 2);
    Grid().editItem(Grid().item(0, 2));
    auto* list = Grid().findChild<QComboBox*>("cmbField");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->currentText(), QStringLiteral("ODD"));
    EXPECT_EQ(list->count(), 3);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Names()[0], "A|ODD");
}

TEST_F(Entries, AChoiceInAListIsTakenAtOnce) {
    Choose(0, 2);
    Grid().editItem(Grid().item(0, 2));
    auto* list = Grid().findChild<QComboBox*>("cmbField");
    list->setCurrentIndex(0);
    emit list->activated(0);
    HandleEvents();
    EXPECT_EQ(Names()[0], "A|OFF");
    EXPECT_EQ(Cell(), Place(0, 2));
}

TEST_F(Entries, MarksStayWithTheirLinesAndAreReadBelow) {
    Table->ShowMarks({{2, "B is odd."}});
    EXPECT_TRUE(Grid().item(0, 0)->icon().isNull());
    EXPECT_FALSE(Grid().item(1, 0)->icon().isNull());
    EXPECT_EQ(TextOf(*Table, "lblMark"), "");
    EXPECT_TRUE(IsShown(*Table, "lblMark")) << "the table would jump";
    Choose(1, 0);
    EXPECT_EQ(TextOf(*Table, "lblMark"), "B is odd.");
    QTest::keyClick(&Grid(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_FALSE(Grid().item(0, 0)->icon().isNull());
    EXPECT_TRUE(Grid().item(1, 0)->icon().isNull());
    EXPECT_EQ(TextOf(*Table, "lblMark"), "B is odd.");
    Table->ShowMarks({});
    EXPECT_FALSE(IsShown(*Table, "lblMark"));
    EXPECT_TRUE(Grid().item(0, 0)->icon().isNull());
}

TEST_F(Entries, AskBeforeALineIsRemoved) {
    Texts asked;
    Table->MayRemove = [&](const EntryTable::Line& line) {
        asked.push_back(line.Texts[0]);
        return line.Texts[0] != "A";
    };
    Press(Qt::Key_Delete);
    EXPECT_EQ(Grid().rowCount(), 2);
    Choose(1, 0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Grid().rowCount(), 1);
    EXPECT_THAT(asked, ElementsAre("A", "B"));
}

TEST_F(Entries, TellThatAnotherLineIsChosenWhenOneIsRemoved) {
    int chosen = 0;
    QObject::connect(Table, &EntryTable::LineChosen, Table, [&] { chosen = Table->ChosenId(); });
    Press(Qt::Key_Delete);
    EXPECT_EQ(chosen, 2);
}

TEST_F(Entries, TellOfEveryChangeByHand) {
    int changes = 0;
    QObject::connect(Table, &EntryTable::Edited, Table, [&] { ++changes; });
    Grid().editItem(Grid().item(0, 0));
    QTest::keyClicks(Field(), "q");
    Press(Qt::Key_Return);
    EXPECT_EQ(changes, 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(changes, 2);
    Table->SetText(1, 1, "new");
    EXPECT_EQ(Table->Lines()[0].Texts[1], "new");
    EXPECT_EQ(changes, 2);
}

}  // namespace Dorvane::Testing
