#pragma once

#include <QString>

// The sort key of people's text, for both engines the same: upper case; ą ę ė į y ų ū count as A E E I I U U;
// č š ž become C~ S~ Z~ ("~" stands after every letter); all else stays as it is. Keys are compared by code
// point, equal keys by the texts themselves.
//
// A list ordered by a name is served by an index over exactly the words that the translator orders by:
//
//   SQLite      create index i on t (<sortKeyExpression(column)>, column)
//   PostgreSQL  create index i on t (lt_raktas(column) collate "C", column)                  -- not null
//   column
//               create index i on t (lt_raktas(column) collate "C" nulls first, column nulls first)
//
// On SQLite the expression is made of built-in functions only, so that the file stays open to programs that
// do not know this system; a computed name is ordered by the function lt_raktas(text) of the connection
// instead. On PostgreSQL lt_raktas(text) is an immutable function of the schema.

// The key of a column in SQLite's words. The column may be qualified; it is taken as it is written.
QString sortKeyExpression(const QString &column);
