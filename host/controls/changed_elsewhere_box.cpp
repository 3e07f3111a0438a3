#include "host/controls/changed_elsewhere_box.h"

#include "toolkit/data/dataset.h"

#include <QMessageBox>

using namespace Qt::StringLiterals;

bool settleChangedElsewhere(QWidget *window, TDataSet &set, const EChangedElsewhere &conflict)
{
    QMessageBox box(QMessageBox::Warning, window->windowTitle(), conflict.message(), QMessageBox::NoButton,
                    window);
    box.setObjectName(u"changedElsewhere"_s);
    const auto *take = box.addButton(u"&Imti naują reikšmę"_s, QMessageBox::ActionRole);
    const auto *keep = box.addButton(u"&Palikti savo"_s, QMessageBox::ActionRole);
    box.setEscapeButton(box.addButton(u"&Grįžti"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == keep) {
        set.keepOwn(conflict.columns);
        return true;
    }
    if (box.clickedButton() == take)
        set.acceptOther(conflict.columns);
    throw EAbort();
}
