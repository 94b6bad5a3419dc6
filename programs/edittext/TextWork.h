// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "programs/edittext/TextDocument.h"
#include "programs/edittext/TextSearch.h"
#include "programs/edittext/TextSections.h"

namespace Dorvane {

/// What is done on a text in portions between the operator's events: its lines are counted, its headings
/// listed, words are sought. What can be done at once is done before the call returns.
class TextWork : public QObject {
    Q_OBJECT

  public:
    explicit TextWork(QObject* parent = nullptr);

    /// Counts and lists another text, or this one anew after an edit. A search ends without a result.
    void Begin(TextDocument& document);
    void TextChanged();

    /// Seeks; the result comes by `found`, unless the search is left off.
    void Find(const SearchWords& words, Offset from, TextSearch::Direction direction, bool wrapAround,
              std::function<void(std::optional<Offset> place, bool wrapped)> found);
    void FindAll(const SearchWords& words, std::function<void(const std::vector<Offset>& places)> found);
    bool IsSeeking() const { return Seek != nullptr; }
    void LeaveOff();

    const std::vector<TextSection>& Sections() const { return Found; }

  signals:
    void LinesCounted();
    void SectionsFound();
    /// How far a search, or the counting where no search goes on, is: from 0 to 1; 1 when it is over.
    void Progress(double share);

  private:
    void Start(std::function<bool()> seek);
    void GoOn();
    bool Portion();

    TextDocument* Document = nullptr;
    QTimer Next;
    QTimer Later;  // after an edit, until the operator pauses
    std::unique_ptr<SectionScan> Scan;
    std::vector<TextSection> Found;
    std::function<bool()> Seek;  // a portion of a search; true when it is over
};

}  // namespace Dorvane
