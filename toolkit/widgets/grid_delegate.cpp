#include "toolkit/widgets/grid_delegate.h"

#include "toolkit/widgets/grid_model.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"
#include "toolkit/widgets/own_escape.h"

#include <QAbstractItemView>
#include <QAction>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

TGridDelegate::TGridDelegate(TGridModel *model, QObject *parent)
    : QStyledItemDelegate(parent),
      rows(model),
      told(new QTimer(this))
{
    told->setSingleShot(true);
}

QWidget *TGridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                     const QModelIndex &index) const
{
    TField *field = rows->fieldOf(index.column());
    if (!field)
        return nullptr;
    const TGridColumn &column = rows->columns()[index.column()];
    TEditOptions options = column.edit;
    if (options.maxLength == 0 && field->DataType() == TFieldType::ftString)
        options.maxLength = field->Size();
    auto *edit = new QLineEdit(parent);
    edit->setFrame(false);
    edit->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    edit->setAccessibleName(rows->headerData(index.column(), Qt::Horizontal).toString());
    applyEditOptions(edit, options);
    if (column.browse)
        addBrowse(edit, index.column());
    connect(edit, &QLineEdit::textEdited, told, &QTimer::stop); // another text is another matter
    open = edit;
    place = index;
    return edit;
}

void TGridDelegate::addBrowse(QLineEdit *edit, int column) const
{
    QAction *action = edit->addAction(icon(TIcon::Browse), QLineEdit::TrailingPosition);
    action->setText(u"Pasirinkti iš sąrašo"_s);
    action->setToolTip(action->text());
    action->setShortcut(Qt::Key_F4);
    action->setShortcutContext(Qt::WidgetShortcut);
    connectGuarded(action, &QAction::triggered, edit, [this, edit, column] {
        rows->columns()[column].browse();
        // What was chosen is in the column already; the editor must not put its old text over it.
        if (rows->fieldOf(column))
            edit->setText(typedText(rows->index(rows->dataSet()->RecNo(), column)));
        edit->setModified(false);
    });
}

void TGridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *edit = static_cast<QLineEdit *>(editor);
    TField *field = rows->fieldOf(index.column());
    // While the user types, a change of the record elsewhere must not take the text away.
    if (!field || edit->isModified())
        return;
    runGuarded(editor, [&] { edit->setText(typedText(index)); });
}

// A key shows the text that stands for it until the user types another one.
QString TGridDelegate::typedText(const QModelIndex &index) const
{
    if (rows->columns()[index.column()].lookup)
        return index.data().toString();
    return rows->dataSet()->RecNo() == index.row() ? rows->fieldOf(index.column())->editText()
                                                   : index.data(Qt::EditRole).toString();
}

void TGridDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &) const
{
    if (editor == open)
        commitOpen();
}

// A record that goes takes what is typed in it along.
bool TGridDelegate::commitOpen() const
{
    if (!open || !open->isModified() || rows->isChanging())
        return true;
    if (told->isActive())
        return false;
    if (rows->setData(place, maskedText(open), Qt::EditRole)) {
        if (open)
            open->setModified(false);
        return true;
    }
    told->start();
    return false;
}

void TGridDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (editor == open)
        open = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

// Where Esc belongs to the window it takes back more than the cell. A message, a picker or another program
// only borrows the keyboard: the cell is typed in further afterwards.
bool TGridDelegate::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent *>(event)->reason() == Qt::ActiveWindowFocusReason)
        return false;
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isKey && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape &&
        isEscapeOwned(qobject_cast<QWidget *>(editor)))
        return false;
    return QStyledItemDelegate::eventFilter(editor, event);
}

bool TGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                              const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = index.isValid() && sizeHint(option, index).width() > view->visualRect(index).width();
    const QString text = index.data().toString();
    if (isCut) // nothing in it is markup
        QToolTip::showText(
            event->globalPos(),
            Qt::mightBeRichText(text) ? u"<span>"_s + text.toHtmlEscaped() + u"</span>"_s : text, view);
    else
        QToolTip::hideText();
    return true;
}
