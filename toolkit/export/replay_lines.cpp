#include "toolkit/export/replay_lines.h"

#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString quotedNames(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names)
        quoted << quotedName(name);
    return quoted.join(u", "_s);
}

void appendQuoted(TLineBuffer &target, QByteArrayView text)
{
    target.append('\'');
    for (;;) {
        const qsizetype quote = text.indexOf('\'');
        if (quote < 0)
            break;
        target.append(text.first(quote)).append("''");
        text = text.sliced(quote + 1);
    }
    target.append(text).append('\'');
}

void appendHex(TLineBuffer &target, QByteArrayView bytes)
{
    target.append(QByteArray::fromRawData(bytes.data(), bytes.size()).toHex());
}

QByteArray digitsOf(double value)
{
    std::array<char, 64> text{};
    QByteArray digits(text.data(),
                      std::to_chars(text.data(), text.data() + text.size(), value).ptr - text.data());
    if (!digits.contains('.') && !digits.contains('e'))
        digits += ".0"; // a whole number would be another value
    return digits;
}

// Digits that SQLite reads back to the last bit: with so few of them behind the point the quotient that it
// computes is too far from the middle between two numbers to be rounded to the wrong one.
bool isReadBack(QByteArrayView digits)
{
    constexpr qsizetype most = 16, mostBehindPoint = 4; // the point included
    const qsizetype point = digits.indexOf('.');
    return point >= 0 && digits.size() <= most && digits.size() - point - 1 <= mostBehindPoint &&
           !digits.contains('e');
}

// SQLite does not read every text of a number back to the last bit. What it does not is written as
// whole numbers that it does, multiplied or divided by powers of two.
class SqliteLines final : public TReplayLines {
public:
    SqliteLines(TDatabase &database, const QString &ofTable, const QStringList &ofColumns)
        : TReplayLines(ofTable, ofColumns),
          reading(database.prepareNative({SqlKind::Select, u"select cast(?1 as real)"_s, {u"text"_s}}))
    {
    }

protected:
    void appendReal(TLineBuffer &target, const TStatement &row, int column) const override
    {
        const double value = row.number(column);
        if (std::isinf(value))
            target.append(value < 0 ? "-9e999" : "9e999");
        else if (const QByteArray digits = digitsOf(value); isReadBack(digits) || readAs(digits) == value)
            target.append(digits);
        else
            appendFactors(target, value);
    }
    void appendBlob(TLineBuffer &target, QByteArrayView bytes) const override
    {
        target.append("x'");
        appendHex(target, bytes);
        target.append('\'');
    }

private:
    double readAs(const QByteArray &digits) const
    {
        reading->reset();
        reading->bind(u"text"_s, QString::fromLatin1(digits));
        reading->exec();
        return reading->next() ? reading->number(0) : 0;
    }

    static void appendFactors(TLineBuffer &target, double value)
    {
        constexpr int bitsOfFraction = 53;
        constexpr int bitsOfFactor = 62;
        int exponent = 0;
        auto whole = qlonglong(std::ldexp(std::frexp(value, &exponent), bitsOfFraction));
        exponent -= bitsOfFraction;
        for (; whole % 2 == 0; whole /= 2) // the last step is exact only with the fewest bits
            ++exponent;
        target.append(QByteArray::number(whole)).append(".0");
        for (int left = std::abs(exponent); left > 0; left -= bitsOfFactor)
            target.append(exponent < 0 ? '/' : '*')
                .append(QByteArray::number(1LL << std::min(left, bitsOfFactor)))
                .append(".0");
    }

    std::unique_ptr<TStatement> reading;
};

// The server sends numbers with all their digits, and reads them so.
class ServerLines final : public TReplayLines {
public:
    ServerLines(const QString &ofTable, const QStringList &ofColumns) : TReplayLines(ofTable, ofColumns) {}

protected:
    void appendReal(TLineBuffer &target, const TStatement &row, int column) const override
    {
        const QByteArrayView digits = row.utf8(column);
        if (digits.endsWith('y') || digits.endsWith('N')) // Infinity, NaN
            appendQuoted(target, digits);
        else
            target.append(digits);
    }
    void appendBlob(TLineBuffer &target, QByteArrayView bytes) const override
    {
        target.append("'\\x");
        appendHex(target, bytes);
        target.append('\'');
    }
};

} // namespace

QString quotedName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

// An expression has no declared type: a column of SQLite is told as it is stored, unrounded.
TranslatedSql replaySelect(Engine engine, const QString &table, const QStringList &columns)
{
    QStringList expressions;
    for (const QString &column : columns)
        expressions << (engine == Engine::Sqlite ? u"+"_s : QString()) + quotedName(column);
    return {SqlKind::Select, u"select %1 from %2"_s.arg(expressions.join(u", "_s), quotedName(table))};
}

std::unique_ptr<TReplayLines> TReplayLines::create(TDatabase &database, const QString &table,
                                                   const QStringList &columns)
{
    if (database.engine() == Engine::Sqlite)
        return std::make_unique<SqliteLines>(database, table, columns);
    return std::make_unique<ServerLines>(table, columns);
}

TReplayLines::TReplayLines(const QString &theTable, const QStringList &theColumns)
    : table(theTable),
      columns(theColumns),
      head(u"insert into %1 (%2) values ("_s.arg(quotedName(table), quotedNames(columns)).toUtf8())
{
}

void TReplayLines::append(TLineBuffer &target, const TStatement &row, qlonglong number) const
{
    target.append(head);
    for (int column = 0; column < columns.size(); ++column) {
        if (column > 0)
            target.append(", ");
        if (row.valueType(column) == TFieldType::ftString && row.utf8(column).contains('\0'))
            throw EConvertError(placeInTable(table, columns, row, column, number) +
                                u": tekste yra neleistinas nulinis ženklas."_s);
        appendValue(target, row, column);
    }
    target.append(");");
}

void TReplayLines::appendValue(TLineBuffer &target, const TStatement &row, int column) const
{
    switch (row.valueType(column)) {
    case TFieldType::ftUnknown:
        target.append("NULL");
        return;
    case TFieldType::ftInteger:
        target.append(QByteArray::number(row.integer(column)));
        return;
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        appendReal(target, row, column);
        return;
    case TFieldType::ftBoolean:
        target.append(row.integer(column) ? "true" : "false");
        return;
    case TFieldType::ftBlob:
        appendBlob(target, row.utf8(column));
        return;
    case TFieldType::ftString:
    case TFieldType::ftMemo:
    case TFieldType::ftDate:
    case TFieldType::ftDateTime:
        appendQuoted(target, row.utf8(column));
        return;
    }
    Q_UNREACHABLE();
}
