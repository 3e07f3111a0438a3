// How a grid is edited: its two modes, the cell that is typed in, and how it is left.

#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/grid_delegate.h"
#include "toolkit/widgets/grid_model.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>

// --- the modes

void TDBGrid::setCellEditing(bool on)
{
    editsCells = on;
    rows->setEditable(on);
    setSelectionBehavior(on ? SelectItems : SelectRows);
    setEditTriggers(on ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
    // Tab leaves a list; among cells that are typed in it goes to the next one.
    setTabKeyNavigation(on && !inPlace);
    // What was typed is in the record by now, or was given up with it.
    if (QWidget *editor = on ? nullptr : cellEditor())
        QTableView::closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
    if (currentIndex().isValid())
        selectionModel()->select(currentIndex(), selecting());
}

QItemSelectionModel::SelectionFlags TDBGrid::selecting() const
{
    return editsCells ? QItemSelectionModel::ClearAndSelect
                      : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void TDBGrid::setEditsInPlace(bool on)
{
    inPlace = on;
    followState();
}

void TDBGrid::followState()
{
    if (!inPlace)
        return;
    const TDataSet *set = rows->dataSet();
    const bool edits = set && set->editing();
    if (edits != editsCells)
        setCellEditing(edits);
    openEditor();
}

// --- the cell that is typed in

QWidget *TDBGrid::cellEditor() const
{
    return editors->openEditor();
}

void TDBGrid::openEditor()
{
    const QModelIndex cell = currentIndex();
    const bool wanted = inPlace && editsCells && cell.isValid() && cell.row() == rows->dataSet()->RecNo();
    if (wanted && isVisible() && !cellEditor() && (rows->flags(cell) & Qt::ItemIsEditable))
        edit(cell);
}

void TDBGrid::commitCell()
{
    if (!editors->commitOpen())
        throw EAbort();
}

// A text that was refused stays to be corrected, with the keyboard in it; a change of the focus that is under
// way comes to its end first.
void TDBGrid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (inPlace && hint != QAbstractItemDelegate::RevertModelCache && !editors->commitOpen()) {
        const auto goBack = [this] {
            if (QWidget *kept = cellEditor()) {
                kept->setFocus();
                emit entered();
            }
        };
        QMetaObject::invokeMethod(this, guarded(this, goBack), Qt::QueuedConnection);
        return;
    }
    const bool byTab =
        hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    if (!inPlace || !byTab) {
        QTableView::closeEditor(editor, hint);
        tellIfLeft();
        return;
    }
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    focusNextPrevChild(hint == QAbstractItemDelegate::EditNextItem);
}

// --- entering and leaving

bool TDBGrid::focusNextPrevChild(bool next)
{
    const TDataSet *set = rows->dataSet();
    if (!inPlace || !set || !set->editing())
        return QTableView::focusNextPrevChild(next);
    emit left();
    return set->editing() || QTableView::focusNextPrevChild(next);
}

void TDBGrid::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    emit entered();
}

void TDBGrid::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    tellIfLeft();
}

// Later: a change of the focus that is under way comes to its end first.
void TDBGrid::tellIfLeft()
{
    const auto tell = [this] {
        const QWidget *modal = QApplication::activeModalWidget();
        const QWidget *now = QApplication::focusWidget();
        const bool isBorrowed =
            !now || (modal && modal != window()) || QApplication::activePopupWidget() != nullptr;
        if (!isBorrowed && now != this && !isAncestorOf(now))
            emit left();
    };
    QMetaObject::invokeMethod(this, guarded(this, tell), Qt::QueuedConnection);
}
