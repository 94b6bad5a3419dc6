// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>

#include "programs/edittext/ByteText.h"
#include "programs/edittext/TextView.h"

// What the operator types, clicks and pastes.
namespace Dorvane {

namespace {

// The bytes themselves, beside what other programs take of them.
constexpr const char* ByteFormat = "application/x-dorvane-text";

constexpr Offset LongestCopied = 100'000'000;
constexpr int WheelStep = 120;

struct KeyStep {
    QKeySequence::StandardKey Key;
    CaretStep Step;
    bool Extends;
};

constexpr KeyStep KeySteps[] = {
    {QKeySequence::MoveToPreviousChar, CaretStep::Left, false},
    {QKeySequence::SelectPreviousChar, CaretStep::Left, true},
    {QKeySequence::MoveToNextChar, CaretStep::Right, false},
    {QKeySequence::SelectNextChar, CaretStep::Right, true},
    {QKeySequence::MoveToPreviousWord, CaretStep::WordLeft, false},
    {QKeySequence::SelectPreviousWord, CaretStep::WordLeft, true},
    {QKeySequence::MoveToNextWord, CaretStep::WordRight, false},
    {QKeySequence::SelectNextWord, CaretStep::WordRight, true},
    {QKeySequence::MoveToStartOfLine, CaretStep::LineStart, false},
    {QKeySequence::SelectStartOfLine, CaretStep::LineStart, true},
    {QKeySequence::MoveToEndOfLine, CaretStep::LineEnd, false},
    {QKeySequence::SelectEndOfLine, CaretStep::LineEnd, true},
    {QKeySequence::MoveToStartOfDocument, CaretStep::TextStart, false},
    {QKeySequence::SelectStartOfDocument, CaretStep::TextStart, true},
    {QKeySequence::MoveToEndOfDocument, CaretStep::TextEnd, false},
    {QKeySequence::SelectEndOfDocument, CaretStep::TextEnd, true},
};

// Lines down by a key; 0 when it is none of these.
int LinesOf(const QKeyEvent& event, int page) {
    switch (event.key()) {
        case Qt::Key_Up: return -1;
        case Qt::Key_Down: return 1;
        case Qt::Key_PageUp: return -page;
        case Qt::Key_PageDown: return page;
        default: return 0;
    }
}

}  // namespace

bool TextView::MayEdit() {
    if (ReadOnly)
        emit Refused(tr("The text is read only."));
    return !ReadOnly;
}

void TextView::Step(CaretStep step, bool extend) {
    Own->Move(step, extend);
    AfterMove();
}

// The keys that edit come before shortcuts of the window that are the same.
bool TextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
        if (plain && (key->key() < Qt::Key_Escape || key->key() == Qt::Key_Delete)) {
            key->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

bool TextView::MoveByKey(const QKeyEvent& event) {
    for (const KeyStep& key : KeySteps)
        if (event.matches(key.Key)) {
            Step(key.Step, key.Extends);
            return true;
        }
    const Qt::KeyboardModifiers others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const int lines = LinesOf(event, std::max(Rows() - 1, 1));
    if (lines == 0 || (others != Qt::NoModifier && others != Qt::ControlModifier))
        return false;
    if (others == Qt::ControlModifier) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + lines);
        return true;
    }
    if (lines != 1 && lines != -1)
        ScrollLines(lines);
    Own->MoveLines(lines, event.modifiers().testFlag(Qt::ShiftModifier));
    AfterMove();
    return true;
}

bool TextView::EditByKey(const QKeyEvent& event) {
    const bool wordwise = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (MayEdit()) {
                Own->NewLine();
                AfterEdit();
            }
            return true;
        case Qt::Key_Backspace:
            if (MayEdit()) {
                Own->Erase(wordwise ? CaretStep::WordLeft : CaretStep::Left);
                AfterEdit();
            }
            return true;
        case Qt::Key_Delete:
            if (MayEdit()) {
                Own->Erase(wordwise ? CaretStep::WordRight : CaretStep::Right);
                AfterEdit();
            }
            return true;
        default: return false;
    }
}

void TextView::keyPressEvent(QKeyEvent* event) {
    if (Text == nullptr || MoveByKey(*event) || EditByKey(*event))
        return;
    const bool commands = event->modifiers().testFlag(Qt::ControlModifier) !=
                          event->modifiers().testFlag(Qt::AltModifier);  // both together are AltGr
    const QString typed = event->text();
    const bool isText = !typed.isEmpty() &&
                        (typed.at(0).isPrint() || typed == QLatin1String("\t") || typed.at(0).isSurrogate());
    if (commands || !isText)
        QAbstractScrollArea::keyPressEvent(event);
    else
        TypeText(typed);
}

void TextView::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty())
        TypeText(event->commitString());
    event->accept();
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    switch (query) {
        case Qt::ImEnabled: return !ReadOnly;
        case Qt::ImCursorRectangle: return Text == nullptr ? QRectF() : CellOf(Own->Selected().Caret);
        case Qt::ImHints: return static_cast<int>(Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
        default: return QAbstractScrollArea::inputMethodQuery(query);
    }
}

