#include "host/controls/changed_elsewhere_box.h"

#include "toolkit/widgets/db_control.h"

#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// A key says nothing to people: the controls of the window word the values as they show them.
QString inWordsOf(QWidget *window, const TDataSet &set, QList<TChangedColumn> columns)
{
    for (TDBControl *control : TDBControl::allIn(window))
        for (TChangedColumn &column : columns) {
            if (control->DataSet() != &set ||
                control->DataField().compare(column.field, Qt::CaseInsensitive) != 0)
                continue;
            const auto word = [control](const Variant &value, QString &text) {
                if (const QString own = control->textFor(value); !value.isNull() && !own.isEmpty())
                    text = own;
            };
            word(column.before, column.beforeText);
            word(column.theirs, column.theirsText);
        }
    return EChangedElsewhere(columns).message();
}

} // namespace

bool settleChangedElsewhere(QWidget *window, TDataSet &set, const EChangedElsewhere &conflict)
{
    QMessageBox box(QMessageBox::Warning, window->windowTitle(), inWordsOf(window, set, conflict.columns),
                    QMessageBox::NoButton, window);
    box.setTextFormat(Qt::PlainText);
    box.setObjectName(u"changedElsewhere"_s);
    const auto *take = box.addButton(u"&Imti naują reikšmę"_s, QMessageBox::ActionRole);
    const auto *keep = box.addButton(u"&Palikti savo"_s, QMessageBox::ActionRole);
    QPushButton *back = box.addButton(u"&Grįžti"_s, QMessageBox::RejectRole);
    box.setDefaultButton(back);
    box.setEscapeButton(back);
    box.exec();
    if (box.clickedButton() == keep) {
        set.keepOwn(conflict.columns);
        return true;
    }
    if (box.clickedButton() == take)
        set.acceptOther(conflict.columns);
    throw EAbort();
}
