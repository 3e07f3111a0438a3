#pragma once

#include "database/books.h"

#include <optional>

// Which books the program opens: files in a folder, or two databases of a server.
struct TBooksSettings {
    QString folder;     // embedded: the folder of the two files
    QString connection; // server: key=value words as libpq takes them (several hosts too), and fin= and ravl=

    static TBooksSettings embedded(const QString &folder);
    // An empty name stands for the usual one, or for the one that the words fin= and ravl= give.
    static TBooksSettings server(const QString &connInfo, const QString &mainDb = {},
                                 const QString &budgetDb = {});

    bool isEmbedded() const { return connection.isEmpty(); }

    // The sessions' settings. Raises EConvertError when the connection words are no such words.
    TBooks books() const;
};

// Reads the settings file. Nothing when there is no file: the program then starts with its usual books. A
// file that cannot be read, is no settings file, says too little or says something unknown raises
// EConvertError; the program must not open other books then.
std::optional<TBooksSettings> readBooksSettings(const QString &file);
// Replaces the settings file; as it may hold a password, it is its owner's alone. Raises EConvertError when
// it cannot be written; the old file stays then.
void writeBooksSettings(const QString &file, const TBooksSettings &settings);

// Whether the folder holds embedded books. Raises EDatabaseError when it holds one of the two files only, and
// when this user may not enter it.
bool embeddedBooksExist(const QString &folder);

// First start: creates the folder and both files with the schema, readable by their owner alone. The files
// get their names at the very end, so a program that is stopped in between leaves no half books: the next
// call finishes or starts anew. Existing books are left alone. Raises EDatabaseError.
void createEmbeddedBooks(const QString &folder);

// Brings the schema of both databases up to this program's revision, each in one transaction.
void upgradeBooks(const TBooks &books);
