// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextView.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScrollBar>
#include <QStyleHints>
#include <algorithm>
#include <limits>

namespace Dorvane {

namespace {

constexpr double Gap = 6;  // beside the line numbers and the text
constexpr int LeastDigits = 4;
constexpr Offset UsualLine = 80;  // bytes, before any was counted
constexpr int MeasuredLetters = 100;

int Bounded(Offset value) {
    return static_cast<int>(std::clamp<Offset>(value, 0, std::numeric_limits<int>::max() / 2));
}

}  // namespace

TextView::TextView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TextView::ScrollTo);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        LeftColumn = value;
        viewport()->update();
    });
    connect(&Blink, &QTimer::timeout, this, [this] {
        CaretIsSeen = !CaretIsSeen;
        viewport()->update();
    });
    connect(&AutoScroll, &QTimer::timeout, this, &TextView::FollowMouse);
    AutoScroll.setInterval(40);
    Measure();
}

void TextView::SetDocument(TextDocument& document, bool readOnly) {
    const bool overwrite = Own && Own->Overwrite;
    Text = &document;
    Own.emplace(document);
    Own->Overwrite = overwrite;
    ReadOnly = readOnly;
    TopLine = 0;
    LeftColumn = 0;
    Refresh();
    emit Moved();
}

void TextView::SetFontPoints(int points) {
    QFont scaled = font();
    scaled.setPointSize(points);
    setFont(scaled);
}

void TextView::ShowRuler(bool shown) {
    HasRuler = shown;
    Refresh();
}

void TextView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Measure();
        Refresh();
    }
    QAbstractScrollArea::changeEvent(event);
}

void TextView::resizeEvent(QResizeEvent* /*event*/) {
    UpdateBars();
}

void TextView::Measure() {
    const QFontMetricsF metrics(font(), this);
    CellWidth = metrics.horizontalAdvance(QString(MeasuredLetters, QLatin1Char('0'))) / MeasuredLetters;
    LineHeight = std::ceil(metrics.height());
    Ascent = metrics.ascent();
}

double TextView::TextLeft() const {
    return NumberDigits * CellWidth + 2 * Gap;
}

double TextView::TextTop() const {
    return HasRuler ? LineHeight : 0;
}

int TextView::Rows() const {
    return std::max(static_cast<int>((viewport()->height() - TextTop()) / LineHeight), 1);
}

int TextView::Columns() const {
    return std::max(static_cast<int>((viewport()->width() - TextLeft()) / CellWidth), 1);
}

// Until all lines are counted, as many as there would be if the rest were like those that are.
Offset TextView::EstimatedLines() const {
    const PieceText& text = Text->Text();
    if (text.AllCounted())
        return text.Lines();
    if (text.CountedBytes() == 0)
        return text.Size() / UsualLine + 1;
    const double share = static_cast<double>(text.Size()) / static_cast<double>(text.CountedBytes());
    return static_cast<Offset>(share * static_cast<double>(text.Lines()));
}

void TextView::UpdateBars() {
    if (Text == nullptr)
        return;
    const PieceText& text = Text->Text();
    Updating = true;
    const Offset lines = EstimatedLines();
    NumberDigits = std::max(LeastDigits, static_cast<int>(std::to_string(lines).size()));
    const Offset top = text.LineOf(TopLine).value_or(static_cast<Offset>(
        static_cast<double>(TopLine) / static_cast<double>(text.Size() + 1) * static_cast<double>(lines)));
    verticalScrollBar()->setPageStep(Rows());
    verticalScrollBar()->setRange(0, Bounded(lines - Rows()));
    verticalScrollBar()->setValue(Bounded(top));
    horizontalScrollBar()->setPageStep(Columns());
    horizontalScrollBar()->setRange(0, Bounded(text.LongestLine() + 1 - Columns()));
    horizontalScrollBar()->setValue(Bounded(LeftColumn));
    Updating = false;
}

void TextView::Refresh() {
    if (Text == nullptr)
        return;
    TopLine = Text->Text().LineStart(std::min(TopLine, Text->Text().Size()));
    UpdateBars();
    viewport()->update();
}

