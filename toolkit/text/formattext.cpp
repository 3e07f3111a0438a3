#include "toolkit/text/ansistring.h"
#include "toolkit/text/decimal.h"
#include "toolkit/text/format.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// One placeholder: %[-][width][.precision]type
struct Placeholder {
    bool left = false;
    int width = 0;
    int precision = -1;
    QChar type;
};

[[noreturn]] void refuse(const QString &format)
{
    throw EConvertError(u"Formato '%1' negalima taikyti nurodytam argumentui"_s.arg(format));
}

int takeNumber(QStringView text, qsizetype &at)
{
    int number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9' && number < 10000; ++at)
        number = number * 10 + (text[at].unicode() - u'0');
    return number;
}

// Reads a placeholder behind its '%'; the type is null when the text ends before it.
Placeholder takePlaceholder(QStringView text, qsizetype &at)
{
    const auto takeIf = [&](QChar c) { return at < text.size() && text[at] == c ? (++at, true) : false; };
    Placeholder result;
    result.left = takeIf(u'-');
    result.width = takeNumber(text, at);
    if (takeIf(u'.'))
        result.precision = takeNumber(text, at);
    if (at < text.size())
        result.type = text[at++].toLower();
    return result;
}

bool isWhole(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return !value.isNull();
    default:
        return false;
    }
}

bool isFloating(const QVariant &value)
{
    return !value.isNull() && (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float);
}

QString withLeastDigits(QString digits, int least)
{
    const bool negative = digits.startsWith(u'-');
    if (negative)
        digits.remove(0, 1);
    digits = digits.rightJustified(least, u'0');
    return negative ? u'-' + digits : digits;
}

QString textOf(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<AnsiString>())
        return value.value<AnsiString>().toQString();
    if (value.typeId() == QMetaType::QDate)
        return DateToStr(TDateTime(value.toDate()));
    return isFloating(value) ? FloatToStr(value.toDouble()) : value.toString();
}

QString fixedText(double value, int precision)
{
    const int places = precision < 0 ? 2 : precision;
    return FormatFloat(places == 0 ? u"0"_s : u"0."_s + QString(places, u'0'), value);
}

QString filled(const Placeholder &place, const QVariant &value, const QString &format)
{
    const bool whole = isWhole(value);
    switch (place.type.unicode()) {
    case u's':
        return place.precision < 0 ? textOf(value) : textOf(value).left(place.precision);
    case u'd':
        if (whole)
            return withLeastDigits(QString::number(value.toLongLong()), place.precision);
        break;
    case u'u':
        if (whole)
            return withLeastDigits(QString::number(value.toULongLong()), place.precision);
        break;
    case u'f':
        if (whole || isFloating(value))
            return fixedText(value.toDouble(), place.precision);
        break;
    case u'g':
        if (whole || isFloating(value))
            return FloatToStr(value.toDouble());
        break;
    default:
        break;
    }
    refuse(format);
}

} // namespace

QString Format(const QString &format, const QVariantList &arguments)
{
    QString result;
    qsizetype used = 0;
    for (qsizetype at = 0; at < format.size();) {
        if (format[at] != u'%') {
            result += format[at++];
            continue;
        }
        const Placeholder place = takePlaceholder(format, ++at);
        if (place.type == u'%') {
            result += u'%';
            continue;
        }
        if (place.type.isNull() || used >= arguments.size())
            refuse(format);
        const QString text = filled(place, arguments[used++], format);
        result += place.left ? text.leftJustified(place.width) : text.rightJustified(place.width);
    }
    return result;
}
