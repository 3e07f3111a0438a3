#pragma once

#include "toolkit/data/statement.h"

#include <QTimer>

#include <functional>

// Reads the rows of a statement piece by piece: some at once, the rest in idle time.
class RowReader {
public:
    // Called in idle time while there are rows to come.
    explicit RowReader(const std::function<void()> &whenIdle);

    void start(std::unique_ptr<TStatement> opened);
    void readInIdleTime(); // as long as rows are to come
    void end();            // there are no further rows
    bool reading() const { return statement != nullptr; }

    // At most so many rows for at most so long (-1: as long as it takes); false after the last one. A failure
    // is raised, ends the reading and is kept.
    bool read(int limit, qint64 milliseconds, const std::function<void(const TStatement &)> &take);

    // There are no further rows from the next one on. It may be called while the engine is at work.
    void stop() { stopping = reading(); }
    bool stopped() const { return stopping; }

    bool failed() const { return !failure.isEmpty(); }
    void checkWhole() const; // raises why the reading broke off

private:
    std::unique_ptr<TStatement> statement;
    QTimer idle;
    bool stopping = false;
    QString failure;
};
