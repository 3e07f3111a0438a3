#pragma once

#include "toolkit/text/datetime.h"
#include "toolkit/text/errors.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <array>

// The process-wide settings that every number and date is shown and read with.
struct TFormatSettings {
    QChar DecimalSeparator;              // from the user's locale at start
    QChar ThousandSeparator = u'\u00a0'; // a no-break blank: StrToFloat reads it back
    QChar DateSeparator = u'.';
    QString ShortDateFormat;                // "yyyy.mm.dd"
    std::array<QString, 12> LongMonthNames; // Lithuanian, nominative: "sausis" … "gruodis"
};
TFormatSettings &FormatSettings();

// A number by a picture such as "0.00", "#", "#0.00" or "\"Debetas: \"0.00": '0' a digit always, '#' a digit
// if there is one, '.' the decimal place, ',' thousands, text in '…' or "…" as it is; up to three sections by
// ';'. Rounds half away from zero, on the decimal value as shown. A number that rounds to zero has no sign;
// an empty picture, or an empty section that would apply, gives FloatToStr(value) or the first section.
QString FormatFloat(const QString &format, double value);

// A date by a picture such as "yyyy.mm.dd" or "yyyy \"m.\" mmmm" (mmmm: the Lithuanian month name);
// '.' and '/' between date parts follow the rule of the toolkit: '/' is the DateSeparator, '.' is itself.
// Raises EConvertError for a moment outside the years 1 to 9999.
QString FormatDateTime(const QString &format, TDateTime value);

// The shortest text that reads back as the same number, with the settings' decimal separator.
QString FloatToStr(double value);

// Accepts "," and "." as decimal separator and blanks (also no-break ones) between groups of three digits.
// Raises EConvertError for anything else, for a number that is not finite, and for an empty text.
double StrToFloat(const QString &text);

// Reads a date in the settings' short format. Raises EConvertError.
TDateTime StrToDate(const QString &text);
QString DateToStr(TDateTime value);

// Fills %s %d %u %g %f %.2f %3d placeholders of a printf-like text in order. %d and %u take whole numbers
// only: a floating-point argument raises EConvertError, as does a missing argument. %s takes any value, %f
// and %g any number; "%-10s" is filled to the right, "%.3d" has at least three digits, "%%" is the sign
// itself.
QString Format(const QString &format, const QVariantList &arguments);
