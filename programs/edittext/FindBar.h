// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "programs/edittext/TextSearch.h"

namespace Dorvane {

namespace Ui {
class FindBar;
}

/// The line below the text in which words are found and replaced. It says what is wanted and does not look
/// itself.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(QWidget* parent = nullptr);
    ~FindBar() override;

    /// Shows the bar for finding, or for replacing too. `words` are taken over unless they are empty.
    void Open(const QString& words, bool replaces);

    /// What is sought; nothing, after a word why, when it cannot be in any file.
    std::optional<SearchWords> Words();
    std::optional<std::string> Replacement();
    bool WrapsAround() const;
    void AllowReplacing(bool allowed);

  signals:
    void FindWanted(bool backward);
    void ReplaceWanted();
    void ReplaceAllWanted();
    void Closed();
    void Refused(const QString& reason);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::optional<std::string> Bytes(const QString& text);
    void ShowWhatCanBeDone();

    std::unique_ptr<Ui::FindBar> Form;
    bool MayReplace = true;
};

}  // namespace Dorvane
