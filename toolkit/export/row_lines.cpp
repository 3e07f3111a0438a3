#include "toolkit/export/row_lines.h"

#include "toolkit/data/connection.h"
#include "toolkit/data/value_text.h"
#include "toolkit/text/ansistring.h"
#include "toolkit/text/code_page.h"
#include "toolkit/text/format.h"

#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestNumber = 64;

void appendDigits(TLineBuffer &target, double value)
{
    char *const out = target.room(longestNumber);
    target.end(std::to_chars(out, out + longestNumber, value, std::chars_format::fixed).ptr);
}

// As FloatToStr words it. Between these bounds the shortest digits without an exponent are that wording.
void appendNumber(TLineBuffer &target, double value)
{
    constexpr double least = 1e-4, most = 1e15;
    const double size = std::abs(value);
    if (size == 0)
        target.append('0');
    else if (size >= least && size < most)
        appendDigits(target, value);
    else
        target.append(FloatToStr(value).replace(FormatSettings().DecimalSeparator, u'.').toLatin1());
}

// As DateToStr words it. What is no day, as the server's infinity, stays as it is.
void appendDate(TLineBuffer &target, QByteArrayView iso)
{
    const bool isDay = iso.size() == 10 && iso[4] == '-' && iso[7] == '-';
    if (isDay && FormatSettings().ShortDateFormat == u"yyyy.mm.dd")
        target.append(iso.first(4)).append('.').append(iso.sliced(5, 2)).append('.').append(iso.sliced(8));
    else if (isDay)
        target.append(codePageBytes(valueText(dateOf(iso))));
    else
        target.append(iso);
}

qsizetype appendText(TLineBuffer &target, QByteArrayView utf8)
{
    const TCodePageText text = toCodePage(target.room(utf8.size()), utf8);
    target.end(text.end);
    return text.refused;
}

// Why the sign at the beginning of a text cannot be written.
QString refusalOfSign(QByteArrayView utf8)
{
    constexpr qsizetype longestSign = 4;
    const QString text = QString::fromUtf8(utf8.first(std::min(utf8.size(), longestSign)));
    try {
        AnsiString(text.left(text.front().isHighSurrogate() ? 2 : 1));
    } catch (const EConvertError &error) {
        return error.message().left(1).toLower() + error.message().mid(1);
    }
    Q_UNREACHABLE();
}

} // namespace

QByteArray codePageBytes(const QString &text)
{
    return AnsiString(text).bytes();
}

qsizetype appendFieldText(TLineBuffer &target, const TStatement &row, int column)
{
    switch (row.valueType(column)) {
    case TFieldType::ftUnknown:
    case TFieldType::ftBlob:
        return -1;
    case TFieldType::ftString:
    case TFieldType::ftMemo:
        return appendText(target, row.utf8(column));
    case TFieldType::ftInteger: // the engines word a whole number as its field does
        target.append(row.utf8(column));
        return -1;
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        appendNumber(target, row.number(column));
        return -1;
    case TFieldType::ftDate:
        appendDate(target, row.utf8(column));
        return -1;
    case TFieldType::ftBoolean:
    case TFieldType::ftDateTime:
        target.append(codePageBytes(valueText(row.value(column))));
        return -1;
    }
    Q_UNREACHABLE();
}

QString placeInTable(const QString &table, const QStringList &columns, const TStatement &row, int column,
                     qlonglong number)
{
    return u"Lentelės „%1“ %2 eilutė (%3: %4), stulpelis „%5“"_s.arg(table).arg(number).arg(
        columns.constFirst(), valueText(row.value(0)), columns.at(column));
}

TFieldTextLines::TFieldTextLines(const QString &theTable, const QStringList &theColumns)
    : table(theTable),
      columns(theColumns),
      head(codePageBytes(u"insert into %1(%2) values('"_s.arg(table, columns.join(u','))))
{
}

void TFieldTextLines::append(TLineBuffer &target, const TStatement &row, qlonglong number) const
{
    target.append(head);
    for (int column = 0; column < columns.size(); ++column) {
        if (column > 0)
            target.append("','");
        if (const qsizetype sign = appendFieldText(target, row, column); sign >= 0)
            throw EConvertError(placeInTable(table, columns, row, column, number) + u": "_s +
                                refusalOfSign(row.utf8(column).sliced(sign)));
    }
    target.append("');");
}
