#include "host/data/party_row.h"

TFieldRow DkaRow(const QString &label, const TDKAColumns &columns)
{
    return TFieldRow::bound(label, columns.free, [=](QWidget *parent) {
        auto *edit = new TDKAComboBox(columns, parent);
        edit->setLabel(label);
        return edit;
    });
}