// The place at which the first row begins when the last line is the last row.
Offset TextView::LastTop() const {
    const PieceText& text = Text->Text();
    Offset top = text.LineStart(text.Size());
    for (int row = 1; row < Rows() && top > 0; ++row)
        top = text.LineStart(Text->Before(top));
    return top;
}

void TextView::ScrollLines(Offset lines) {
    const PieceText& text = Text->Text();
    for (; lines > 0; --lines)
        TopLine = text.NextLine(TopLine).value_or(TopLine);
    for (; lines < 0 && TopLine > 0; ++lines)
        TopLine = text.LineStart(Text->Before(TopLine));
}

void TextView::ScrollTo(int value) {
    if (Updating || Text == nullptr)
        return;
    const PieceText& text = Text->Text();
    const Offset shown = text.LineOf(TopLine).value_or(-1);
    if (value == verticalScrollBar()->maximum() && value > 0)
        TopLine = LastTop();
    else if (text.AllCounted() || (value < text.Lines() && shown >= 0))
        TopLine = text.StartOfLine(value);
    else
        TopLine = text.LineStart(
            static_cast<Offset>(static_cast<double>(value) / static_cast<double>(EstimatedLines()) *
                                static_cast<double>(text.Size())));
    viewport()->update();
}

// The row in which a place is seen, -1 when it is above and the number of rows when it is below.
int TextView::RowOf(Offset at) const {
    if (at < TopLine)
        return -1;
    Offset start = TopLine;
    for (int row = 0; row < Rows(); ++row) {
        const Offset end = Text->Text().LineEnd(start);
        if (at <= end)
            return row;
        start = Text->Text().NextLine(start).value_or(end);
    }
    return Rows();
}

void TextView::ShowCaret(bool centred) {
    const Offset caret = Own->Selected().Caret;
    const Offset start = Text->Text().LineStart(caret);
    const int row = RowOf(caret);
    if (row < 0 || row >= Rows()) {
        TopLine = start;
        ScrollLines(centred ? -(Rows() / 2) : row < 0 ? 0 : 1 - Rows());
    }
    const Offset column = caret - start;
    if (column < LeftColumn)
        LeftColumn = centred ? std::max<Offset>(column - Columns() / 2, 0) : column;
    else if (column >= LeftColumn + Columns())
        LeftColumn = column - (centred ? Columns() / 2 : Columns() - 1);
    UpdateBars();
    viewport()->update();
}

Offset TextView::At(const QPointF& point) const {
    const PieceText& text = Text->Text();
    const int row = static_cast<int>(std::floor((point.y() - TextTop()) / LineHeight));
    Offset start = TopLine;
    for (int i = 0; i < row; ++i)
        start = text.NextLine(start).value_or(start);
    if (row < 0)
        start = text.LineStart(Text->Before(start));
    const auto column = static_cast<Offset>(std::floor((point.x() - TextLeft()) / CellWidth + 0.5));
    return std::clamp(start + LeftColumn + column, start, text.LineEnd(start));
}

QRectF TextView::CellOf(Offset at) const {
    const Offset column = at - Text->Text().LineStart(at);
    return {TextLeft() + static_cast<double>(column - LeftColumn) * CellWidth,
            TextTop() + RowOf(at) * LineHeight, CellWidth, LineHeight};
}

void TextView::Select(const Selection& selection) {
    Own->Select(selection);
    ShowCaret(true);
    RestartBlink();
    emit Moved();
}

void TextView::AfterMove() {
    ShowCaret(false);
    RestartBlink();
    emit Moved();
}

void TextView::AfterEdit() {
    emit Changed();
    AfterMove();
}

void TextView::RestartBlink() {
    const int time = QGuiApplication::styleHints()->cursorFlashTime() / 2;
    CaretIsSeen = true;
    if (time > 0 && hasFocus())
        Blink.start(time);
    viewport()->update();
}

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    RestartBlink();
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    Blink.stop();
    CaretIsSeen = false;
    viewport()->update();
}

}  // namespace Dorvane
