#include "host/app/home/home_facts.h"

#include "database/carried_balances.h"
#include "host/app/history/history_words.h"
#include "host/app/table_names.h"
#include "host/common/months.h"
#include "host/data/backups.h"
#include "toolkit/data/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qlonglong linesCheckedUnasked = 200'000;
constexpr int recordsRead = 100; // one save often makes many
constexpr int toTheMinute = 16;  // of the characters of a stored moment

QString momentText(const QString &stored)
{
    return stored.first(qMin(toTheMinute, int(stored.size()))).replace(u'-', u'.');
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

// A record of the history, the youngest of those that are alike but for their rows.
struct TChange {
    QString moment, who, table, key, operation;
    QSet<QString> keys; // of all of them

    bool isLike(const TChange &other) const
    {
        return moment == other.moment && who == other.who && table == other.table &&
               operation == other.operation;
    }
};

QList<TChange> changesRead(TDatabase &fin, int atMost)
{
    QList<TChange> changes;
    eachYoungest(fin,
                 u"select ist_laikas, ist_login, ist_lentele, ist_raktas, ist_veiksmas from bd_istorija "
                 "where ist_lentele <> 'bd_antspaudai' order by ist_id desc"_s,
                 recordsRead, [&](const TStatement &row) {
                     const QString key = row.value(3).toString();
                     const TChange change{momentText(row.value(0).toString()),
                                          who(row.value(1)),
                                          row.value(2).toString(),
                                          key,
                                          row.value(4).toString(),
                                          {key}};
                     const auto known = std::ranges::find_if(
                         changes, [&change](const TChange &other) { return other.isLike(change); });
                     if (known != changes.end())
                         known->keys += key;
                     else if (changes.size() < atMost)
                         changes << change;
                 });
    return changes;
}

// A routine moves all rows of a month: there is no row to be shown.
THomeLine lineOf(const TChange &change, THistoryWords &words)
{
    const QString head = change.moment + u"  "_s + change.who + u": "_s + tableName(change.table);
    const QString done = u" – "_s + whatWasDone(change.operation);
    if (change.operation == u"R")
        return {.text = head + done, .place = {.screen = u"THistoryFrm"_s}};
    const qsizetype rows = change.keys.size();
    const QString others = rows > 1 ? u" ir dar %1"_s.arg(rows - 1) : QString();
    return {.text = head + u" „"_s + words.row(change.table, change.key) + u"“"_s + others + done,
            .row = TRowOfHistory{TSession::Main, change.table, change.key, tableName(change.table)}};
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
    const auto backup = lastBackup();
    lines << THomeLine{
        .text = backup ? u"Paskutinė atsarginė kopija: %1"_s.arg(backup->made.toString(u"yyyy.MM.dd HH:mm"_s))
                : backupFolder().isEmpty() ? u"Kopijas daro serverio administratorius."_s
                                           : u"Atsarginių kopijų dar nėra."_s};
    return lines;
}

QList<THomeLine> lastChanges(TDatabase &fin, int atMost)
{
    if (!hasTable(fin, u"bd_istorija"_s))
        return {};
    THistoryWords words(&fin);
    QList<THomeLine> lines;
    for (const TChange &change : changesRead(fin, atMost))
        lines << lineOf(change, words);
    if (!lines.isEmpty())
        lines << THomeLine{.text = u"Visi pakeitimai"_s, .place = {.screen = u"THistoryFrm"_s}};
    return lines;
}
