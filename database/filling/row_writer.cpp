#include "database/filling/row_writer.h"

#include "database/filling/table_text.h"

using namespace Qt::StringLiterals;

constexpr int rowsAtOnce = 250;

TRowWriter::TRowWriter(TDatabase &database, const QString &table, const QString &columns)
    : db(database),
      head(u"insert into %1 (%2) values "_s.arg(table, columns))
{
}

TRowWriter::~TRowWriter()
{
    Q_ASSERT(count == 0 || std::uncaught_exceptions() > 0);
}

void TRowWriter::add(const QStringList &values)
{
    pending += count == 0 ? u"("_s : u",("_s;
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (i > 0)
            pending += u',';
        pending += values.at(i) == tableNull ? u"null"_s : TDatabase::quoted(values.at(i));
    }
    pending += u')';
    if (++count == rowsAtOnce)
        flush();
}

void TRowWriter::flush()
{
    if (count == 0)
        return;
    count = 0;
    db.nativeExec(head + std::exchange(pending, {}));
}
