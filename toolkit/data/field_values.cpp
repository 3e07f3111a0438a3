// What a field accepts: one function for each kind of column.

#include "toolkit/data/connection.h"
#include "toolkit/data/field.h"
#include "toolkit/text/ansistring.h"
#include "toolkit/text/decimal.h"
#include "toolkit/text/format.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Half away from zero on the decimal value as it is written, as the server itself rounds.
double rounded(double number, int decimals)
{
    Decimal decimal(number);
    decimal.round(decimals);
    const QString text = decimal.whole() + u'.' + decimal.fraction();
    const double size = numberOf(QByteArray("0" + text.toLatin1() + "0"));
    return decimal.isNegative() ? -size : size;
}

} // namespace

Variant TField::accepted(const Variant &value) const
{
    const bool isText = column.type == TFieldType::ftString || column.type == TFieldType::ftMemo ||
                        column.type == TFieldType::ftUnknown;
    if (isNothing(value) || (!isText && value.typeId() == QMetaType::QString && value.toString().isEmpty()))
        return {};
    switch (column.type) {
    case TFieldType::ftInteger:
        return acceptedWhole(value);
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        return acceptedNumber(value);
    case TFieldType::ftDate:
        return acceptedDay(value);
    case TFieldType::ftDateTime:
        return acceptedMoment(value);
    case TFieldType::ftBoolean:
        return value.typeId() == QMetaType::Bool ? value : Variant(numberFrom(value) != 0);
    case TFieldType::ftBlob:
        return value.toByteArray();
    case TFieldType::ftUnknown: // the database told nothing of it: a number stays one
        return value.typeId() == QMetaType::QString ? acceptedText(value.toString()) : value;
    case TFieldType::ftString:
    case TFieldType::ftMemo:
        break;
    }
    return acceptedText(value.typeId() == QMetaType::QString ? value.toString() : plainText(value));
}

Variant TField::acceptedText(const QString &text) const
{
    if (const qsizetype at = firstOutsideCodePage(text); at >= 0) {
        if (text.at(at).isNull())
            refuse(u"tekste yra neleistinas nulinis ženklas."_s);
        refuse(u"ženklo „%1“ negalima įrašyti."_s.arg(
            QStringView(text).mid(at, text.at(at).isSurrogate() ? 2 : 1)));
    }
    if (column.size > 0 && text.size() > column.size)
        refuse(u"tekstas per ilgas, daugiausia %1 ženklų."_s.arg(column.size));
    return text;
}

double TField::numberFrom(const Variant &value) const
{
    double number = 0;
    switch (value.typeId()) {
    case QMetaType::QString:
        try {
            number = StrToFloat(value.toString());
        } catch (const EConvertError &) {
            refuse(u"„%1“ nėra skaičius."_s.arg(value.toString()));
        }
        break;
    case QMetaType::QDate:
        number = TDateTime(value.toDate()).value();
        break;
    case QMetaType::QDateTime:
        number = TDateTime(value.toDateTime()).value();
        break;
    default: {
        bool isNumber = false;
        number = value.toDouble(&isNumber);
        if (!isNumber)
            refuse(u"reikšmė nėra skaičius."_s);
    }
    }
    if (!std::isfinite(number))
        refuse(u"reikšmė nėra baigtinis skaičius."_s);
    return number;
}

Variant TField::acceptedWhole(const Variant &value) const
{
    if (value.typeId() == QMetaType::LongLong)
        return value;
    const double number = numberFrom(value);
    if (number != std::trunc(number))
        refuse(u"reikia sveikojo skaičiaus."_s);
    const std::optional<qlonglong> whole = wholeNumber(number);
    if (!whole)
        refuse(u"skaičius per didelis."_s);
    return *whole;
}

Variant TField::acceptedNumber(const Variant &value) const
{
    double number = numberFrom(value);
    if (column.scale >= 0)
        number = rounded(number, column.scale);
    if (column.digits > 0 && std::abs(number) >= std::pow(10.0, column.digits - std::max(0, column.scale)))
        refuse(u"skaičius per didelis."_s);
    return number;
}

Variant TField::acceptedDay(const Variant &value) const
{
    QDate day;
    switch (value.typeId()) {
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        day = value.toDate();
        break;
    case QMetaType::QString: {
        const QString text = value.toString();
        day = dateOf(text.toLatin1());
        if (!day.isValid()) {
            try {
                day = StrToDate(text).date();
            } catch (const EConvertError &) {
                refuse(u"„%1“ nėra data."_s.arg(text));
            }
        }
        break;
    }
    default:
        day = TDateTime(numberFrom(value)).date();
    }
    if (!day.isValid())
        refuse(u"tokios datos nėra."_s);
    return day;
}

Variant TField::acceptedMoment(const Variant &value) const
{
    QDateTime moment;
    if (value.typeId() == QMetaType::QString)
        moment = momentOf(value.toString().toUtf8());
    else if (value.typeId() == QMetaType::QDateTime || value.typeId() == QMetaType::QDate)
        moment = value.toDateTime();
    else
        moment = TDateTime(numberFrom(value)).dateTime();
    if (moment.isValid())
        return moment;
    return acceptedDay(value).toDate().startOfDay();
}
