#pragma once

#include "toolkit/data/dataset.h"
#include "toolkit/report/report.h"

#include <QHash>
#include <QPointer>

// The rows of a data set for a report: any field by its name, as a value; a field with a text of its own
// gives that text. The set's cursor stays where it is. Rows that are not here yet are not counted.
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

    QPointer<TDataSet> set; // one that is closed or gone has no rows any more
    QHash<QString, Source> sources;
};

class QWidget;

// Fetches all rows of a set, showing progress when it takes long. Raises EAbort when the user stops it or the
// rows cannot be read (the set has told why).
void fetchAll(TDataSet &set, const QString &title, QWidget *owner);
