#include "toolkit/text/decimal.h"
#include "toolkit/text/format.h"
#include "toolkit/text/picture.h"

#include <cmath>

namespace {

// A section of a picture, taken apart: literals and digit places in order, and what the places demand.
struct Section {
    struct Item {
        enum Kind { Literal, Digit, Point } kind;
        QString text; // of a literal
    };
    QList<Item> items;
    int wholePlaces = 0;    // digit places before the decimal place
    int fractionPlaces = 0; // and after it
    int leastWhole = 0;     // digits shown always before the decimal place
    int leastFraction = 0;  // and after it
    bool hasPoint = false;
    bool grouped = false;

    void addLiteral(const QString &text) { items.append(Item{Item::Literal, text}); }
    void addDigit(bool always);
    void addPoint();
};

void Section::addDigit(bool always)
{
    items.append(Item{Item::Digit, {}});
    int &places = hasPoint ? fractionPlaces : wholePlaces;
    ++places;
    if (hasPoint)
        leastFraction = always ? places : leastFraction;
    else
        leastWhole += always || leastWhole > 0 ? 1 : 0;
}

void Section::addPoint()
{
    if (!hasPoint)
        items.append(Item{Item::Point, {}});
    hasPoint = true;
}

Section takenApart(QStringView picture)
{
    Section section;
    for (qsizetype at = 0; at < picture.size();) {
        const QChar c = picture[at];
        if (isQuote(c)) {
            section.addLiteral(quotedPart(picture, at).toString());
            continue;
        }
        ++at;
        if (c == u'0' || c == u'#')
            section.addDigit(c == u'0');
        else if (c == u'.')
            section.addPoint();
        else if (c == u',')
            section.grouped = true;
        else
            section.addLiteral(QString(c));
    }
    return section;
}

QList<QStringView> sectionsOf(QStringView picture)
{
    QList<QStringView> sections;
    qsizetype start = 0;
    for (qsizetype at = 0; at < picture.size();) {
        if (isQuote(picture[at])) {
            quotedPart(picture, at);
            continue;
        }
        if (picture[at] == u';') {
            sections.append(picture.mid(start, at - start));
            start = at + 1;
        }
        ++at;
    }
    sections.append(picture.mid(start));
    return sections;
}

// The digits before the decimal place, one text for each digit place; what is more goes into the first place.
class WholeDigits {
public:
    WholeDigits(const Section &section, const Decimal &number)
        : digits(number.whole().rightJustified(section.leastWhole, u'0')),
          placesLeft(section.wholePlaces),
          grouped(section.grouped)
    {
    }

    QString next()
    {
        --placesLeft;
        QString result;
        while (digits.size() - taken > placesLeft)
            result += one();
        return result;
    }

private:
    QString one()
    {
        const qsizetype left = digits.size() - taken;
        const bool separate = grouped && taken > 0 && left % 3 == 0;
        const QChar digit = digits[taken++];
        return separate ? QString(FormatSettings().ThousandSeparator) + digit : QString(digit);
    }

    QString digits;
    qsizetype taken = 0;
    int placesLeft;
    bool grouped;
};

QString filled(const Section &section, const Decimal &number)
{
    WholeDigits whole(section, number);
    const QString fraction = number.fraction().leftJustified(section.leastFraction, u'0');
    qsizetype fractionTaken = 0;
    bool behindPoint = false;
    // Digits before the decimal place are shown even where the picture has no place for them.
    QString result = section.wholePlaces == 0 && !number.isZero() ? number.whole() : QString();
    for (const Section::Item &item : section.items) {
        if (item.kind == Section::Item::Literal)
            result += item.text;
        else if (item.kind == Section::Item::Point) {
            behindPoint = true;
            result += fraction.isEmpty() ? QString() : QString(FormatSettings().DecimalSeparator);
        } else if (!behindPoint)
            result += whole.next();
        else if (fractionTaken < fraction.size())
            result += fraction[fractionTaken++];
    }
    return result;
}

QString filledSection(QStringView picture, Decimal number, bool signShown)
{
    const Section section = takenApart(picture);
    number.round(section.fractionPlaces);
    const QString text = filled(section, number);
    return signShown && number.isNegative() ? u'-' + text : text;
}

bool roundsToZero(QStringView picture, Decimal number)
{
    number.round(takenApart(picture).fractionPlaces);
    return number.isZero();
}

} // namespace

QString FormatFloat(const QString &format, double value)
{
    if (format.isEmpty() || !std::isfinite(value))
        return FloatToStr(value);
    const QList<QStringView> sections = sectionsOf(format);
    const auto given = [&](qsizetype i) { return i < sections.size() && !sections[i].isEmpty(); };
    const Decimal number(value);
    const bool ownNegative = number.isNegative() && given(1);
    const QStringView chosen = ownNegative ? sections[1] : sections[0];
    if (given(2) && (number.isZero() || roundsToZero(chosen, number)))
        return filledSection(sections[2], Decimal(0), false);
    return chosen.isEmpty() ? FloatToStr(value) : filledSection(chosen, number, !ownNegative);
}
