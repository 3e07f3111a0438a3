#include "toolkit/text/collation.h"

namespace {

struct Letter {
    char16_t letter; // upper case
    char16_t base;
    int mark; // order among the letters of one base
    bool own; // stands after its base as a letter of its own
};

// The whole Lithuanian alphabet beyond the plain letters, in the order of a dictionary.
constexpr Letter alphabet[] = {
    {u'Ą', u'A', 1, false}, {u'Č', u'C', 0, true},  {u'Ė', u'E', 2, false}, {u'Ę', u'E', 1, false},
    {u'Į', u'I', 1, false}, {u'Y', u'I', 2, false}, {u'Š', u'S', 0, true},  {u'Ų', u'U', 1, false},
    {u'Ū', u'U', 2, false}, {u'Ž', u'Z', 0, true},
};

const Letter *find(QChar upper)
{
    for (const Letter &letter : alphabet) {
        if (letter.letter == upper.unicode())
            return &letter;
    }
    return nullptr;
}

int mark(QChar c)
{
    const Letter *letter = find(c.toUpper());
    return letter ? letter->mark : 0;
}

QString folded(const QString &text, bool ownLettersApart)
{
    QString result;
    result.reserve(text.size() + 4);
    for (const QChar c : text) {
        // One character at a time: no letter may grow into two, as the databases' own upper() does it.
        const QChar upper = c.toUpper();
        const Letter *letter = find(upper);
        result += letter ? QChar(letter->base) : upper;
        if (letter && letter->own && ownLettersApart)
            result += u'~';
    }
    return result;
}

// The order of two texts of the same key: first by their marks, then small letters before capital ones.
int compareAlike(const QString &a, const QString &b)
{
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (const int difference = mark(a[i]) - mark(b[i]))
            return difference;
    }
    for (qsizetype i = 0; i < common; ++i) {
        if (const int difference = int(a[i].isUpper()) - int(b[i].isUpper()))
            return difference;
    }
    return a.compare(b);
}

} // namespace

QString lithuanianSortKey(const QString &text)
{
    return folded(text, true);
}

int compareLithuanian(const QString &a, const QString &b)
{
    const int byKey = lithuanianSortKey(a).compare(lithuanianSortKey(b));
    return byKey ? byKey : compareAlike(a, b);
}

QString foldForSearch(const QString &text)
{
    return folded(text, false);
}
