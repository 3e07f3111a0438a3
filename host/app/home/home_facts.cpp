#include "host/app/home/home_facts.h"

#include "database/carried_balances.h"
#include "host/app/close_check/last_backup.h"
#include "host/common/months.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int moment = 16; // of the characters of a stored moment, to the minute

QString monthText(const TBookMonth &month)
{
    constexpr int monthsOfYear = 12;
    return PeriodText(TDateTime(QDate(month.year(), month.number % monthsOfYear + 1, 1)));
}

QString momentText(const QString &stored)
{
    return stored.first(qMin(moment, int(stored.size()))).replace(u'-', u'.');
}

// A table that older books do not have.
bool hasTable(TDatabase &fin, const QString &table)
{
    return !fin.columnsOf(table).isEmpty();
}

// The youngest rows of a table; only those are fetched.
void eachYoungest(TDatabase &fin, const QString &sql, int atMost,
                  const std::function<void(const TStatement &)> &consumer)
{
    const auto rows = fin.prepare(sql, TDatabase::Connection::Reading);
    rows->exec();
    for (int row = 0; row < atMost && rows->next(); ++row)
        consumer(*rows);
    rows->reset();
}

QString who(const QVariant &login)
{
    return login.isNull() ? u"kita programa"_s : login.toString();
}

} // namespace

QList<THomeLine> lastCloseAndBackup(TDatabase &fin)
{
    QList<THomeLine> lines;
    const QList<TBookMonth> months = monthsOfBooks(fin);
    if (months.size() > 1)
        lines << THomeLine{.text = u"Paskutinis uždarytas mėnuo: %1"_s.arg(monthText(*(months.cend() - 2)))};
    else
        lines << THomeLine{.text = u"Dar neuždarytas nė vienas mėnuo."_s};
    if (fin.engine() != Engine::Sqlite)
        return lines;
    const auto backup = lastBackup(fin);
    lines << THomeLine{
        .text = backup ? u"Paskutinė atsarginė kopija: %1"_s.arg(backup->toString(u"yyyy.MM.dd HH:mm"_s))
                       : u"Atsarginių kopijų dar nėra."_s};
    return lines;
}

QList<THomeLine> lastChanges(TDatabase &fin, int atMost)
{
    QList<THomeLine> lines;
    if (!hasTable(fin, u"bd_istorija"_s))
        return lines;
    eachYoungest(fin,
                 u"select ist_laikas, ist_login, ist_lentele, ist_veiksmas from bd_istorija "
                 "order by ist_id desc"_s,
                 atMost, [&lines](const TStatement &row) {
                     lines << THomeLine{.text =
                                            u"%1  %2  %3"_s.arg(momentText(row.value(0).toString()),
                                                                who(row.value(1)), row.value(2).toString())};
                 });
    return lines;
}