void TextView::TypeText(const QString& typed) {
    if (!MayEdit())
        return;
    QString lacking;
    const std::optional<std::string> bytes = BytesOf(typed, lacking);
    if (!bytes) {
        emit Refused(tr("%1 is not typed: the files know code page 1252 only, which lacks it.").arg(lacking));
        return;
    }
    Own->Type(*bytes);
    AfterEdit();
}

void TextView::Undo() {
    if (!MayEdit() || !Text->CanUndo())
        return;
    Own->Select(Text->Undo());
    AfterEdit();
}

void TextView::Redo() {
    if (!MayEdit() || !Text->CanRedo())
        return;
    Own->Select(Text->Redo());
    AfterEdit();
}

void TextView::Copy() {
    const Selection& selected = Own->Selected();
    if (selected.Empty())
        return;
    if (selected.To() - selected.From() > LongestCopied) {
        emit Refused(tr("More than %1 MB cannot be copied.").arg(LongestCopied / 1'000'000));
        return;
    }
    const std::string bytes = Own->SelectedText();
    auto* mime = new QMimeData;
    mime->setText(TextForOthers(bytes));
    mime->setData(QLatin1String(ByteFormat), QByteArray::fromStdString(bytes));
    QGuiApplication::clipboard()->setMimeData(mime);
}

void TextView::Cut() {
    if (!MayEdit())
        return;
    Copy();
    EraseSelected();
}

void TextView::EraseSelected() {
    if (!MayEdit() || Own->Selected().Empty())
        return;
    Own->Erase(CaretStep::Right);
    AfterEdit();
}

void TextView::Paste() {
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    if (mime != nullptr && MayEdit())
        InsertMime(*mime);
}

void TextView::InsertMime(const QMimeData& mime) {
    std::optional<std::string> bytes;
    if (mime.hasFormat(QLatin1String(ByteFormat))) {
        bytes = mime.data(QLatin1String(ByteFormat)).toStdString();
    } else {
        QString lacking;
        bytes = BytesOf(mime.text(), lacking);
        if (!bytes)
            emit Refused(
                tr("Nothing was pasted: the files know code page 1252 only, which lacks %1.").arg(lacking));
    }
    if (bytes && !bytes->empty())
        Insert(*bytes);
}

void TextView::Insert(const std::string& bytes) {
    if (!MayEdit())
        return;
    Own->Insert(bytes);
    AfterEdit();
}

void TextView::ReplaceEach(const std::vector<Offset>& places, Offset count, const std::string& bytes) {
    if (places.empty() || !MayEdit())
        return;
    Text->ReplaceEach(places, count, bytes, Own->Selected());
    Own->Select({Own->Selected().Caret, Own->Selected().Caret});
    AfterEdit();
}

void TextView::SelectAll() {
    Own->Select({0, Text->Text().Size()});
    viewport()->update();
    emit Moved();
}

void TextView::SetOverwrite(bool overwrite) {
    Own->Overwrite = overwrite;
    RestartBlink();
    emit Moved();
}

void TextView::mousePressEvent(QMouseEvent* event) {
    if (Text == nullptr || event->button() != Qt::LeftButton)
        return;
    const Offset at = At(event->position());
    if (event->position().x() < TextLeft() && !event->modifiers().testFlag(Qt::ShiftModifier))
        Own->SelectLine(at);
    else
        Own->Select({event->modifiers().testFlag(Qt::ShiftModifier) ? Own->Selected().Anchor : at, at});
    Dragging = true;
    RestartBlink();
    emit Moved();
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    if (!Dragging || !event->buttons().testFlag(Qt::LeftButton))
        return;
    if (!AutoScroll.isActive())
        AutoScroll.start();
    Own->Select({Own->Selected().Anchor, At(event->position())});
    viewport()->update();
    emit Moved();
}

// A mouse that drags beyond the text scrolls it.
void TextView::FollowMouse() {
    const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
    if (viewport()->rect().contains(mouse))
        return;
    const auto beyond = [](int place, int size) { return place < 0 ? place : std::max(place - size, 0); };
    const int down = beyond(mouse.y(), viewport()->height());
    ScrollLines(down / std::max(static_cast<int>(LineHeight) / 2, 1));
    TopLine = std::min(TopLine, LastTop());
    Own->Select({Own->Selected().Anchor, At(mouse)});
    ShowCaret(false);
    emit Moved();
}

void TextView::mouseReleaseEvent(QMouseEvent* /*event*/) {
    Dragging = false;
    AutoScroll.stop();
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (Text == nullptr || event->button() != Qt::LeftButton)
        return;
    Own->SelectWord(At(event->position()));
    RestartBlink();
    emit Moved();
}

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    emit Zoomed(event->angleDelta().y() >= WheelStep ? 1 : event->angleDelta().y() <= -WheelStep ? -1 : 0);
    event->accept();
}

}  // namespace Dorvane
