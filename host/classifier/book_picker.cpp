#include "host/classifier/book_picker.h"

#include "host/common/msgbox.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QWidget *buttonBar(QDialog *dialog)
{
    auto *bar = new QWidget;
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *choose = new QPushButton(u"&Pasirinkti"_s);
    auto *cancel = new QPushButton(u"&Atšaukti"_s);
    choose->setDefault(true);
    layout->addStretch();
    layout->addWidget(choose);
    layout->addWidget(cancel);
    QObject::connect(choose, &QPushButton::clicked, dialog, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    return bar;
}

} // namespace

TBookPicker::TBookPicker(QWidget *owner, const QList<TKnyga> &books, double current)
    : TMinMaxFrm(owner),
      list(new QListWidget)
{
    setObjectName(u"BookPicker"_s);
    setWindowTitle(u"Klasifikacijos knygos"_s);
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
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list, 1);
    layout->addWidget(buttonBar(this));
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
