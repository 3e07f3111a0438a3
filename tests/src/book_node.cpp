#include "tests/src/book_node.h"

#include "host/classifier/book_frm.h"

#include <QList>
#include <QTreeWidget>

namespace {

QList<double> nodesBelow(const TBookFrm &book)
{
    QList<double> nodes;
    for (int row = 0; row < book.list()->topLevelItemCount(); ++row)
        nodes << TBookFrm::nodeOf(book.list()->topLevelItem(row));
    return nodes;
}

bool goOn(TBookFrm &book, double from, const std::function<bool()> &holds)
{
    book.SetJungId(from);
    if (holds())
        return true;
    for (const double node : nodesBelow(book))
        if (goOn(book, node, holds))
            return true;
    return false;
}

} // namespace

bool goToNode(TBookFrm &book, const std::function<bool()> &holds)
{
    const double here = book.JungId();
    if (holds() || goOn(book, 0, holds))
        return true;
    book.SetJungId(here);
    return false;
}
