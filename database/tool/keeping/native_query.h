#pragma once

#include "toolkit/data/database.h"

#include <QSqlQuery>

// Runs a select in wording that both engines know and hands each row to the consumer.
// Raises EDatabaseError; an engine that gives no text gets one.
void eachRow(TDatabase &db, const QString &sql, const std::function<void(const QSqlQuery &)> &consumer);

// The first column of all rows.
QStringList columnOf(TDatabase &db, const QString &sql);
