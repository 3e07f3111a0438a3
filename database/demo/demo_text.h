#pragma once

#include <QHash>
#include <QList>
#include <QStringList>

// A table of the resources: tab-separated, the first line names the columns, "\N" means null.
struct TDemoText {
    QStringList columns;
    QList<QStringList> rows;

    // name is the path below the folder data, without ".tsv".
    static TDemoText read(const QString &name);

    // All values of one column.
    QStringList column(const QString &name) const;
};

inline const QString demoNull = QStringLiteral("\\N");
