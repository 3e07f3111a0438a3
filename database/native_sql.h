#pragma once

#include "toolkit/data/database.h"

// Statements in the engine's own words, for what the dialect does not speak of: catalogues, roles, and
// databases of another revision.

// The statement, run; its first row is reached by next(). Raises EDatabaseError.
std::unique_ptr<TStatement> nativeQuery(TDatabase &db, const QString &native);

// The first column of all rows, as text. Raises EDatabaseError.
QStringList nativeColumn(TDatabase &db, const QString &native);

// A name between double quotes.
QString nativeName(const QString &name);
