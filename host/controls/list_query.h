#pragma once

#include "toolkit/data/query.h"

// The data set of a list: a query that reads aside from transactions and whose reading can be stopped.
class TListQuery : public TQuery {
public:
    explicit TListQuery(QObject *parent = nullptr);

    // Ends the reading at the next row; the rows that are here stay. Until the set is opened again.
    void stopReading();
    bool stopped() const { return *stop; } // the list holds only a part of its rows

protected:
    std::unique_ptr<TStatement> openStatement() override;

private:
    std::shared_ptr<bool> stop;
};
