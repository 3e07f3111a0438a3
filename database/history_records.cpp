#include "database/history_records.h"

#include "database/native_sql.h"
#include "database/value_prints.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto recordColumns =
    "ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, "
    "ist_yra, ist_pedsakas"_L1;

void addPart(QByteArray &text, const QByteArray &part)
{
    text += part.isNull() ? "|-" : '|' + QByteArray::number(part.size()) + ':';
    text += part;
}

QByteArray bytesOf(const TStatement &statement, int column)
{
    if (statement.isNull(column))
        return {};
    const QByteArray bytes = statement.utf8(column).toByteArray();
    return bytes.isNull() ? QByteArray("") : bytes;
}

THistoryRecord recordIn(const TStatement &statement)
{
    THistoryRecord record{statement.integer(0)};
    int column = 0;
    for (QByteArray *part : {&record.moment, &record.login, &record.station, &record.table, &record.key,
                             &record.operation, &record.before, &record.after, &record.prints, &record.sum})
        *part = bytesOf(statement, ++column);
    return record;
}

} // namespace

QByteArray THistoryRecord::wording() const
{
    QByteArray text = QByteArray::number(id);
    for (const QByteArray &part : {moment, login, station, table, key, operation, before, after, prints, sum})
        addPart(text, part);
    return text;
}

qint64 THistoryRecord::checkSum() const
{
    QByteArray text;
    for (const QByteArray &part : {moment, login, station, table, key, operation, before, after, prints})
        addPart(text, part);
    return textPrint(text);
}

// A subquery without a table is evaluated once, so the sum is that of the values that are stored.
QString TRecordSql::text() const
{
    return u"insert into bd_istorija (%1, ist_suma) select laikas, login, stotis, lentele, raktas, veiksmas, "
           "buvo, yra, pedsakas, sys_iraso_suma(laikas, login, stotis, lentele, raktas, veiksmas, buvo, yra, "
           "pedsakas) from (select %2 as laikas, %3 as login, %4 as stotis, %5 as lentele, %6 as raktas, "
           "%7 as veiksmas, %8 as buvo, %9 as yra, "_s.arg(recordColumns, moment, login, station, table, key,
                                                           operation, before, after) +
           prints + u" as pedsakas)"_s;
}

// In pieces: a server hands over the whole result of a statement at once.
void eachRecord(TDatabase &db, const QString &condition,
                const std::function<void(const THistoryRecord &)> &consumer)
{
    constexpr int piece = 5000;
    qlonglong last = 0;
    for (int read = piece; read == piece;) {
        const auto statement = nativeQuery(
            db,
            u"select ist_id, %1, cast(ist_suma as varchar(20)) from bd_istorija where (%2) and ist_id > %3 order by ist_id limit %4"_s
                .arg(recordColumns, condition)
                .arg(last)
                .arg(piece));
        read = 0;
        for (; statement->next(); ++read) {
            const THistoryRecord record = recordIn(*statement);
            last = record.id;
            consumer(record);
        }
    }
}

QList<qlonglong> damagedRecords(TDatabase &db)
{
    const auto statement =
        nativeQuery(db, u"select ist_id from bd_istorija where ist_suma is distinct from sys_iraso_suma(%1) "
                        "order by ist_id"_s.arg(recordColumns));
    QList<qlonglong> numbers;
    while (statement->next())
        numbers.append(statement->integer(0));
    return numbers;
}

void TNumbers::add(qlonglong number)
{
    auto next = endByStart.upperBound(number);
    if (next != endByStart.begin()) {
        const auto before = std::prev(next);
        if (number <= before.value())
            return;
        if (number == before.value() + 1) {
            before.value() = number;
            if (next != endByStart.end() && next.key() == number + 1) {
                before.value() = next.value();
                endByStart.erase(next);
            }
            return;
        }
    }
    qlonglong last = number;
    if (next != endByStart.end() && next.key() == number + 1) {
        last = next.value();
        endByStart.erase(next);
    }
    endByStart.insert(number, last);
}

// No number is covered twice, so it is enough to join what touches.
void TNumbers::add(const TNumbers &more)
{
    for (const auto &[from, to] : more.endByStart.asKeyValueRange()) {
        add(from);
        auto own = std::prev(endByStart.upperBound(from));
        own.value() = std::max(own.value(), to);
        for (auto next = std::next(own); next != endByStart.end() && next.key() <= own.value() + 1;) {
            own.value() = std::max(own.value(), next.value());
            next = endByStart.erase(next);
        }
    }
}

bool TNumbers::contains(qlonglong number) const
{
    const auto next = endByStart.upperBound(number);
    return next != endByStart.begin() && number <= std::prev(next).value();
}

TNumbers TNumbers::missing(qlonglong from, qlonglong to) const
{
    TNumbers gaps;
    for (const auto &[start, end] : endByStart.asKeyValueRange()) {
        if (start > from && from <= to)
            gaps.endByStart.insert(from, std::min(start - 1, to));
        from = std::max(from, end + 1);
    }
    if (from <= to)
        gaps.endByStart.insert(from, to);
    return gaps;
}

QJsonArray TNumbers::toJson() const
{
    QJsonArray json;
    for (const auto &[from, to] : endByStart.asKeyValueRange())
        json.append(QJsonArray{from, to});
    return json;
}

TNumbers TNumbers::fromJson(const QJsonArray &json)
{
    TNumbers numbers;
    for (const QJsonValue &interval : json) {
        TNumbers one;
        one.endByStart.insert(interval.toArray().at(0).toInteger(), interval.toArray().at(1).toInteger());
        numbers.add(one);
    }
    return numbers;
}
