#include "host/controls/row_history.h"

namespace {

TRowHistoryOpener &current()
{
    static TRowHistoryOpener opener;
    return opener;
}

} // namespace

void setRowHistoryOpener(TRowHistoryOpener opener)
{
    current() = std::move(opener);
}

const TRowHistoryOpener &rowHistoryOpener()
{
    return current();
}
