#include "toolkit/widgets/grid_delegate.h"

#include "toolkit/widgets/grid_model.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"

#include <QAbstractItemView>
#include <QAction>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;

TGridDelegate::TGridDelegate(TGridModel *model, QObject *parent) : QStyledItemDelegate(parent), rows(model) {}

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
        if (TField *field = rows->fieldOf(column))
            edit->setText(field->editText());
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
    const TDataSet *set = rows->dataSet();
    runGuarded(editor, [&] {
        edit->setText(set->RecNo() == index.row() ? field->editText() : index.data(Qt::EditRole).toString());
    });
}

void TGridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *edit = static_cast<QLineEdit *>(editor);
    if (edit->isModified())
        model->setData(index, maskedText(edit), Qt::EditRole);
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
