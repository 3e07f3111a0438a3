#pragma once

#include "toolkit/data/database.h"

#include <functional>

// The whole content of one table as a file of insert statements, one line for each row, in the order in which
// the database gives them: the file of the host's export screen (see TFieldTextLines). Values are not
// escaped, so it is exact but cannot always be run; a file that can is written by exportForReplay().
struct TTableExport {
    QString table;
    QStringList columns;       // at least one, in the order of the table
    bool deletesFirst = false; // the first line empties the table
    // Called as the work goes on, at most 25 times a second, with the rows written so far. What it raises
    // stops the export.
    std::function<void(qlonglong rows)> progress = [](qlonglong) {};
};

// Writes the file and returns the number of rows. Rows are read piece by piece and written as they come; the
// file takes its name at the end (see TExportFile), so a failure leaves an earlier file of that name whole.
// Raises EDatabaseError, an EConvertError for text that code page 1257 does not hold, and an EFileError.
qlonglong exportTable(TDatabase &database, const TTableExport &what, const QString &file);

// The same rows as a file in UTF-8 that can be run: in an empty table of the same schema, on the same engine,
// it gives equal contents, on the last bit of every number. All of it stands in one transaction. A server's
// keys go on behind the largest one.
qlonglong exportForReplay(TDatabase &database, const TTableExport &what, const QString &file);

// "select a, b, c from t"
QString selectOf(const QString &table, const QStringList &columns);
