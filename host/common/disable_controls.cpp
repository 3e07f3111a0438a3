#include "host/common/forms.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTreeWidget>

namespace {
template<class... Kinds> bool isAnyOf(const QWidget *control)
{
    return (... || (qobject_cast<const Kinds *>(control) != nullptr));
}

bool takesInput(const QWidget *control)
{
    return isAnyOf<QLineEdit, QTextEdit, QPlainTextEdit, QAbstractSpinBox, QComboBox, QAbstractButton,
                   QCalendarWidget>(control);
}

// A button of a button box that cancels, closes or helps.
bool onlyLeaves(const QWidget *control)
{
    auto *button = qobject_cast<const QAbstractButton *>(control);
    auto *box = button ? qobject_cast<const QDialogButtonBox *>(button->parentWidget()) : nullptr;
    if (!box)
        return false;
    const auto role = box->buttonRole(const_cast<QAbstractButton *>(button));
    return role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::HelpRole;
}

// Controls inside a list, such as the corner button of a grid, belong to looking, not to input.
bool partOfList(const QWidget *control, const QWidget *form)
{
    for (const QWidget *each = control->parentWidget(); each && each != form; each = each->parentWidget()) {
        if (isAnyOf<QAbstractItemView>(each))
            return true;
    }
    return false;
}

void freezeTicks(QTreeWidgetItem *item)
{
    item->setFlags(item->flags() & ~(Qt::ItemIsUserCheckable | Qt::ItemIsEditable));
    for (int i = 0; i < item->childCount(); ++i)
        freezeTicks(item->child(i));
}

void freeze(QAbstractItemView *list)
{
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setDragDropMode(QAbstractItemView::NoDragDrop);
    if (auto *plain = qobject_cast<QListWidget *>(list)) {
        for (int i = 0; i < plain->count(); ++i) {
            QListWidgetItem *item = plain->item(i);
            item->setFlags(item->flags() & ~(Qt::ItemIsUserCheckable | Qt::ItemIsEditable));
        }
    }
    if (auto *tree = qobject_cast<QTreeWidget *>(list))
        freezeTicks(tree->invisibleRootItem());
}
} // namespace

void DisableFormControls(QWidget *form)
{
    const auto controls = form->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (control->property(staysUsable).toBool() || partOfList(control, form))
            continue;
        if (auto *list = qobject_cast<QAbstractItemView *>(control))
            freeze(list);
        else if (takesInput(control) && !onlyLeaves(control))
            control->setEnabled(false);
    }
}

TMinMaxFrm::TMinMaxFrm(QWidget *owner) : QDialog(owner)
{
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
}
