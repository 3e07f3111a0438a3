#pragma once

#include "toolkit/data/database.h"

#include <functional>

// Whether rows of other tables refer to one of these keys of the table. One statement for each table that may
// refer to it, however many keys there are.
bool branchIsUsed(TDatabase *database, const QString &table, const QString &keyColumn,
                  const QList<double> &keys);

// The rule of a tree whose branches stay where they are once rows of other tables refer to them; a loose one
// may be moved all the same (see TTreeDescription::place).
std::function<void(const QList<double> &branch, double parent, bool loose)>
placeUnused(const QString &table, const QString &keyColumn);
