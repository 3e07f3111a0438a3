#include "toolkit/export/table_export.h"

#include "toolkit/export/row_stream.h"

using namespace Qt::StringLiterals;

QString selectOf(const QString &table, const QStringList &columns)
{
    return u"select %1 from %2"_s.arg(columns.join(u", "_s), table);
}

qlonglong exportTable(TDatabase &database, const TTableExport &what, const QString &name)
{
    const TFieldTextLines lines(what.table, what.columns);
    const std::unique_ptr<TStatement> rows =
        database.prepare(selectOf(what.table, what.columns), TDatabase::Connection::Reading);
    TExportFile file(name);
    if (what.deletesFirst) {
        file.pending().append(codePageBytes(u"delete from %1;"_s.arg(what.table)));
        file.endLine();
    }
    const qlonglong count = streamRows(*rows, lines, file, what.progress);
    file.commit();
    return count;
}
