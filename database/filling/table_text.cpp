#include "database/filling/table_text.h"

#include <QFile>

using namespace Qt::StringLiterals;

TTableText TTableText::read(const QString &name)
{
    QFile file(u":/%1.tsv"_s.arg(name));
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT_X(opened, "TTableText::read", qPrintable(name));
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    TTableText text;
    text.columns = lines.takeFirst().split(u'\t');
    for (const QString &line : lines) {
        text.rows.append(line.split(u'\t'));
        Q_ASSERT(text.rows.constLast().size() == text.columns.size());
    }
    return text;
}

QStringList TTableText::column(const QString &name) const
{
    const qsizetype index = columns.indexOf(name);
    Q_ASSERT(index >= 0);
    QStringList values;
    for (const QStringList &row : rows)
        values.append(row.at(index));
    return values;
}
