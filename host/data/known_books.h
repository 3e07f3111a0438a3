#pragma once

#include "host/data/connections.h"

// One institution of the list that this workstation keeps of the books it has opened.
struct TKnownBooks {
    QString name;         // as the books have it; empty where they have none yet
    TBooksSettings books; // of a readable entry
    QString damage;       // why the entry cannot be read, a sentence; empty: it can
    QByteArray line;      // an unreadable entry as the file has it

    bool readable() const { return damage.isEmpty(); }
};

// Where the books are, for people: the folder, or the words of the server without passwords. Books of one
// place are one institution.
QString placeOf(const TBooksSettings &books);
// A name of the place that tells nothing of it, for the command line of another process.
QString keyOf(const TBooksSettings &books);

// Raises EConvertError, fit to be told, when the entry cannot be read, and EDatabaseError when its folder has
// no books: where an institution's books are gone, neither other ones nor new ones take their place.
void requireThere(const TKnownBooks &known);

// The institution's name as the books have it; empty where they have none. The books are only looked into,
// whatever their revision. Raises EDatabaseError when they cannot be opened or are none of this program's,
// and EConvertError when the words of the server are no such words.
QString nameInBooks(const TBooksSettings &books);

// The list, the institution opened last first; empty when there is no file. An entry that cannot be read is
// in it and says so. Raises EConvertError when the file cannot be read.
QList<TKnownBooks> readKnownBooks(const QString &file);
// Replaces the file, which is its owner's alone; an unreadable entry is written as it was read. Raises
// EConvertError when it cannot be written; the old file stays then.
void writeKnownBooks(const QString &file, const QList<TKnownBooks> &list);

// Puts the institution to the front of the list, once, with this name and these words. When another program
// changes the list at the same moment, both changes are kept. Raises EConvertError; the list then stays as it
// was.
void rememberBooks(const QString &file, const TKnownBooks &known);
// Takes the institution, or the unreadable entry, out of the list; the same holds. The books stay.
void forgetBooks(const QString &file, const TKnownBooks &known);
