#include "database/print_sums.h"

#include "database/fingerprints.h"
#include "database/nested.h"
#include "database/value_prints.h"

#include <QJsonDocument>

#include <sqlite3.h>

namespace {

QByteArray textOf(sqlite3_value *value)
{
    return {reinterpret_cast<const char *>(sqlite3_value_text(value)), sqlite3_value_bytes(value)};
}

QByteArray jsonText(const TTableFingerprint &prints)
{
    return QJsonDocument(toJson(prints)).toJson(QJsonDocument::Compact);
}

TTableFingerprint fingerprintIn(const QByteArray &text)
{
    return tableFingerprint(QJsonDocument::fromJson(text).object());
}

// One column's sums while they grow; that of the products in two halves, which are added faster.
struct ColumnSums {
    explicit ColumnSums(const QByteArray &aName) : name(aName), printer(aName) {}

    void add(quint32 print, quint64 row)
    {
        const quint64 product = print * row;
        values += print;
        placed += placedPrint(print, row);
        keyedLow += product & 0xffffffff;
        keyedHigh += product >> 32;
    }

    TFingerprint whole() const
    {
        return {TWideSum(values), (TWideSum(keyedHigh) << 32) + TWideSum(keyedLow), TWideSum(placed)};
    }

    QByteArray name;
    ValuePrinter printer;
    quint64 values = 0;
    quint64 keyedHigh = 0;
    quint64 keyedLow = 0;
    quint64 placed = 0;
};

struct TableSums {
    explicit TableSums(const QByteArray &names)
    {
        if (names.isEmpty())
            return;
        for (const QByteArray &name : names.split(','))
            columns.emplace_back(name);
    }

    TTableFingerprint whole() const
    {
        TTableFingerprint all{{QString(), rows.whole()}};
        for (const ColumnSums &column : columns)
            all.insert(QString::fromUtf8(column.name), column.whole());
        return all;
    }

    std::vector<ColumnSums> columns;
    ColumnSums rows{QByteArray()};
};

TableSums *&sumsOf(sqlite3_context *context)
{
    return *static_cast<TableSums **>(sqlite3_aggregate_context(context, sizeof(TableSums *)));
}

void step(sqlite3_context *context, int count, sqlite3_value **values)
{
    if (count < 2 || !sqlite3_aggregate_context(context, sizeof(TableSums *))) {
        sqlite3_result_error_nomem(context);
        return;
    }
    TableSums *&sums = sumsOf(context);
    if (!sums)
        sums = new TableSums(textOf(values[0]));
    if (size_t(count) != sums->columns.size() + 2) {
        sqlite3_result_error(context, "sys_pedsakai: reikia vardo kiekvienai reikšmei", -1);
        return;
    }
    const quint64 row = rowNumber(values[1]);
    sums->rows.add(1, row);
    for (size_t i = 0; i < sums->columns.size(); ++i) {
        ColumnSums &column = sums->columns[i];
        column.add(column.printer.of(values[i + 2]), row);
    }
}

void result(sqlite3_context *context)
{
    const bool anyRow = sqlite3_aggregate_context(context, 0) != nullptr;
    const std::unique_ptr<TableSums> sums(anyRow ? std::exchange(sumsOf(context), nullptr) : nullptr);
    const QByteArray text = jsonText(sums ? sums->whole() : TTableFingerprint());
    sqlite3_result_text(context, text.constData(), int(text.size()), SQLITE_TRANSIENT);
}

void print(sqlite3_context *context, int, sqlite3_value **values)
{
    sqlite3_result_int64(context, ValuePrinter(textOf(values[0])).of(values[1]));
}

void number(sqlite3_context *context, int, sqlite3_value **values)
{
    sqlite3_result_int64(context, rowNumber(values[0]));
}

} // namespace

void teachPrintSums(sqlite3 *db)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    sqlite3_create_function_v2(db, "sys_pedsakai", -1, flags, nullptr, nullptr, step, result, nullptr);
    sqlite3_create_function_v2(db, "sys_pedsakas", 2, flags, nullptr, print, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(db, "sys_eilutes_nr", 1, flags, nullptr, number, nullptr, nullptr, nullptr);
}

QByteArray monthPrints(sqlite3 *db, const QByteArray &table, qint64 period)
{
    QByteArray key, month;
    QByteArrayList columns;
    Nested described(db, "select name, pk from pragma_table_info(?1)");
    for (described.bind(1, table); described.next();) {
        const QByteArray column = described.text(0);
        if (column.endsWith("_perid"))
            month = column;
        if (described.integer(1) > 0)
            key = column;
        else
            columns.append(column);
    }
    Nested sums(db, "select sys_pedsakai('" + columns.join(',') + "', " + key + ", " + columns.join(", ") +
                        ") from " + table + " where " + month + " = ?1");
    sums.bind(1, period).next();
    return sums.text(0);
}

QByteArray printsDifference(const QByteArray &before, const QByteArray &after)
{
    return jsonText(differencesOf(fingerprintIn(after), fingerprintIn(before)));
}
