#include "toolkit/text/decimal.h"

#include <charconv>
#include <cmath>

namespace {

// Adds one in the last place; true when a place is carried out in front (the digits are all zero then).
bool increment(QString &digits)
{
    for (qsizetype i = digits.size(); i-- > 0;) {
        if (digits[i] != u'9') {
            digits[i] = QChar(digits[i].unicode() + 1);
            return false;
        }
        digits[i] = u'0';
    }
    return true;
}

} // namespace

Decimal::Decimal(double value) : negative(std::signbit(value))
{
    Q_ASSERT(std::isfinite(value));
    char text[64];
    const auto end =
        std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific).ptr;
    const QLatin1String all(text, end);
    const qsizetype exponent = all.indexOf(u'e');
    digits = QString(all.first(exponent)).remove(u'.');
    point = QString(all.sliced(exponent + 1)).toInt() + 1;
    trim();
}

void Decimal::trim()
{
    while (digits.endsWith(u'0'))
        digits.chop(1);
    if (digits.isEmpty()) {
        negative = false;
        point = 0;
    }
}

void Decimal::round(int decimals)
{
    const int kept = point + decimals;
    if (kept >= digits.size())
        return;
    if (kept < 0) {
        digits.clear();
        trim();
        return;
    }
    const bool up = digits[kept] >= u'5';
    digits.truncate(kept);
    if (up && increment(digits)) {
        digits.prepend(u'1');
        ++point;
    }
    trim();
}

QString Decimal::whole() const
{
    return point > 0 ? digits.left(point).leftJustified(point, u'0') : QString();
}

QString Decimal::fraction() const
{
    return point >= 0 ? digits.mid(point) : QString(-point, u'0') + digits;
}
