#include "host/app/home/home_facts.h"

#include "database/carried_balances.h"
#include "host/app/close_check/last_backup.h"
#include "host/app/table_names.h"
#include "host/common/months.h"
#include "toolkit/data/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qlonglong linesCheckedUnasked = 200'000;
constexpr int recordsRead = 100; // one save often makes many
constexpr int moment = 16;       // of the characters of a stored moment, to the minute

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

QString whatWasDone(const QString &letter)
{
    return letter == u"I"   ? u"įrašyta"_s
           : letter == u"D" ? u"ištrinta"_s
           : letter == u"R" ? u"perkelti likučiai"_s
                            : u"pakeista"_s;
}

// The month that is current no longer because of the last close: by the periods, which know neither moment
// nor person.
THomeLine lastClosedMonth(const QList<TBookMonth> &months)
{
    if (months.size() < 2)
        return {.text = u"Dar neuždarytas nė vienas mėnuo."_s};
    return {.text = u"Paskutinis uždarytas mėnuo: %1"_s.arg(
                PeriodText(TDateTime((months.cend() - 2)->firstDay())))};
}

// The last close or roll-back as it was sealed: what, who and when.
QList<THomeLine> lastSealed(TDatabase &fin, const QList<TBookMonth> &months)
{
    QList<THomeLine> lines;
    if (!hasTable(fin, u"bd_antspaudai"_s))
        return lines;
    eachYoungest(fin,
                 u"select ant_laikas, ant_login, ant_ivykis, ant_perid from bd_antspaudai "
                 "where ant_perid is not null order by ant_id desc"_s,
                 1, [&](const TStatement &row) {
                     const auto month = std::ranges::find(months, row.integer(3), &TBookMonth::id);
                     const QString of = month == months.cend()
                                            ? QString()
                                            : u" (%1)"_s.arg(PeriodText(TDateTime(month->firstDay())));
                     lines << THomeLine{.text = u"Paskutinis įvykis: %1%2, %3, %4"_s.arg(
                                            row.value(2).toString(), of, momentText(row.value(0).toString()),
                                            who(row.value(1)))};
                 });
    return lines;
}

} // namespace

bool checksTakeLong(TDatabase &fin, qlonglong period)
{
    qlonglong lines = 0;
    for (const char16_t *counted : {u"select count(*) from bd_irasai where irs_perid = :perid",
                                    u"select count(*) from bd_dbkrlik where dkl_perid = :perid",
                                    u"select count(*) from bd_saslik where ssl_perid = :perid"})
        lines += fin.fieldResult(QString::fromUtf16(counted), {{u"perid"_s, period}}).toLongLong();
    return lines > linesCheckedUnasked;
}

QList<THomeLine> lastCloseAndBackup(TDatabase &fin)
{
    const QList<TBookMonth> months = monthsOfBooks(fin);
    QList<THomeLine> lines{lastClosedMonth(months)};
    lines << lastSealed(fin, months);
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
                 "where ist_lentele <> 'bd_antspaudai' order by ist_id desc"_s,
                 recordsRead, [&](const TStatement &row) {
                     const THomeLine line{.text = u"%1  %2: %3 – %4"_s.arg(
                                              momentText(row.value(0).toString()), who(row.value(1)),
                                              tableName(row.value(2).toString()),
                                              whatWasDone(row.value(3).toString()))};
                     if (lines.size() < atMost && !lines.contains(line))
                         lines << line;
                 });
    return lines;
}
