#pragma once

#include <QList>
#include <QStringList>

// A table of the resources: tab-separated, the first line names the columns, "\N" means null.
struct TTableText {
    QStringList columns;
    QList<QStringList> rows;

    // name is the path of the resource without ".tsv".
    static TTableText read(const QString &name);

    // All values of one column.
    QStringList column(const QString &name) const;
};

inline const QString tableNull = QStringLiteral("\\N");
