#include "toolkit/text/format.h"

#include <QLocale>

namespace {

TFormatSettings initialSettings()
{
    const QString point = QLocale::system().decimalPoint();
    TFormatSettings settings;
    settings.DecimalSeparator = point.isEmpty() ? QChar(u'.') : point.front();
    settings.ShortDateFormat = QStringLiteral("yyyy.mm.dd");
    settings.LongMonthNames = {
        QStringLiteral(u"sausis"),   QStringLiteral(u"vasaris"),   QStringLiteral(u"kovas"),
        QStringLiteral(u"balandis"), QStringLiteral(u"gegužė"),    QStringLiteral(u"birželis"),
        QStringLiteral(u"liepa"),    QStringLiteral(u"rugpjūtis"), QStringLiteral(u"rugsėjis"),
        QStringLiteral(u"spalis"),   QStringLiteral(u"lapkritis"), QStringLiteral(u"gruodis"),
    };
    return settings;
}

} // namespace

TFormatSettings &FormatSettings()
{
    static TFormatSettings settings = initialSettings();
    return settings;
}
