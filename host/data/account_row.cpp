#include "host/data/account_row.h"

TFieldRow SasRow(const QString &label, const QString &column, const TSasRule &rule)
{
    return TFieldRow::bound(label, column, [=](QWidget *parent) {
        auto *edit = new TSasEdit(rule, parent);
        edit->setLabel(label);
        return edit;
    });
}
