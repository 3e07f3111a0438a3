#include "toolkit/data/held_changes.h"

void HeldChanges::start(const std::vector<Address> &rows)
{
    if (holding)
        return;
    before = rows;
    holding = true;
}

void HeldChanges::rowCame(Address row)
{
    if (holding)
        before.push_back(row);
}

void HeldChanges::inserted(Address now)
{
    changes.insert(now, {TChangeKind::Inserted, now, now, ++lastOrder, {}});
}

void HeldChanges::modified(Address old, Address now)
{
    Change change = changes.take(old);
    if (change.order == 0)
        change = {TChangeKind::Modified, old, now, ++lastOrder, {}};
    change.now = now;
    change.written.reset();
    changes.insert(now, change);
}

void HeldChanges::deleted(Address row)
{
    Change change = changes.take(row);
    if (change.order > 0 && change.kind == TChangeKind::Inserted) // never written: nothing to delete
        return;
    if (change.order == 0)
        change = {TChangeKind::Deleted, row, row, ++lastOrder, {}};
    change.kind = TChangeKind::Deleted;
    deletions.push_back(change);
}

HeldChanges::Change *HeldChanges::find(Address now)
{
    const auto found = changes.find(now);
    return found == changes.end() ? nullptr : &found.value();
}

std::vector<HeldChanges::Change> HeldChanges::inOrder() const
{
    std::vector<Change> all = deletions;
    all.insert(all.end(), changes.cbegin(), changes.cend());
    std::sort(all.begin(), all.end(), [](const Change &a, const Change &b) { return a.order < b.order; });
    return all;
}
