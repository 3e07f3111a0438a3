#include "database/tool/keeping/native_query.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(TDatabase &db, const QSqlQuery &query, const QString &sql)
{
    QString text = query.lastError().text().trimmed();
    if (text.isEmpty())
        text = u"variklis klaidos nepaaiškino"_s;
    throw EDatabaseError(u"Nepavyko perskaityti duomenų bazės „%1“: %2"_s.arg(db.AliasName(), text), text,
                         sql);
}

} // namespace

void eachRow(TDatabase &db, const QString &sql, const std::function<void(const QSqlQuery &)> &consumer)
{
    QSqlQuery query(db.handle());
    query.setForwardOnly(true);
    if (!query.exec(sql))
        fail(db, query, sql);
    while (query.next())
        consumer(query);
    if (query.lastError().isValid())
        fail(db, query, sql);
}

QStringList columnOf(TDatabase &db, const QString &sql)
{
    QStringList values;
    eachRow(db, sql, [&values](const QSqlQuery &row) { values.append(row.value(0).toString()); });
    return values;
}
