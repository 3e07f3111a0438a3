#include "host/app/catalogues/branch_use.h"

#include "host/controls/session.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

QStringList countingStatements(TDatabase *database, const QString &table, const QString &keyColumn,
                               const QString &keys)
{
    const auto references = database->prepare(
        u"select rys_lentele, rys_stulpelis from sys_rysiai "
        "where rys_i_lentele = '%1' and rys_i_stulpelis = '%2' and rys_lentele <> '%1'"_s.arg(table,
                                                                                              keyColumn));
    references->exec();
    QStringList statements;
    while (references->next())
        statements << u"select count(*) from %1 where %2 in (%3)"_s.arg(
            QString::fromUtf8(references->utf8(0)), QString::fromUtf8(references->utf8(1)), keys);
    return statements;
}

} // namespace

bool branchIsUsed(TDatabase *database, const QString &table, const QString &keyColumn,
                  const QList<double> &keys)
{
    QStringList numbers;
    for (const double key : keys)
        numbers << QString::number(qRound64(key));
    const QStringList statements =
        countingStatements(database, table.toLower(), keyColumn.toLower(), numbers.join(u','));
    return std::ranges::any_of(statements, [database](const QString &count) {
        return database->fieldResult(count).toLongLong() > 0;
    });
}

std::function<void(const QList<double> &, double, bool)> placeUnused(const QString &table,
                                                                     const QString &keyColumn)
{
    return [table, keyColumn](const QList<double> &branch, double, bool loose) {
        if (!loose && branchIsUsed(sessionOf(TSession::Main), table, keyColumn, branch))
            throw Exception(u"Kodas ar žemesnio lygio kodas yra naudojamas, todėl neperkeliamas"_s);
    };
}
