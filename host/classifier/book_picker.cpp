#include "host/classifier/book_picker.h"

#include "host/common/msgbox.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TBookPicker::TBookPicker(QWidget *owner, const QList<TKnyga> &books, double current)
    : TDialog(owner),
      list(new QListWidget)
{
    setObjectName(u"BookPicker"_s);
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    describe(u"Klasifikacijos knygos"_s, {}, nullptr,
             {{u"&Pasirinkti"_s, TDialogButton::Action, true, [this] { accept(); }, {}},
              {u"&Atšaukti"_s, TDialogButton::Cancel, false, {}, {}}});
    auto *label = new QLabel(u"&Knyga:"_s);
    label->setBuddy(list);
    list->setAccessibleName(u"Knyga"_s);
    for (const TKnyga &book : books) {
        auto *item = new QListWidgetItem(book.name, list);
        item->setData(Qt::UserRole, book.id);
        if (book.id == current)
            list->setCurrentItem(item);
    }
    if (!list->currentItem() && list->count() > 0)
        list->setCurrentRow(0);
    bodyLayout()->addWidget(label);
    bodyLayout()->addWidget(list, 1);
    connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    resize(420, 300);
    list->setFocus();
}

double TBookPicker::choose()
{
    if (list->count() == 0) {
        StdMsgBox(mkInformation, u"Klasifikacijos knygų nėra!"_s);
        return 0;
    }
    return exec() == QDialog::Accepted ? list->currentItem()->data(Qt::UserRole).toDouble() : 0;
}
