#include "toolkit/text/collation.h"

namespace {

struct Letter {
    char16_t letter; // upper case
    char16_t base;
    bool own; // stands after its base as a letter of its own
};

// The whole Lithuanian alphabet beyond the plain letters.
constexpr Letter alphabet[] = {
    {u'Ą', u'A', false}, {u'Č', u'C', true}, {u'Ė', u'E', false}, {u'Ę', u'E', false}, {u'Į', u'I', false},
    {u'Y', u'I', false}, {u'Š', u'S', true}, {u'Ų', u'U', false}, {u'Ū', u'U', false}, {u'Ž', u'Z', true},
};

const Letter *find(QChar upper)
{
    for (const Letter &letter : alphabet) {
        if (letter.letter == upper.unicode())
            return &letter;
    }
    return nullptr;
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

} // namespace

QString lithuanianSortKey(const QString &text)
{
    return folded(text, true);
}

QString foldForSearch(const QString &text)
{
    return folded(text, false);
}
