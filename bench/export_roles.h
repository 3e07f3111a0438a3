#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>

// What one process of the export benchmark does, and its figures: "all", the milliseconds, and "peak", the
// most memory held above what the program held before, in MB.
QJsonObject ourExport(const TSessionSettings &settings, const QString &file, bool escaped);
// The same file by a loop over the engine's C interface.
QJsonObject bareExport(const TSessionSettings &settings, const QString &file);

// The table that is exported, and its eight columns.
extern const char exportedTable[];
QStringList exportedColumns();
