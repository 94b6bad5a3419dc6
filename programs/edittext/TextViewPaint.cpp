// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "programs/edittext/ByteText.h"
#include "programs/edittext/TextView.h"

// What is seen of a text. Only the cells in sight are read and drawn.
namespace Dorvane {

namespace {

constexpr double Gap = 6;
constexpr int RulerStep = 10;

QColor Between(const QColor& a, const QColor& b, double share) {
    const auto mix = [share](int x, int y) { return static_cast<int>(x + (y - x) * share); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

}  // namespace

struct TextView::Colours {
    QColor Text;
    QColor Base;
    QColor Faint;   // numbers and stand-ins
    QColor Margin;  // behind numbers and ruler
    QColor Line;    // the line of the caret
    QColor Selected;

    explicit Colours(const QPalette& palette)
        : Text(palette.color(QPalette::Text)),
          Base(palette.color(QPalette::Base)),
          Faint(Between(Text, Base, 0.45)),
          Margin(Between(Base, Text, 0.06)),
          Line(Between(Base, Text, 0.04)),
          Selected(Between(Base, palette.color(QPalette::Highlight), 0.55)) {}
};

void TextView::paintEvent(QPaintEvent* /*event*/) {
    if (Text == nullptr)
        return;
    const Colours colours(palette());
    QPainter painter(viewport());
    painter.setFont(font());
    painter.fillRect(viewport()->rect(), colours.Base);
    painter.fillRect(QRectF(0, 0, TextLeft() - Gap, viewport()->height()), colours.Margin);
    const PieceText& text = Text->Text();
    std::optional<Offset> start = TopLine;
    std::optional<Offset> line = text.LineOf(TopLine);
    for (int row = 0; row <= Rows() && start; ++row) {
        const Offset end = text.LineEnd(*start);
        PaintNumber(painter, colours, row, line);
        PaintRow(painter, colours, row, *start, end);
        start = text.NextLine(end);
        if (line)
            ++*line;
    }
    PaintCaret(painter, colours);
    if (HasRuler)
        PaintRuler(painter, colours);
}

void TextView::PaintNumber(QPainter& painter, const Colours& colours, int row,
                           std::optional<Offset> line) const {
    if (!line)
        return;
    painter.setPen(colours.Faint);
    const QRectF place(0, TextTop() + row * LineHeight, TextLeft() - 2 * Gap, LineHeight);
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, QString::number(*line + 1));
}

void TextView::PaintRow(QPainter& painter, const Colours& colours, int row, Offset start, Offset end) const {
    const double top = TextTop() + row * LineHeight;
    painter.setClipRect(QRectF(TextLeft() - Gap / 2, top, viewport()->width(), LineHeight));
    const Offset caret = Own->Selected().Caret;
    if (caret >= start && caret <= end && Own->Selected().Empty())
        painter.fillRect(QRectF(0, top, viewport()->width(), LineHeight), colours.Line);
    PaintSelection(painter, colours, row, start, end);
    const Offset first = start + LeftColumn;
    if (first < end)
        PaintCells(painter, colours, top,
                   Text->Text().Read(first, std::min<Offset>(end - first, Columns() + 1)));
    painter.setClipping(false);
}

void TextView::PaintSelection(QPainter& painter, const Colours& colours, int row, Offset start,
                              Offset end) const {
    const Selection& selected = Own->Selected();
    if (selected.Empty() || selected.From() > end || selected.To() <= start)
        return;
    const Offset from = std::max(selected.From() - start, LeftColumn);
    // A line end that is selected too shows as half a cell.
    const double half = selected.To() > end ? CellWidth / 2 : 0;
    const Offset to = std::min(std::min(selected.To(), end) - start, LeftColumn + Columns() + 1);
    const double left = TextLeft() + static_cast<double>(from - LeftColumn) * CellWidth;
    const double width = static_cast<double>(to - from) * CellWidth + half;
    if (width > 0)
        painter.fillRect(QRectF(left, TextTop() + row * LineHeight, width, LineHeight), colours.Selected);
}

void TextView::PaintCells(QPainter& painter, const Colours& colours, double top,
                          const std::string& bytes) const {
    const double baseline = top + Ascent;
    const auto cell = [&](std::size_t i) { return TextLeft() + static_cast<double>(i) * CellWidth; };
    QString run;
    std::size_t runStart = 0;
    const auto flush = [&](std::size_t next) {
        painter.setPen(colours.Text);
        if (!run.trimmed().isEmpty())
            painter.drawText(QPointF(cell(runStart), baseline), run);
        run.clear();
        runStart = next;
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x7F && byte >= 0x20) {
            run += QLatin1Char(bytes[i]);
            continue;
        }
        // What may come out of another font, of another width, has its cell to itself.
        flush(i + 1);
        painter.setPen(IsStandIn(byte) ? colours.Faint : colours.Text);
        const bool isControl = byte < 0x20 && byte != '\t';
        if (isControl)
            painter.drawRect(QRectF(cell(i) + 0.5, top + 0.5, CellWidth - 1, LineHeight - 1));
        // Few fonts have pictures of control characters: their letters, as in Ctrl-Z, stand for them.
        const QString shown(isControl ? QChar('@' + byte) : ShownByte(byte));
        const double width = painter.fontMetrics().horizontalAdvance(shown);
        painter.drawText(QPointF(cell(i) + std::min(0.0, (CellWidth - width) / 2), baseline), shown);
    }
    flush(bytes.size());
}

void TextView::PaintCaret(QPainter& painter, const Colours& colours) const {
    const int row = RowOf(Own->Selected().Caret);
    if (!CaretIsSeen || row < 0 || row > Rows())
        return;
    QRectF cell = CellOf(Own->Selected().Caret);
    if (cell.left() < TextLeft() - 1)
        return;
    if (Own->Overwrite) {
        painter.setPen(colours.Text);
        painter.drawRect(cell.adjusted(0, 0, 0, -1));
        return;
    }
    cell.setWidth(std::max(1.0, CellWidth / 8));
    painter.fillRect(cell, colours.Text);
}

void TextView::PaintRuler(QPainter& painter, const Colours& colours) const {
    const double width = viewport()->width();
    painter.fillRect(QRectF(0, 0, width, LineHeight), colours.Margin);
    painter.setClipRect(QRectF(TextLeft() - Gap / 2, 0, width, LineHeight));
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.8);
    painter.setFont(small);
    const Offset caret = Own->Column();
    for (Offset column = LeftColumn + 1; column <= LeftColumn + Columns() + 1; ++column) {
        const double left = TextLeft() + static_cast<double>(column - 1 - LeftColumn) * CellWidth;
        if (column == caret)
            painter.fillRect(QRectF(left, 0, CellWidth, LineHeight), colours.Selected);
        painter.setPen(colours.Faint);
        const double tick = column % RulerStep == 0 ? 0.45 : column % (RulerStep / 2) == 0 ? 0.3 : 0.15;
        const double middle = left + CellWidth / 2;
        painter.drawLine(QPointF(middle, LineHeight * (1 - tick)), QPointF(middle, LineHeight - 1));
        if (column % RulerStep == 0)
            painter.drawText(QRectF(left - 4 * CellWidth, 0, 4.2 * CellWidth, LineHeight),
                             Qt::AlignRight | Qt::AlignTop, QString::number(column));
    }
    painter.setClipping(false);
    painter.setFont(font());
}

}  // namespace Dorvane
