#pragma once

#include "host/controls/key_rule.h"
#include "toolkit/data/dataset.h"

// One row of a table, written by its key. Each write is one transaction; a failure leaves the table as it
// was.
struct TRowOfTable {
    TDatabase *database;
    QString table;
    QString keyColumn;
    const TDataSet &shown; // its labels name the columns in messages

    // Adds a row with these values by column and the key that the rule draws; returns the key as stored.
    Variant insert(const QVariantMap &values, const TKeyRule &rule) const;
    // Changes the row with the key, which is returned; asRead are its values as the user saw them. Raises
    // ERowGone when the row is gone, EChangedElsewhere when another station changed one of these columns
    // since.
    Variant update(const Variant &key, const QVariantMap &values, const QVariantMap &asRead) const;
};
