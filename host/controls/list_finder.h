#pragma once

#include "toolkit/data/dataset.h"

// Looks for a text in one column of a list, piece by piece, so that a long list can be searched while the
// user goes on working: rows that are not here yet are fetched as the search comes to them.
//
// A row matches when its shown text, or a word of it, begins with what is looked for; neither case nor
// diacritics count.
class TListFinder {
public:
    explicit TListFinder(TDataSet *dataSet) : set(dataSet) {}

    enum class Outcome { Idle, Searching, Found, NotFound };

    // Starts at a row and ends before it, having gone round the end of the list. An empty text finds nothing.
    void start(const QString &text, int column, int fromRow);
    // Goes on for about so many milliseconds. Raises EAbort when rows cannot be fetched (the set
    // tells why by fetchFailed); the search is over then.
    Outcome step(int milliseconds);
    void stop() { outcome = Outcome::Idle; }

    bool searching() const { return outcome == Outcome::Searching; }
    const QString &text() const { return wanted; }
    int row() const { return at; } // where it stands; after Found the row found

private:
    bool matches(int row) const;
    bool advance();

    TDataSet *set;
    QString wanted, folded;
    int column = -1;
    int first = 0;
    int at = 0;
    bool wrapped = false;
    Outcome outcome = Outcome::Idle;
};
