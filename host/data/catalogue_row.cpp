#include "host/data/catalogue_row.h"

TFieldRow CatalogueRow(const QString &label, const QString &column, const TCatalogue &catalogue)
{
    return TFieldRow::bound(label, column, [=](QWidget *parent) {
        auto *edit = new TCatalogueEdit(catalogue, parent);
        edit->setLabel(label);
        return edit;
    });
}
