#pragma once

#include "database/tool/keeping/seal_checks.h"

// The contents of a book against its last seal and the records since: names table, key and column of what was
// changed past the history, and what it was and is where that is known. One pass over all tables.
void checkContents(TDatabase &db, const TSealCheck &check, const QString &title, QStringList &found);
