#include "toolkit/export/table_export.h"

#include "toolkit/export/replay_lines.h"
#include "toolkit/export/row_stream.h"

using namespace Qt::StringLiterals;

namespace {

void writeLine(TExportFile &file, const QString &line)
{
    file.pending().append(line.toUtf8());
    file.endLine();
}

// A key that the server gives goes on from where its own count stands, which rows with keys do not move.
void writeNextKeys(TExportFile &file, const TDatabase &database, const TTableExport &what)
{
    if (database.engine() == Engine::Sqlite)
        return;
    const QString table = quotedName(what.table);
    for (const QString &column : what.columns) {
        if (!database.isGivenByDatabase(what.table, column))
            continue;
        const QString largest = u"max(%1)"_s.arg(quotedName(column));
        writeLine(file, u"select setval(pg_get_serial_sequence(%1, %2), %3) from %4 having %3 > 0;"_s.arg(
                            TDatabase::quoted(table), TDatabase::quoted(column), largest, table));
    }
}

} // namespace

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

qlonglong exportForReplay(TDatabase &database, const TTableExport &what, const QString &name)
{
    const std::unique_ptr<TReplayLines> lines = TReplayLines::create(database, what.table, what.columns);
    const std::unique_ptr<TStatement> rows = database.prepareNative(
        replaySelect(database.engine(), what.table, what.columns), TDatabase::Connection::Reading);
    TExportFile file(name);
    writeLine(file, u"begin;"_s);
    if (what.deletesFirst)
        writeLine(file, u"delete from %1;"_s.arg(quotedName(what.table)));
    const qlonglong count = streamRows(*rows, *lines, file, what.progress);
    writeNextKeys(file, database, what);
    writeLine(file, u"commit;"_s);
    file.commit();
    return count;
}
