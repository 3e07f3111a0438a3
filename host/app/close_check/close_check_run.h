#pragma once

#include "host/app/close_check/close_checks.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <memory>

// Whether a transaction or a statement is under way in one of the open books: nothing is read then.
bool booksAtWork();

// What a check came to.
struct TCheckOutcome {
    enum class State { Waiting, Clear, Found, NotChecked };
    State state = State::Waiting;
    std::vector<TCloseFinding> findings;
    QString why;         // it was not checked
    bool failed = false; // it could have been checked, but that did not succeed
    QDateTime made;
    std::chrono::milliseconds took{};
};

// Runs the checks of the current month on the open books, one after another, each when nothing else waits to
// be done. A check that fails tells why; a lost server ends the run. While the session is inside a
// transaction or a statement the run waits. What a check came to stays until it is made again in the same
// month.
class TCloseCheckRun : public QObject {
    Q_OBJECT
public:
    TCloseCheckRun();

    // The one of the open books, for all who show it; it is there while somebody keeps it.
    static std::shared_ptr<TCloseCheckRun> ofOpenBooks();

    // From the beginning. Without a month to close: all are left unchecked.
    void start();
    // Only the checks that took no longer last time than nobody notices, and those that were never made.
    // A run that is under way goes on.
    void startQuick();
    // A run ends where it is when nobody watches it any longer.
    void setWatched(const QObject *by, bool on);

    bool running() const { return at < int(outcomes.size()); }
    bool isDue(int check) const { return check >= at && running(); } // the run has still to come to it
    bool knowsMonth() const; // there is something to be told of the current month
    const std::vector<TCheckOutcome> &all() const { return outcomes; } // in the order of closeChecks()
    int findings() const;                                              // of all checks so far
    int failures() const; // checks that did not succeed, and those that a run did not come to
    // All were made then or later; null while some were not.
    QDateTime madeSince() const;

signals:
    void checked(int check);
    void finished();

private:
    void begin();
    void step();
    void leaveRest(const QString &why);

    std::vector<TCheckOutcome> outcomes;
    double month = 0; // per_id of the month that they are of
    int at = 0;
    bool quickOnly = false;
    QSet<const QObject *> watchers;
    QTimer next;
};
