#include "toolkit/data/connection.h"
#include "toolkit/data/dataset_private.h"

// --- rows and the filter

int TDataSet::Private::sourceOfModel(int row) const
{
    if (state != dsInsert)
        return sourceOfSeen(row);
    if (row == insertedAt)
        return -1;
    return sourceOfSeen(row > insertedAt ? row - 1 : row);
}

bool TDataSet::Private::passes(int source)
{
    const LookAtRow look(lookAt, source);
    return filter(*q);
}

void TDataSet::Private::insertRow(int seen, RowArena::Address address)
{
    const int source = seen < seenCount() ? sourceOfSeen(seen) : int(rows.size());
    rows.insert(rows.begin() + source, address);
    ++published;
    forgetCalculated();
    if (!filter)
        return;
    for (int &each : visible)
        each += each >= source ? 1 : 0;
    visible.insert(visible.begin() + seen, source);
}

void TDataSet::Private::removeRow(int seen)
{
    const int source = sourceOfSeen(seen);
    rows.erase(rows.begin() + source);
    --published;
    forgetCalculated();
    if (!filter)
        return;
    visible.erase(visible.begin() + seen);
    for (int &each : visible)
        each -= each > source ? 1 : 0;
}

void TDataSet::Private::refilter()
{
    visible.clear();
    if (!filter)
        return;
    for (int source = 0; source < published; ++source) {
        if (passes(source))
            visible.push_back(source);
    }
}

// A record that was posted may no longer pass.
void TDataSet::Private::hideCurrentUnlessPassing()
{
    if (!filter || passes(sourceOfSeen(current)))
        return;
    q->beginRemoveRows({}, current, current);
    visible.erase(visible.begin() + current);
    settle();
    q->endRemoveRows();
}

void TDataSet::setFilter(std::function<bool(TDataSet &)> filter)
{
    if (!Active()) {
        d->filter = std::move(filter);
        return;
    }
    d->leaveRecord();
    const int source = d->current < 0 ? -1 : d->sourceOfSeen(d->current);
    d->reset([&] {
        d->filter = std::move(filter);
        d->refilter();
        d->fetchUntilSeen(1);
        d->current = source;
        if (d->filter)
            d->current =
                int(std::lower_bound(d->visible.begin(), d->visible.end(), source) - d->visible.begin());
        d->settle();
    });
    d->scrolled();
}

// --- values

Variant TDataSet::Private::valueAt(int source, int field)
{
    if (field >= storedFields())
        return calculatedOf(source)[size_t(field - storedFields())];
    return source < 0 ? buffer[size_t(field)] : arena.value(rows[size_t(source)], field);
}

Variant TDataSet::Private::value(int field)
{
    if (state == dsInactive)
        return {};
    if (lookInto && field < storedFields())
        return (*lookInto)[size_t(field)];
    if (lookAt >= 0)
        return valueAt(lookAt, field);
    if (q->editing())
        return valueAt(-1, field);
    return current < 0 ? Variant() : valueAt(sourceOfSeen(current), field);
}

const Record &TDataSet::Private::calculatedOf(int source)
{
    if (calculatedFor == source || calculating)
        return calculated;
    calculated.assign(size_t(calculatedColumns.size()), Variant());
    calculatedFor = source;
    if (!q->OnCalcFields)
        return calculated;
    const LookAtRow look(lookAt, source);
    calculating = true;
    const auto done = qScopeGuard([this] { calculating = false; });
    q->OnCalcFields(*q);
    return calculated;
}

// --- cursor

bool TDataSet::IsEmpty() const
{
    return d->seenCount() == 0 && d->state != dsInsert;
}

bool TDataSet::Bof() const
{
    return d->bof;
}

bool TDataSet::Eof() const
{
    return d->eof;
}

int TDataSet::RecNo() const
{
    return d->current;
}

void TDataSet::Private::checkActive() const
{
    if (state == dsInactive)
        throw EDatabaseError(QStringLiteral("Duomenų rinkinys neatvertas."));
}

void TDataSet::Private::scrolled()
{
    if (q->AfterScroll)
        q->AfterScroll(*q);
    emit q->scrolled();
}

void TDataSet::Private::leaveRecord()
{
    checkActive();
    if (!q->editing())
        return;
    if (modified)
        q->Post();
    else
        q->Cancel();
}

void TDataSet::Private::settle()
{
    current = std::min(current, seenCount() - 1);
    if (current < 0 && seenCount() > 0)
        current = 0;
    bof = current <= 0;
    eof = current < 0;
}

void TDataSet::Private::moveTo(int row)
{
    current = row;
    bof = eof = row < 0;
    scrolled();
}

void TDataSet::First()
{
    d->leaveRecord();
    d->moveTo(d->seenCount() > 0 ? 0 : -1);
    d->bof = true;
}

void TDataSet::Last()
{
    d->leaveRecord();
    d->fetchAll();
    d->moveTo(d->seenCount() - 1);
    d->eof = true;
}

void TDataSet::Prior()
{
    d->leaveRecord();
    if (d->current > 0)
        d->moveTo(d->current - 1);
    else
        d->bof = true;
}

void TDataSet::Next()
{
    d->leaveRecord();
    d->fetchUntilSeen(d->current + 2);
    if (d->current + 1 < d->seenCount())
        d->moveTo(d->current + 1);
    else if (d->failure.isEmpty())
        d->eof = true;
    else
        throw EDatabaseError(d->failure); // a loop to the end must not take a part for the whole
}

void TDataSet::setRecNo(int row)
{
    if (row == d->current)
        return;
    if (d->state == dsInsert && !d->modified && row > d->insertedAt)
        --row; // the untouched new record goes
    d->leaveRecord();
    d->fetchUntilSeen(row + 1);
    if (row >= 0 && row < d->seenCount())
        d->moveTo(row);
}

int TDataSet::findRow(const QString &column, const Variant &key, int from) const
{
    const int field = FieldByName(column)->index();
    for (int seen = std::max(0, from); seen < d->seenCount(); ++seen) {
        if (sameKey(d->valueAt(d->sourceOfSeen(seen), field), key))
            return seen;
    }
    return -1;
}

bool TDataSet::Locate(const QString &column, const Variant &key)
{
    d->leaveRecord();
    BusyBeat busy;
    busy.start();
    int looked = 0;
    for (;;) {
        const int found = findRow(column, key, looked);
        if (found >= 0) {
            d->moveTo(found);
            return true;
        }
        looked = d->seenCount();
        if (!d->fetchRows(firstRows, -1) && looked == d->seenCount())
            break;
        busy.beat();
    }
    if (!d->failure.isEmpty())
        throw EDatabaseError(d->failure);
    return false;
}
