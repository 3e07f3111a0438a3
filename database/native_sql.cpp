#include "database/native_sql.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

std::unique_ptr<TStatement> nativeQuery(TDatabase &db, const QString &native)
{
    TranslatedSql sql;
    sql.text = native;
    auto statement = db.prepareNative(sql);
    statement->exec();
    return statement;
}

QStringList nativeColumn(TDatabase &db, const QString &native)
{
    const auto statement = nativeQuery(db, native);
    QStringList values;
    while (statement->next())
        values.append(QString::fromUtf8(statement->utf8(0)));
    return values;
}

QString nativeName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}
