#include "toolkit/text/format.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

TFormatSettings initialSettings()
{
    const QString point = QLocale::system().decimalPoint();
    TFormatSettings settings;
    settings.DecimalSeparator = point.isEmpty() ? QChar(u'.') : point.front();
    settings.ShortDateFormat = u"yyyy.mm.dd"_s;
    settings.LongMonthNames = {
        u"sausis"_s, u"vasaris"_s,   u"kovas"_s,    u"balandis"_s, u"gegužė"_s,    u"birželis"_s,
        u"liepa"_s,  u"rugpjūtis"_s, u"rugsėjis"_s, u"spalis"_s,   u"lapkritis"_s, u"gruodis"_s,
    };
    return settings;
}

} // namespace

TFormatSettings &FormatSettings()
{
    static TFormatSettings settings = initialSettings();
    return settings;
}
