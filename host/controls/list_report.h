#pragma once

#include "toolkit/data/dataset.h"
#include "toolkit/report/report.h"

#include <QHash>
#include <QPointer>

class TDBGrid;

// The rows of a list for a report: any field of the set by its name, also those that the list does not show,
// as values; a field with a text of its own gives that text. The set's cursor stays where it is. Rows that
// are not here yet are not counted.
class TDataSetRows : public TReportRows {
public:
    explicit TDataSetRows(TDataSet *dataSet) : set(dataSet) {}

    int count() override;
    QVariant value(int row, const QString &field) override;

private:
    struct Source {
        int column = -1; // -1: there is no such field
        int role = Qt::EditRole;
    };
    const Source &sourceOf(const QString &field);

    QPointer<TDataSet> set; // a list that is closed has no rows any more
    QHash<QString, Source> sources;
};

// What stands above a printed list.
struct TListHeading {
    QString caption;
    QString institution;
    QDate date;
};

// A list as a report: heading, column titles on every page, one line for each row with the columns as the
// grid shows them (an item's expression is its field, its mask the field's display format), and page numbers.
// Columns share the width of the page, and a list that is too wide for a sheet upright lies across.
TReport reportOfList(const TListHeading &heading, const TDBGrid &grid, const TDataSet &set);
