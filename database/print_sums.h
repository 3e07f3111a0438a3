#pragma once

struct sqlite3;

// Teaches a connection what fingerprints.h needs of it.
//
// sys_pedsakai(columns, key, value, …), an aggregate: the fingerprint of the rows as a JSON object. columns
// names the values between commas; a key of several columns is given as their values joined with '|'.
// sys_pedsakas(column, value): the fingerprint of one value.
// sys_eilutes_nr(key): the number of a row.
void teachPrintSums(sqlite3 *db);
