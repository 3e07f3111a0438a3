#include "toolkit/data/row_list.h"

RowList::Address RowList::append(const TStatement &row, int columns)
{
    rows.push_back(arena.append(row, columns));
    return rows.back();
}

int RowList::firstSeenFrom(int source) const
{
    if (!filtered())
        return source;
    return int(std::lower_bound(visible.begin(), visible.end(), source) - visible.begin());
}

void RowList::insert(int seen, Address address)
{
    const int source = seen < seenCount() ? sourceOf(seen) : size();
    rows.insert(rows.begin() + source, address);
    ++shown;
    if (!filtered())
        return;
    for (int &each : visible)
        each += each >= source ? 1 : 0;
    visible.insert(visible.begin() + seen, source);
}

void RowList::erase(int seen)
{
    const int source = sourceOf(seen);
    rows.erase(rows.begin() + source);
    --shown;
    if (!filtered())
        return;
    visible.erase(visible.begin() + seen);
    for (int &each : visible)
        each -= each > source ? 1 : 0;
}

void RowList::hide(int seen)
{
    visible.erase(visible.begin() + seen);
}

int RowList::countNew()
{
    upcoming.clear();
    if (!filtered())
        return size() - shown;
    for (int source = shown; source < size(); ++source) {
        if (passes(source))
            upcoming.push_back(source);
    }
    return int(upcoming.size());
}

void RowList::show()
{
    visible.insert(visible.end(), upcoming.begin(), upcoming.end());
    shown = size();
}

void RowList::setFilter(Passes filter)
{
    passes = std::move(filter);
    refilter();
}

void RowList::refilter()
{
    visible.clear();
    for (int source = 0; filtered() && source < shown; ++source) {
        if (passes(source))
            visible.push_back(source);
    }
}

void RowList::restore(const std::vector<Address> &before)
{
    rows = before;
    shown = size();
    refilter();
}

void RowList::clear()
{
    arena.clear();
    rows = {};
    visible = {};
    upcoming = {};
    shown = 0;
}
