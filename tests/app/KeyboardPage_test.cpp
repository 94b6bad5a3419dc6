// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QHelpEngineCore>
#include <QRegularExpression>
#include <QShortcut>
#include <QTemporaryDir>
#include <set>

#include "core/basHelp.h"
#include "tests/app/AllScreens.h"

// The page of the manual about the keyboard, held against the keys of the screens.
namespace Dorvane {

using namespace Testing;

namespace {

using Keys = std::set<std::string>;

QString PageText() {
    const QTemporaryDir scratch;
    QHelpEngineCore engine(scratch.filePath(QStringLiteral("help.qhc")));
    engine.setReadOnly(false);
    EXPECT_TRUE(engine.setupData() &&
                engine.registerDocumentation(QStringLiteral(DORVANE_FOLDER "/help/DorvaneHelp.qch")));
    const QString manual = engine.registeredDocumentations().value(0);
    return QString::fromUtf8(
        engine.fileData(QUrl(QStringLiteral("qthelp://%1/manual/keyboard.html").arg(manual))));
}

/// The keys that a cell of the page names: "Ctrl+Up, Ctrl+Down", "Space or Del in the list", "1 to 9".
Keys KeysOf(const QString& cell) {
    static const QRegularExpression key(
        QStringLiteral("\\b((?:(?:Ctrl|Alt|Shift)\\+)*"
                       "(?:F\\d+|Page Up|Page Down|Ins|Del|Enter|Up|Down|[A-Z0-9])\\b|Ctrl\\+[+-])"));
    QString text = cell;
    text.replace(QStringLiteral("1 to 9"), QStringLiteral("1, 2, 3, 4, 5, 6, 7, 8, 9"));
    text.remove(QRegularExpression(QStringLiteral("<b>.*?</b>")));
    Keys keys;
    for (const QRegularExpressionMatch& match : key.globalMatch(text)) {
        QString name = match.captured(1);
        name.replace(QStringLiteral("Page Up"), QStringLiteral("PgUp"));
        name.replace(QStringLiteral("Page Down"), QStringLiteral("PgDown"));
        keys.insert(name.toStdString());
    }
    return keys;
}

struct Row {
    std::string Page;  // of the manual, to which its screen leads
    Keys Named;
};

QString Table(const QString& page, const char* id) {
    const qsizetype begin = page.indexOf(QStringLiteral("id=\"%1\"").arg(QLatin1String(id)));
    return page.mid(begin, page.indexOf(QStringLiteral("</table>"), begin) - begin);
}

/// The rows about screens; a row without a screen belongs to the one above it, a table of its own to one
/// screen.
std::vector<Row> RowsOfScreens() {
    static const QRegularExpression row(QStringLiteral("<tr><td>(.*?)</td><td>(.*?)</td>"));
    static const QRegularExpression link(QStringLiteral("href=\"([^\"]*)\""));
    const QString page = PageText();
    std::vector<Row> rows;
    for (const QRegularExpressionMatch& match : row.globalMatch(Table(page, "screens"))) {
        const QString leads = link.match(match.captured(1)).captured(1);
        rows.push_back({leads.isEmpty() ? rows.back().Page : leads.toStdString(), KeysOf(match.captured(2))});
    }
    for (const QRegularExpressionMatch& match : row.globalMatch(Table(page, "text")))
        rows.push_back({"edittext.html", KeysOf(match.captured(1))});
    return rows;
}

void Add(Keys& keys, const QKeySequence& key) {
    std::string name = key.toString(QKeySequence::PortableText).toStdString();
    if (name == "Return")
        name = "Enter";
    if (!name.empty())
        keys.insert(name);
}

/// The keys of a screen that it does not show as an underlined letter.
Keys KeysOf(QWidget& screen) {
    Keys keys;
    for (const QAction* const action : screen.findChildren<QAction*>())
        Add(keys, action->shortcut());
    for (const QAbstractButton* const button : screen.findChildren<QAbstractButton*>())
        if (button->shortcut() != QKeySequence::mnemonic(button->text()))
            Add(keys, button->shortcut());
    for (const QShortcut* const shortcut : screen.findChildren<QShortcut*>())
        Add(keys, shortcut->key());
    return keys;
}

std::string WithoutPlace(const std::string& page) {
    return page.substr(0, page.find('#'));
}

/// Whether a row is about the screen of this page; the editors' tables have their keys in common.
bool IsAboutThem(const Row& row, const std::string& page) {
    return row.Page == page ||
           (WithoutPlace(row.Page) == "editors.html" && WithoutPlace(page) == "editors.html");
}

}  // namespace

TEST(KeyboardPage, NamesEveryKeyOfEveryScreen) {
    const std::vector<Row> rows = RowsOfScreens();
    int keys = 0;
    ForEachScreen([&](ScreenSite&, QWidget& screen, const ScreenKind& kind) {
        Keys named;
        for (const Row& row : rows)
            if (IsAboutThem(row, HelpPageOf(kind.Form())))
                named.insert(row.Named.begin(), row.Named.end());
        for (const std::string& key : KeysOf(screen)) {
            EXPECT_EQ(named.count(key), 1U) << key;
            ++keys;
        }
    });
    EXPECT_GT(keys, 20);
}

// What a tree, a tab or the text does with its own keys is not a shortcut, and has tests of its own.
TEST(KeyboardPage, NamesNoKeyThatItsScreenLacks) {
    ScreenSite site;
    const std::vector<Row> rows = RowsOfScreens();
    ASSERT_GE(rows.size(), 8U);
    for (const Row& row : rows) {
        Keys there = {"Enter", "Left", "Right", "Space"};
        if (row.Page == "edittext.html")
            there.insert({"Shift+Enter", "Ctrl+Up", "Ctrl+Down"});
        for (const ScreenKind& each : AllScreens())
            if (IsAboutThem(row, HelpPageOf(each.Form())))
                there.merge(KeysOf(site.Show(each.Make(site))));
        for (const std::string& key : row.Named)
            EXPECT_EQ(there.count(key), 1U) << key << " of " << row.Page;
    }
}

}  // namespace Dorvane
