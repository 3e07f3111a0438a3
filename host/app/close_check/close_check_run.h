#pragma once

#include "host/app/close_check/close_checks.h"

#include <QObject>
#include <QTimer>

#include <chrono>

// Whether a transaction or a statement is under way in one of the open books: nothing is read then.
bool booksAtWork();

// What a check came to.
struct TCheckOutcome {
    enum class State { Waiting, Clear, Found, NotChecked };
    State state = State::Waiting;
    std::vector<TCloseFinding> findings;
    QString why;         // it was not checked
    bool failed = false; // it could have been checked, but that did not succeed
    std::chrono::milliseconds took{};
};

// Runs the checks of the current month on the open books, one after another, each when nothing else waits to
// be done. A check that fails tells why; a lost server ends the run. While the session is inside a
// transaction or a statement the run waits.
class TCloseCheckRun : public QObject {
    Q_OBJECT
public:
    explicit TCloseCheckRun(QObject *owner);

    // From the beginning. Without a month to close: all are left unchecked.
    void start();
    // Only the checks that took no longer last time than nobody notices; the outcomes of the others stay.
    void startQuick();
    // What is not checked yet stays so until another start.
    void pause() { next.stop(); }

    bool running() const { return at < int(outcomes.size()); }
    const std::vector<TCheckOutcome> &all() const { return outcomes; } // in the order of closeChecks()
    int findings() const;                                              // of all checks so far
    int failures() const;                                              // checks that did not succeed

signals:
    void checked(int check);
    void finished();

private:
    void begin();
    void step();
    void leaveRest(const QString &why);

    std::vector<TCheckOutcome> outcomes;
    int at = 0;
    bool quickOnly = false;
    QTimer next;
};
