#pragma once

#include "toolkit/report/table_report.h"

// One report of the store, described.
struct TStoredReport {
    int number = 0;
    QString caption;
    QString sql; // of the session that the caller names
    std::vector<TTableColumn> columns;
    int fontSize = 9;
    QString summary; // expression of the line at the end; empty: none
};

// The report of that number; null when there is none.
const TStoredReport *storedReport(int number);
