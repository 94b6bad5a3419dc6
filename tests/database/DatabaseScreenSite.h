// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <string>
#include <vector>

#include "core/widgets/ScreenText.h"
#include "datatree/DirectoryTree.h"
#include "tests/database/DatabaseSite.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

inline PathRecord LocationRecord(const std::string& root, const std::string& location) {
    PathRecord record;
    record.Root = root;
    record.Location = location;
    record.Type = "LEVEL";
    return record;
}

/// One of the database's screens, on a site of two roots and three locations. NORTH alone has a database.
template <class Form>
class DatabaseScreenSite : public DatabaseSite {
  protected:
    DatabaseScreenSite() {
        UseShippedPictures();
        Global().PrinterPresent = true;
        Global().PathRecords = {LocationRecord("DAM", "NORTH"), LocationRecord("DAM", "SOUTH"),
                                LocationRecord("TUNNEL", "EAST")};
    }
    ~DatabaseScreenSite() override {
        if (!Opened.isNull())
            Opened->Unload();
        HandleEvents();
    }

    Form& Open() {
        Opened = new Form(Nav);
        Opened->setUpdatesEnabled(Painted);
        Opened->ShowModal();
        HandleEvents();
        return *Opened;
    }
    void Close() {
        Opened->Unload();
        HandleEvents();
    }

    DirectoryTree& Tree() { return Control<DirectoryTree>(*Opened, "trvDirectory"); }

    /// The captions from the top to each node, "/" between them.
    std::vector<std::string> Captions() {
        std::vector<std::string> captions;
        for (QTreeWidgetItemIterator it(&Tree()); *it != nullptr; ++it) {
            QString caption = (*it)->text(0);
            for (QTreeWidgetItem* above = (*it)->parent(); above != nullptr; above = above->parent())
                caption = above->text(0) + "/" + caption;
            captions.push_back(FromScreen(caption));
        }
        return captions;
    }

    void ClickNode(const std::string& caption) {
        const QList<QTreeWidgetItem*> found =
            Tree().findItems(ToScreen(caption), Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << caption;
        Tree().scrollToItem(found.first());
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                          Tree().visualItemRect(found.first()).center());
        HandleEvents();
    }

    void ClickOptions(const std::vector<const char*>& options) {
        for (const char* option : options) {
            auto& button = Control<QRadioButton>(*Opened, option);
            ASSERT_TRUE(button.isVisibleTo(&*Opened) && button.isEnabled()) << option;
            // At its mark, since a short caption does not reach the middle.
            QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
            EXPECT_TRUE(button.isChecked()) << option;
        }
    }

    static bool Tells(const Message& message, const std::string& text) {
        return message.Text.find(text) != std::string::npos;
    }

    RecordingNavigator Nav;
    QPointer<Form> Opened;
    bool Painted = true;  // not in a child process, which lacks the threads that the toolkit paints with
};

/// The letters after "&" of the captions of these controls, to see that none comes twice.
template <class Control>
std::string Mnemonics(QWidget& screen) {
    std::string letters;
    for (const Control* control : screen.findChildren<Control*>()) {
        const int place = static_cast<int>(control->text().indexOf(QLatin1Char('&')));
        if (place >= 0)
            letters += control->text()[place + 1].toLower().toLatin1();
    }
    return letters;
}

inline void ExpectNoneTwice(std::string letters) {
    std::sort(letters.begin(), letters.end());
    EXPECT_EQ(std::adjacent_find(letters.begin(), letters.end()), letters.end()) << letters;
}

}  // namespace Dorvane::Testing
