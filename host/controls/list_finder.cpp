#include "host/controls/list_finder.h"

#include "toolkit/text/collation.h"

#include <QDeadlineTimer>

void TListFinder::start(const QString &text, int inColumn, int fromRow)
{
    wanted = text;
    folded = foldForSearch(text);
    column = inColumn;
    first = at = std::max(fromRow, 0);
    wrapped = false;
    outcome = folded.isEmpty() ? Outcome::NotFound : Outcome::Searching;
}

TListFinder::Outcome TListFinder::step(int milliseconds)
{
    if (outcome != Outcome::Searching)
        return outcome;
    outcome = Outcome::Idle; // stays so when fetching raises
    const QDeadlineTimer deadline(milliseconds);
    do {
        if (!advance())
            return outcome = Outcome::NotFound;
        if (matches(at))
            return outcome = Outcome::Found;
        ++at;
    } while (!deadline.hasExpired());
    return outcome = Outcome::Searching;
}

// Makes sure that the row to look at next is here; false when the search has gone all round.
bool TListFinder::advance()
{
    while (at >= set->rowCount() && !wrapped) {
        if (set->canFetchMore({})) {
            const int before = set->fetchedCount();
            set->fetchMore({});
            // The set has told why it cannot read; asking again would never end.
            if (set->fetchedCount() == before && set->canFetchMore({}))
                throw EAbort();
        } else {
            at = 0;
            wrapped = true;
        }
    }
    return wrapped ? at < std::min(first, set->rowCount()) : true;
}

bool TListFinder::matches(int row) const
{
    const QString text = foldForSearch(set->index(row, column).data(Qt::DisplayRole).toString());
    qsizetype found = text.indexOf(folded);
    while (found > 0 && text[found - 1].isLetterOrNumber())
        found = text.indexOf(folded, found + 1);
    return found >= 0;
}
