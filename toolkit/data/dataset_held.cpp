#include "toolkit/data/dataset_private.h"

// Changes held back until they are applied together. Rows are never overwritten in the arena, so the list of
// addresses from before the first change is all that taking everything back needs.

void TDataSet::Private::startHolding()
{
    if (holding)
        return;
    fetchAll();
    rowsBefore = rows;
    holding = true;
}

void TDataSet::Private::holdInserted(RowArena::Address now)
{
    held.insert(now, {RowState::Inserted, now, now, ++heldOrder});
}

void TDataSet::Private::holdModified(RowArena::Address old, RowArena::Address now)
{
    HeldChange change = held.take(old);
    if (change.state == RowState::Unmodified)
        change = {RowState::Modified, old, now, ++heldOrder};
    change.now = now;
    held.insert(now, change);
}

void TDataSet::Private::holdDeleted(RowArena::Address row)
{
    HeldChange change = held.take(row);
    if (change.state == RowState::Inserted) // never written: nothing to delete
        return;
    if (change.state == RowState::Unmodified)
        change = {RowState::Deleted, row, row, ++heldOrder};
    change.state = RowState::Deleted;
    heldDeletions.push_back(change);
}

bool TDataSet::hasHeldChanges() const
{
    return !d->held.isEmpty() || !d->heldDeletions.empty();
}

void TDataSet::forEachHeldChange(const std::function<void(RowState)> &write)
{
    std::vector<Private::HeldChange> all = d->heldDeletions;
    all.insert(all.end(), d->held.cbegin(), d->held.cend());
    std::sort(all.begin(), all.end(), [](const auto &a, const auto &b) { return a.order < b.order; });
    const auto done = qScopeGuard([this] { d->writeNow = d->writeBefore = nullptr; });
    for (const Private::HeldChange &change : all) {
        const Record now = d->arena.values(change.now, d->storedFields());
        const Record before = change.state == RowState::Inserted
                                  ? Record(now.size())
                                  : d->arena.values(change.before, d->storedFields());
        d->writeNow = &now;
        d->writeBefore = &before;
        write(change.state);
    }
}

void TDataSet::heldChangesAreWritten()
{
    d->held.clear();
    d->heldDeletions.clear();
    d->rowsBefore = {};
    d->holding = false;
}

void TDataSet::dropHeldChanges()
{
    if (editing())
        Cancel();
    if (!d->holding)
        return;
    d->reset([this] {
        d->rows = d->rowsBefore;
        d->published = int(d->rows.size());
        d->forgetCalculated();
        d->refilter();
        heldChangesAreWritten();
        d->settle();
    });
    d->scrolled();
}
