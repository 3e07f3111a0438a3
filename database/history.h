#pragma once

#include "toolkit/data/database.h"

// The history of changes: every row that a person inserts, changes or deletes leaves one record in
// bd_istorija of its book, in the same transaction (common/002_01_history.sql tells what a record holds).
//
// All tables with a primary key are under history, those of later revisions too, except the ones by which the
// database knows itself. Rows moved by Close_Per, Back_Per and p_CalcDBKRLik leave one record for each table.

// Who changes rows through a session.
struct TPerson {
    QString login;
    QString station; // the computer; at most 64 characters are kept
};

// From now on the session's changes are recorded in this person's name, after a lost server is reached again
// and after the session was opened anew too. Called again, it is another person's. A read-only session is
// left as it is. The session must be open, at the latest revision, and in no transaction.
//
// On SQLite only a session for which this was called records anything. On a server every program's changes
// are recorded; without a call there is no person in the record.
void keepHistory(TDatabase &db, const TPerson &person);

// While it lives the session's changes leave no record: for the filling of new books. Not inside a
// transaction.
class THistoryPause {
public:
    explicit THistoryPause(TDatabase &db);
    ~THistoryPause();
    THistoryPause(const THistoryPause &) = delete;
    THistoryPause &operator=(const THistoryPause &) = delete;

private:
    TDatabase &db;
};

// Puts tables that the schema gained under history, on a server; a file needs nothing.
void coverByHistory(TDatabase &db);
