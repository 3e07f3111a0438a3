#include "toolkit/data/value_text.h"

#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

QString valueText(const Variant &value)
{
    if (value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Double:
        return FloatToStr(value.toDouble());
    case QMetaType::QDate:
        return DateToStr(TDateTime(value.toDate()));
    case QMetaType::QDateTime:
        return FormatDateTime(FormatSettings().ShortDateFormat + u" hh:nn:ss"_s,
                              TDateTime(value.toDateTime()));
    case QMetaType::Bool:
        return value.toBool() ? u"Taip"_s : u"Ne"_s;
    case QMetaType::QByteArray:
        return {};
    default:
        return value.toString();
    }
}
