// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

namespace Dorvane {

/// The text of the manual. Pages, style and pictures come out of the help file; nothing is fetched from
/// elsewhere.
class HelpPage : public QTextBrowser {
    Q_OBJECT

  public:
    explicit HelpPage(QWidget* parent = nullptr);

    void ReadFrom(const QHelpEngineCore* engine) { Engine = engine; }

  protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

  private:
    const QHelpEngineCore* Engine = nullptr;
};

}  // namespace Dorvane
