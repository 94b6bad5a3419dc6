// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <QTimer>
#include <optional>
#include <string>

#include "programs/edittext/TextCaret.h"

class QMimeData;

namespace Dorvane {

/// Shows a text and edits it. Every byte has a cell of its own, so that columns are those of the file; only
/// the cells that are seen are read. Bytes without a picture are shown by a sign that stands for them.
class TextView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit TextView(QWidget* parent = nullptr);

    /// Shows another text, from its beginning. The view does not own it.
    void SetDocument(TextDocument& document, bool readOnly);
    void SetReadOnly(bool readOnly) { ReadOnly = readOnly; }
    bool IsReadOnly() const { return ReadOnly; }

    TextDocument& Document() { return *Text; }
    TextCaret& Caret() { return *Own; }

    /// Selects and shows it, in the middle where it was out of sight.
    void Select(const Selection& selection);
    /// Shows what was changed or counted by others.
    void Refresh();

    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void EraseSelected();
    /// Puts bytes in the place of what is selected, or of all places, each `count` bytes long.
    void Insert(const std::string& bytes);
    void ReplaceEach(const std::vector<Offset>& places, Offset count, const std::string& bytes);
    void SelectAll();
    void SetOverwrite(bool overwrite);

    void SetFontPoints(int points);
    int FontPoints() const { return font().pointSize(); }
    void ShowRuler(bool shown);

    /// The rows and columns that are seen whole.
    int Rows() const;
    int Columns() const;
    /// The place at which the first row begins.
    Offset Top() const { return TopLine; }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  signals:
    /// The caret, the selection or the way of typing is another one.
    void Moved();
    void Changed();
    /// Why an edit was not made.
    void Refused(const QString& reason);
    void Zoomed(int steps);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    struct Colours;

    bool MayEdit();
    bool MoveByKey(const QKeyEvent& event);
    bool EditByKey(const QKeyEvent& event);
    void Step(CaretStep step, bool extend);
    void TypeText(const QString& typed);
    void InsertMime(const QMimeData& mime);
    void AfterEdit();
    void AfterMove();

    void Measure();
    void UpdateBars();
    void ScrollTo(int value);
    void ScrollLines(Offset lines);
    Offset LastTop() const;
    Offset EstimatedLines() const;
    void ShowCaret(bool centred);
    int RowOf(Offset at) const;
    Offset At(const QPointF& point) const;
    QRectF CellOf(Offset at) const;
    double TextLeft() const;
    double TextTop() const;
    void FollowMouse();
    void RestartBlink();

    void PaintRuler(QPainter& painter, const Colours& colours) const;
    void PaintRow(QPainter& painter, const Colours& colours, int row, Offset start, Offset end) const;
    void PaintSelection(QPainter& painter, const Colours& colours, int row, Offset start, Offset end) const;
    void PaintCells(QPainter& painter, const Colours& colours, double top, const std::string& bytes) const;
    void PaintNumber(QPainter& painter, const Colours& colours, int row, std::optional<Offset> line) const;
    void PaintCaret(QPainter& painter, const Colours& colours) const;

    TextDocument* Text = nullptr;
    std::optional<TextCaret> Own;
    bool ReadOnly = false;
    bool HasRuler = true;

    double CellWidth = 1;
    double LineHeight = 1;
    double Ascent = 1;
    int NumberDigits = 3;

    Offset TopLine = 0;  // where the first row begins
    Offset LeftColumn = 0;
    bool Updating = false;  // the bars follow the text, not the text the bars

    QTimer Blink;
    bool CaretIsSeen = true;
    QTimer AutoScroll;
    bool Dragging = false;
};

}  // namespace Dorvane
