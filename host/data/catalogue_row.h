#pragma once

#include "host/data/catalogue_edit.h"
#include "toolkit/widgets/form.h"

// A row of a small catalogue in a dialog, by its code or from the list.
TFieldRow CatalogueRow(const QString &label, const QString &column, const TCatalogue &catalogue);
