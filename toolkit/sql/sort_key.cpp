#include "toolkit/sql/sort_key.h"

using namespace Qt::StringLiterals;

namespace {

struct Letter {
    const char16_t *from;
    const char16_t *to;
};

// SQLite's upper() knows the letters of ASCII only, so that both cases of the others are named.
constexpr Letter letters[] = {
    {u"Y", u"I"},  {u"ą", u"A"},  {u"Ą", u"A"},  {u"ę", u"E"},  {u"Ę", u"E"},  {u"ė", u"E"}, {u"Ė", u"E"},
    {u"į", u"I"},  {u"Į", u"I"},  {u"ų", u"U"},  {u"Ų", u"U"},  {u"ū", u"U"},  {u"Ū", u"U"}, {u"č", u"C~"},
    {u"Č", u"C~"}, {u"š", u"S~"}, {u"Š", u"S~"}, {u"ž", u"Z~"}, {u"Ž", u"Z~"},
};

QString expressionOf(const QString &column)
{
    QString key = u"upper("_s + column + u')';
    for (const Letter &letter : letters)
        key = u"replace(%1,'%2','%3')"_s.arg(key, QString::fromUtf16(letter.from),
                                             QString::fromUtf16(letter.to));
    return key;
}

} // namespace

QString sortKeyExpression(const QString &column)
{
    static const QString pattern = expressionOf(u"#"_s);
    static const qsizetype place = pattern.indexOf(u'#');
    return pattern.left(place) + column + pattern.mid(place + 1);
}
