// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

#include "core/basHelp.h"
#include "tests/app/AllScreens.h"

namespace Dorvane {

namespace {

constexpr int Patience = 60000;  // milliseconds, for a machine under load

}  // namespace

/// The help file as it is shipped.
class Manual : public testing::Test {
  protected:
    Manual() : Engine(Scratch.filePath(QStringLiteral("help.qhc"))) {
        QHelpEngineCore registrar(Engine.collectionFile());
        registrar.setReadOnly(false);
        EXPECT_TRUE(registrar.setupData()) << registrar.error().toStdString();
        EXPECT_TRUE(registrar.registerDocumentation(QStringLiteral(DORVANE_FOLDER "/help/DorvaneHelp.qch")))
            << registrar.error().toStdString();
        EXPECT_TRUE(Engine.setupData()) << Engine.error().toStdString();
    }

    QString Text(QUrl url) const {
        url.setFragment({});
        return QString::fromUtf8(Engine.fileData(url));
    }

    /// The page is there, and so is the place on it.
    void ExpectLeadsSomewhere(const QUrl& url, const std::string& from) const {
        const QString text = Text(url);
        EXPECT_FALSE(text.isEmpty()) << from << " leads to " << url.toString().toStdString();
        if (url.hasFragment()) {
            EXPECT_TRUE(text.contains(QStringLiteral("id=\"%1\"").arg(url.fragment())) ||
                        text.contains(QStringLiteral("name=\"%1\"").arg(url.fragment())))
                << from << " leads to " << url.toString().toStdString();
        }
    }

    QList<QUrl> Pages() {
        const QString name = Engine.registeredDocumentations().value(0);
        return Engine.files(name, QStringList(), QStringLiteral("html"));
    }

    QTemporaryDir Scratch;
    QHelpEngine Engine;
};

TEST_F(Manual, HasNoLinkThatLeadsNowhere) {
    static const QRegularExpression link(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    ASSERT_GE(Pages().size(), 15);
    for (const QUrl& page : Pages()) {
        int links = 0;
        for (const QRegularExpressionMatch& match : link.globalMatch(Text(page))) {
            ExpectLeadsSomewhere(page.resolved(QUrl(match.captured(1))), page.fileName().toStdString());
            ++links;
        }
        EXPECT_GT(links, 0) << page.fileName().toStdString() << " is a dead end";
    }
}

TEST_F(Manual, HasThePageAndThePlaceThatEachScreenAsksFor) {
    const QString root =
        QStringLiteral("qthelp://%1/manual/").arg(Engine.registeredDocumentations().value(0));
    for (const Testing::ScreenKind& each : Testing::AllScreens())
        ExpectLeadsSomewhere(QUrl(root + QString::fromStdString(HelpPageOf(each.Form()))), each.Name);
}

TEST_F(Manual, HasEveryPageInItsContents) {
    QHelpContentModel& contents = *Engine.contentModel();
    ASSERT_TRUE(QTest::qWaitFor([&] { return contents.rowCount() > 0; }, Patience));
    QSet<QString> listed;
    const std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
        for (int row = 0; row < contents.rowCount(parent); ++row) {
            const QModelIndex entry = contents.index(row, 0, parent);
            const QUrl url = contents.contentItemAt(entry)->url();
            ExpectLeadsSomewhere(url, "the contents' " + entry.data().toString().toStdString());
            listed += url.fileName();
            walk(entry);
        }
    };
    walk({});
    for (const QUrl& page : Pages())
        EXPECT_TRUE(listed.contains(page.fileName())) << page.fileName().toStdString();
}

TEST_F(Manual, HasNoIndexEntryThatLeadsNowhere) {
    QHelpIndexModel& index = *Engine.indexModel();
    ASSERT_TRUE(QTest::qWaitFor([&] { return index.rowCount() > 0; }, Patience));
    EXPECT_GE(index.rowCount(), 60);
    for (int row = 0; row < index.rowCount(); ++row) {
        const QString word = index.index(row).data().toString();
        const QList<QHelpLink> pages = Engine.documentsForKeyword(word);
        EXPECT_FALSE(pages.isEmpty()) << word.toStdString();
        for (const QHelpLink& page : pages)
            ExpectLeadsSomewhere(page.url, "the index's " + word.toStdString());
    }
}

TEST_F(Manual, FixesNoColourSoThatItShowsOnLightAndDark) {
    static const QRegularExpression colour(QStringLiteral("color|bgcolor|background"),
                                           QRegularExpression::CaseInsensitiveOption);
    for (const QUrl& page : Pages())
        EXPECT_FALSE(Text(page).contains(colour)) << page.fileName().toStdString();
}

TEST_F(Manual, HasATitleAndAHeadingOnEveryPage) {
    for (const QUrl& page : Pages()) {
        QTextDocument document;
        document.setHtml(Text(page));
        EXPECT_FALSE(document.metaInformation(QTextDocument::DocumentTitle).isEmpty())
            << page.fileName().toStdString();
        EXPECT_EQ(Text(page).count(QStringLiteral("<h1>")), 1) << page.fileName().toStdString();
    }
}

TEST_F(Manual, TellsOfEveryErrorWithAHelpButton) {
    const QUrl errors(QStringLiteral("qthelp://") + Engine.registeredDocumentations().value(0) +
                      QStringLiteral("/manual/errors.html"));
    for (const int number : {52, 54, 55, 57, 61, 62, 68, 71, 76})
        ExpectLeadsSomewhere(QUrl(errors.toString() + QStringLiteral("#error-%1").arg(number)), "a message");
}

}  // namespace Dorvane
