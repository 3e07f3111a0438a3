#include "toolkit/data/dataset_private.h"

// Changes held back until they are applied together. Rows are never overwritten in the arena, so the list of
// addresses from before the first change is all that taking everything back needs.

void TDataSet::Private::startHolding()
{
    if (holding)
        return;
    rowsBefore = rows;
    holding = true;
}

void TDataSet::Private::holdInserted(RowArena::Address now)
{
    held.insert(now, {TChangeKind::Inserted, now, now, ++heldOrder, {}});
}

void TDataSet::Private::holdModified(RowArena::Address old, RowArena::Address now)
{
    HeldChange change = held.take(old);
    if (change.order == 0)
        change = {TChangeKind::Modified, old, now, ++heldOrder, {}};
    change.now = now;
    change.written.reset();
    held.insert(now, change);
}

void TDataSet::Private::holdDeleted(RowArena::Address row)
{
    HeldChange change = held.take(row);
    if (change.order > 0 && change.kind == TChangeKind::Inserted) // never written: nothing to delete
        return;
    if (change.order == 0)
        change = {TChangeKind::Deleted, row, row, ++heldOrder, {}};
    change.kind = TChangeKind::Deleted;
    heldDeletions.push_back(change);
}

// The record being edited was read anew: a change of it that is held starts from there.
void TDataSet::Private::rereadHeldRow(const QList<TChangedColumn> &columns)
{
    const auto change = held.find(rows[size_t(sourceOfSeen(current))]);
    if (change == held.end())
        return;
    Record asRead = arena.values(change->before, storedFields());
    for (const TChangedColumn &column : columns)
        asRead[size_t(q->FieldByName(column.field)->index())] = column.theirs;
    change->before = arena.append(asRead);
}

std::vector<TDataSet::Private::HeldChange> TDataSet::Private::heldInOrder() const
{
    std::vector<HeldChange> all = heldDeletions;
    all.insert(all.end(), held.cbegin(), held.cend());
    std::sort(all.begin(), all.end(), [](const auto &a, const auto &b) { return a.order < b.order; });
    return all;
}

bool TDataSet::hasHeldChanges() const
{
    return !d->held.isEmpty() || !d->heldDeletions.empty();
}

void TDataSet::writeHeldChanges()
{
    for (const Private::HeldChange &each : d->heldInOrder()) {
        TRecordChange change{each.kind, d->arena.values(each.before, d->storedFields()),
                             d->arena.values(each.now, d->storedFields())};
        if (each.kind == TChangeKind::Inserted)
            change.before.assign(change.now.size(), Variant());
        d->writeChange(change);
        if (each.kind != TChangeKind::Deleted)
            d->held[each.now].written = d->arena.append(change.now);
    }
}

void TDataSet::heldChangesAreWritten()
{
    for (RowArena::Address &row : d->rows) {
        const auto change = d->held.constFind(row);
        if (change != d->held.cend())
            row = change->written.value_or(row);
    }
    d->forgetCalculated();
    if (d->modelRows() > 0 && !d->held.isEmpty())
        emit dataChanged(index(0, 0), index(d->modelRows() - 1, columnCount() - 1));
    d->forgetHeld();
}

void TDataSet::Private::forgetHeld()
{
    held.clear();
    heldDeletions.clear();
    rowsBefore = {};
    holding = false;
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
        d->forgetHeld();
        d->settle();
    });
    d->scrolled();
}
