#pragma once

#include "toolkit/report/report.h"

#include <QDate>

// What stands above a printed table.
struct TTableHeading {
    QString caption;
    QString institution;
    QDate date;
};

// One column of a printed table.
struct TTableColumn {
    QString field;
    QString title;
    qreal width = 0; // in points, or in proportion to the others
    Qt::Alignment alignment = Qt::AlignLeft;
    QString mask; // picture of its values
};

// A table as a report: heading, column titles on every page, one line for each row with an item for each
// column (its expression is the field), and page numbers. Columns share the width of the page; a long text
// goes on in the next line. A table that is too wide for a sheet upright lies across.
TReport reportOfTable(const TTableHeading &heading, const std::vector<TTableColumn> &columns,
                      int fontSize = 9);
