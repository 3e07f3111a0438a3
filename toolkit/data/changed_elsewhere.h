#pragma once

#include "toolkit/data/record.h"

// Another station changed columns of a record that were changed here, too. Nothing was written; the record
// stays in edit with everything that was typed.
class EChangedElsewhere : public EDatabaseError {
public:
    explicit EChangedElsewhere(const QList<TChangedColumn> &changed);

    const QList<TChangedColumn> columns; // never empty
};
