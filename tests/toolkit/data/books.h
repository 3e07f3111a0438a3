#pragma once

#include "tests/support/engines.h"
#include "tests/toolkit/data/expect_error.h"
#include "toolkit/data/query.h"

// A small table bd_t on either engine: t_id (given by the database), t_kodas (unique), t_pavad, t_suma,
// t_kiek, t_data.
class OnSmallTable : public OnEmptyDatabases {
protected:
    void SetUp() override;

    // Rows 1 … count: code "K1" …, name "Vardas 1" …, amount 1.50 …, quantity 1 …
    void fill(int count);

    // A live query over one row, open.
    std::unique_ptr<TQuery> record(int id);
    // A live query over the whole table in the order of its key, open.
    std::unique_ptr<TQuery> table();
    // The same as a list reads it.
    std::unique_ptr<TQuery> list();

    QString stored(const QString &column, int id);
};
