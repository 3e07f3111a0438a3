#pragma once

#include "database/schema.h"

// Whether the tables, indexes and views of a file at the latest revision are those that the program makes;
// each finding in words. Triggers are not looked at. Raises Exception when there is no room for a schema to
// compare with.
void checkSchema(TDatabase &db, Book book, const QString &title, QStringList &found);
