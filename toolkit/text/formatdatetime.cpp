#include "toolkit/text/format.h"
#include "toolkit/text/picture.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QLocale lithuanian()
{
    return QLocale(QLocale::Lithuanian, QLocale::Lithuania);
}

QString padded(int number, qsizetype width)
{
    return QString::number(number).rightJustified(width, u'0');
}

QString month(int number, qsizetype count)
{
    if (count == 3)
        return lithuanian().standaloneMonthName(number, QLocale::ShortFormat);
    return count > 3 ? FormatSettings().LongMonthNames[size_t(number - 1)] : padded(number, count);
}

QString day(QDate date, qsizetype count)
{
    if (count == 3)
        return lithuanian().standaloneDayName(date.dayOfWeek(), QLocale::ShortFormat);
    if (count == 4)
        return lithuanian().standaloneDayName(date.dayOfWeek(), QLocale::LongFormat);
    return count > 4 ? FormatDateTime(FormatSettings().ShortDateFormat, TDateTime(date))
                     : padded(date.day(), count);
}

QString year(int number, qsizetype count)
{
    return count > 2 ? padded(number, 4) : padded(number % 100, 2);
}

// The text of a run of one letter; null when the letter means nothing. Minutes are n, or m right after hours.
QString part(const QDateTime &moment, QChar letter, qsizetype count, bool behindHours)
{
    const qsizetype two = std::min<qsizetype>(count, 2);
    switch (letter.unicode()) {
    case u'y':
        return year(moment.date().year(), count);
    case u'm':
        return behindHours ? padded(moment.time().minute(), two) : month(moment.date().month(), count);
    case u'd':
        return day(moment.date(), count);
    case u'h':
        return padded(moment.time().hour(), two);
    case u'n':
        return padded(moment.time().minute(), two);
    case u's':
        return padded(moment.time().second(), two);
    case u'z':
        return padded(moment.time().msec(), count);
    default:
        return {};
    }
}

qsizetype runLength(QStringView picture, qsizetype at)
{
    const QChar letter = picture[at].toLower();
    qsizetype end = at;
    while (end < picture.size() && picture[end].toLower() == letter)
        ++end;
    return end - at;
}

} // namespace

QString FormatDateTime(const QString &format, TDateTime value)
{
    const QDateTime moment = value.dateTime();
    if (!moment.isValid())
        throw EConvertError(u"Netinkama data"_s);
    const QString picture = format.isEmpty() ? FormatSettings().ShortDateFormat : format;
    QString result;
    bool behindHours = false;
    for (qsizetype at = 0; at < picture.size();) {
        const QChar c = picture[at].toLower();
        if (isQuote(c)) {
            result += quotedPart(picture, at);
            continue;
        }
        const qsizetype count = runLength(picture, at);
        const QString text = part(moment, c, count, behindHours);
        if (!text.isNull())
            result += text;
        else if (c == u'/')
            result += QString(count, FormatSettings().DateSeparator);
        else
            result += QStringView(picture).mid(at, count);
        if (c.isLetter())
            behindHours = c == u'h';
        at += count;
    }
    return result;
}

QString DateToStr(TDateTime value)
{
    return FormatDateTime(FormatSettings().ShortDateFormat, value);
}
