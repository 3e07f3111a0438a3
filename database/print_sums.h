#pragma once

#include <QByteArray>

struct sqlite3;

// Teaches a connection what fingerprints.h needs of it.
//
// sys_pedsakai(columns, key, value, …), an aggregate: the fingerprint of the rows as a JSON object. columns
// names the values between commas; a key of several columns is given as their values joined with '|'.
// sys_pedsakas(column, value): the fingerprint of one value.
// sys_eilutes_nr(key): the number of a row.
void teachPrintSums(sqlite3 *db);

// The fingerprint of the rows of one month of a table, as a JSON object. Raises RoutineError.
QByteArray monthPrints(sqlite3 *db, const QByteArray &table, qint64 period);
// What led from the one to the other: what a record of a routine keeps in ist_pedsakas.
QByteArray printsDifference(const QByteArray &before, const QByteArray &after);
