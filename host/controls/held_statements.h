#pragma once

#include "host/controls/browse_description.h"

// The statements of a list that holds its changes, over the table's columns as they are given; key is among
// them unless the database gives it. For tables whose statements have no wording of their own.
TListStatements heldStatements(const QString &table, const QString &key, const QStringList &columns);
