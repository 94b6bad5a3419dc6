// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QTest>
#include <string>

#include "programs/edittext/TextView.h"
#include "programs/edittext/frmEditText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// The text editor on a file of a site.
struct TextEditorTest : testing::Test {
    TextEditorTest() { Site.LayOut(); }
    ~TextEditorTest() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void Open(const std::string& content, bool readOnly = false) {
        PutFile(Path, content);
        Show(OpenTextFile(Path, readOnly));
    }
    void Show(TextFile file) {
        Form = new frmEditText(std::move(file));
        Form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Form));
        HandleEvents();
    }

    TextView& View() { return Control<TextView>(*Form, "txtText"); }
    std::string Content() { return View().Document().Content(); }
    Selection Selected() { return View().Caret().Selected(); }
    void Type(const char* keys) { QTest::keyClicks(&View(), QLatin1String(keys)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&View(), key, modifiers);
        HandleEvents();
    }
    /// Handles events until what goes on in portions is over.
    template <class Condition>
    static bool Until(Condition condition) {
        return QTest::qWaitFor(condition, 60000);
    }

    const std::string Path = "D:\\TARVEX\\A B.TXT";
    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<frmEditText> Form;
};

}  // namespace Dorvane::Testing
