// Reading numbers and dates that a user typed, and the plain text of a number.

#include "toolkit/text/decimal.h"
#include "toolkit/text/format.h"

#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\u00a0' || c == u'\u2009' || c == u'\u202f';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Walks over a typed text. Every take… moves behind what it took.
class Reader {
public:
    explicit Reader(QStringView text) : rest(text) {}

    bool atEnd() const { return rest.isEmpty(); }

    void takeBlanks()
    {
        while (!atEnd() && isBlank(rest.front()))
            rest = rest.mid(1);
    }

    bool takeOne(QStringView anyOf)
    {
        if (atEnd() || !anyOf.contains(rest.front()))
            return false;
        rest = rest.mid(1);
        return true;
    }

    QByteArray takeDigits(qsizetype atMost = std::numeric_limits<qsizetype>::max())
    {
        QByteArray digits;
        while (!atEnd() && isDigit(rest.front()) && digits.size() < atMost)
            digits += rest.front().toLatin1(), rest = rest.mid(1);
        return digits;
    }

    // "1000000" or "1 000 000"
    QByteArray takeGroupedDigits()
    {
        QByteArray digits = takeDigits();
        while (!digits.isEmpty() && groupFollows(digits.size()))
            rest = rest.mid(1), digits += takeDigits(3);
        return digits;
    }

private:
    // A blank and three digits, the last of which ends the group; the first group may be shorter but not
    // longer.
    bool groupFollows(qsizetype taken)
    {
        if (rest.size() < 4 || !isBlank(rest[0]) || (!inGroups && taken > 3))
            return false;
        if (!isDigit(rest[1]) || !isDigit(rest[2]) || !isDigit(rest[3]) ||
            (rest.size() > 4 && isDigit(rest[4])))
            return false;
        inGroups = true;
        return true;
    }

    QStringView rest;
    bool inGroups = false;
};

// The number in plain notation; empty when the text is no number.
QByteArray plainNumber(const QString &text)
{
    Reader reader(text);
    reader.takeBlanks();
    QByteArray number;
    if (reader.takeOne(u"-\u2212"))
        number += '-';
    else
        reader.takeOne(u"+");
    const QByteArray whole = reader.takeGroupedDigits();
    const QByteArray fraction = reader.takeOne(u".,") ? reader.takeDigits() : QByteArray();
    if (whole.isEmpty() && fraction.isEmpty())
        return {};
    number += (whole.isEmpty() ? "0" : whole) + '.' + (fraction.isEmpty() ? "0" : fraction);
    if (reader.takeOne(u"eE")) {
        const bool down = reader.takeOne(u"-");
        if (!down)
            reader.takeOne(u"+");
        const QByteArray exponent = reader.takeDigits();
        if (exponent.isEmpty())
            return {};
        number += (down ? "e-" : "e+") + exponent;
    }
    reader.takeBlanks();
    return reader.atEnd() ? number : QByteArray();
}

struct DateParts {
    int year = 0, month = 0, day = 0;
};

// Takes one part of a date: a year has four digits, month and day one or two.
bool takePart(Reader &reader, QChar letter, DateParts &parts)
{
    const qsizetype width = letter == u'y' ? 4 : 2;
    const QByteArray digits = reader.takeDigits(width);
    if (digits.isEmpty() || (letter == u'y' && digits.size() != width))
        return false;
    (letter == u'y' ? parts.year : letter == u'm' ? parts.month : parts.day) = digits.toInt();
    return true;
}

bool takeDate(Reader &reader, QStringView picture, DateParts &parts)
{
    for (qsizetype at = 0; at < picture.size();) {
        const QChar c = picture[at].toLower();
        if (QStringView(u"ymd").contains(c)) {
            if (!takePart(reader, c, parts))
                return false;
            while (at < picture.size() && picture[at].toLower() == c)
                ++at;
            continue;
        }
        const QChar expected = c == u'/' ? FormatSettings().DateSeparator : picture[at];
        if (!reader.takeOne(QStringView(&expected, 1)))
            return false;
        ++at;
    }
    return true;
}

QString scientific(const Decimal &number)
{
    QString text = number.allDigits();
    if (text.size() > 1)
        text.insert(1, FormatSettings().DecimalSeparator);
    return text + u'E' + QString::number(number.pointPosition() - 1);
}

QString plain(const Decimal &number)
{
    const QString whole = number.whole();
    const QString fraction = number.fraction();
    const QString text = whole.isEmpty() ? u"0"_s : whole;
    return fraction.isEmpty() ? text : text + FormatSettings().DecimalSeparator + fraction;
}

} // namespace

double StrToFloat(const QString &text)
{
    const QByteArray number = plainNumber(text);
    double value = 0;
    if (!number.isEmpty() &&
        std::from_chars(number.constBegin(), number.constEnd(), value).ec == std::errc() &&
        std::isfinite(value))
        return value;
    if (text.trimmed().isEmpty())
        throw EConvertError(u"Neįvestas skaičius"_s);
    throw EConvertError(u"„%1“ nėra skaičius"_s.arg(text));
}

QString FloatToStr(double value)
{
    if (std::isnan(value))
        return u"NAN"_s;
    if (std::isinf(value))
        return value < 0 ? u"-INF"_s : u"INF"_s;
    const Decimal number(value);
    const bool readable = number.pointPosition() > -5 && number.pointPosition() <= 18;
    const QString text = readable ? plain(number) : scientific(number);
    return number.isNegative() ? u'-' + text : text;
}

TDateTime StrToDate(const QString &text)
{
    Reader reader(text);
    DateParts parts;
    reader.takeBlanks();
    bool read = takeDate(reader, FormatSettings().ShortDateFormat, parts);
    reader.takeBlanks();
    read = read && reader.atEnd();
    if (!read || !QDate::isValid(parts.year, parts.month, parts.day))
        throw EConvertError(u"„%1“ nėra data"_s.arg(text));
    return TDateTime(QDate(parts.year, parts.month, parts.day));
}
