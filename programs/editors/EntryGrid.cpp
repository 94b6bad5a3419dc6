// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryGrid.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

#include "core/Text.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

std::vector<std::string> TextsOf(const QModelIndex& index) {
    std::vector<std::string> texts;
    for (int column = 0; column < index.model()->columnCount(); ++column)
        texts.push_back(FromScreen(index.siblingAtColumn(column).data().toString()));
    return texts;
}

// A field that takes no more than its column holds, or the list of what it can be.
class FieldDelegate : public QStyledItemDelegate {
  public:
    FieldDelegate(const EntryColumn& column, QObject* parent) : QStyledItemDelegate(parent), Column(column) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override {
        if (Column.Choices)
            if (const auto choices = Column.Choices(TextsOf(index)); !choices.empty())
                return NewList(parent, choices, index.data().toString());
        auto* edit = new QLineEdit(parent);
        edit->setFrame(false);
        if (Column.Longest > 0)
            edit->setMaxLength(Column.Longest);
        return edit;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (auto* list = qobject_cast<QComboBox*>(editor))
            list->setCurrentIndex(list->findText(index.data().toString(), Qt::MatchFixedString));
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const auto* list = qobject_cast<QComboBox*>(editor);
        const QString shown = list != nullptr ? list->currentText() : static_cast<QLineEdit*>(editor)->text();
        std::string text = Trim(FromScreen(shown));
        if (Column.UpperCase)
            text = UpperCase(text);
        if (ToScreen(text) != index.data().toString())
            model->setData(index, ToScreen(text));
    }

  private:
    // What stands in the field can stay, though it is not among what it can be.
    QWidget* NewList(QWidget* parent, const std::vector<std::string>& choices, const QString& now) const {
        auto* list = new QComboBox(parent);
        list->setObjectName(QStringLiteral("cmbField"));
        for (const std::string& choice : choices)
            list->addItem(ToScreen(choice));
        if (list->findText(now, Qt::MatchFixedString) < 0)
            list->insertItem(0, now);
        connect(list, &QComboBox::activated, this, [this, list] {
            auto* self = const_cast<FieldDelegate*>(this);
            emit self->commitData(list);
            emit self->closeEditor(list);
        });
        return list;
    }

    EntryColumn Column;
};

}  // namespace

EntryGrid::EntryGrid(QWidget* parent) : QTableWidget(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
}

void EntryGrid::SetColumns(const std::vector<EntryColumn>& columns) {
    setColumnCount(static_cast<int>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i)
        setItemDelegateForColumn(static_cast<int>(i), new FieldDelegate(columns[i], this));
}

// Invalid where the table ends.
QModelIndex EntryGrid::Neighbour(bool next) {
    if (!currentIndex().isValid())
        return {};
    const int columns = columnCount();
    const int step = next ? 1 : -1;
    const auto search = [&](int place) {
        for (; place >= 0 && place < rowCount() * columns; place += step)
            if ((item(place / columns, place % columns)->flags() & Qt::ItemIsEditable) != 0)
                return model()->index(place / columns, place % columns);
        return QModelIndex();
    };
    const QModelIndex found = search(currentRow() * columns + currentColumn() + step);
    if (found.isValid() || !next)
        return found;
    const int former = rowCount();
    return NewLine && NewLine() ? search(former * columns) : QModelIndex();
}

bool EntryGrid::focusNextPrevChild(bool next) {
    const int former = rowCount();
    const QModelIndex to = Neighbour(next);
    if (!to.isValid())
        return QAbstractScrollArea::focusNextPrevChild(next);
    setCurrentIndex(to);
    if (rowCount() > former)
        edit(to);
    return true;
}

QModelIndex EntryGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveNext || action == MovePrevious)
        return Neighbour(action == MoveNext);
    return QTableWidget::moveCursor(action, modifiers);
}

void EntryGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QPersistentModelIndex former = currentIndex();
    QTableWidget::closeEditor(editor, hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        GoDown();
    const bool isStep =
        hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    if (isStep && currentIndex() == former)
        QAbstractScrollArea::focusNextPrevChild(hint == QAbstractItemDelegate::EditNextItem);
}

void EntryGrid::GoDown() {
    if (currentRow() + 1 < rowCount())
        return setCurrentCell(currentRow() + 1, currentColumn());
    if (currentColumn() + 1 < columnCount())
        return;
    const QModelIndex to = Neighbour(true);
    if (!to.isValid())
        return;
    setCurrentIndex(to);
    edit(to);
}

// Enter in an open field comes here, too, before the field is closed by it.
void EntryGrid::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || state() == EditingState)
        return QTableWidget::keyPressEvent(event);
    GoDown();
    event->accept();
}

void EntryGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableWidget::mouseDoubleClickEvent(event);
    if (auto* list = viewport()->findChild<QComboBox*>(QStringLiteral("cmbField")))
        list->showPopup();
}

}  // namespace Dorvane
