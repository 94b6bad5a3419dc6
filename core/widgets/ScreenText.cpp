// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/ScreenText.h"

#include <QTextDocument>

#include "core/Text.h"

namespace Dorvane {

QString ToScreen(const std::string& text) {
    return QString::fromStdString(Utf8FromText(text));
}

std::string FromScreen(const QString& text) {
    return TextFromUtf8(text.toStdString());
}

QString ToCaption(const std::string& text) {
    return ToScreen(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString ToTip(const std::string& text) {
    const QString tip = ToScreen(text);
    return Qt::mightBeRichText(tip) ? QStringLiteral("<span>%1</span>").arg(tip.toHtmlEscaped()) : tip;
}

}  // namespace Dorvane
