// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpPage.h"

#include <QHelpEngineCore>

namespace Dorvane {

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(false);
}

QVariant HelpPage::loadResource(int /*type*/, const QUrl& name) {
    const QUrl url = source().isEmpty() ? name : source().resolved(name);
    return Engine == nullptr ? QByteArray() : Engine->fileData(url);
}

void HelpPage::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (name.scheme() == QLatin1String("qthelp") || name.isRelative())
        QTextBrowser::doSetSource(name, type);
}

}  // namespace Dorvane
