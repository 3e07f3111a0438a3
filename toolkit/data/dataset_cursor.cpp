#include "toolkit/data/connection.h"
#include "toolkit/data/dataset_private.h"

#include <optional>

// --- rows and the filter

int TDataSet::Private::sourceOfModel(int row) const
{
    if (state != dsInsert)
        return rows.sourceOf(row);
    if (row == edited.insertedAt)
        return -1;
    return rows.sourceOf(row > edited.insertedAt ? row - 1 : row);
}

RowList::Passes TDataSet::Private::filterOf(std::function<bool(TDataSet &)> filter)
{
    if (!filter)
        return {};
    return [this, filter = std::move(filter)](int source) {
        const LookAtRow look(lookAt, source);
        return filter(*q);
    };
}

// A record that was posted may no longer pass.
void TDataSet::Private::hideCurrentUnlessPassing()
{
    if (rows.passesFilter(currentSource()))
        return;
    q->beginRemoveRows({}, cursor.row, cursor.row);
    rows.hide(cursor.row);
    cursor.settle(rows.seenCount());
    q->endRemoveRows();
}

void TDataSet::setFilter(std::function<bool(TDataSet &)> filter)
{
    if (!Active()) {
        d->rows.setFilter(d->filterOf(std::move(filter)));
        return;
    }
    d->leaveRecord();
    const int source = d->cursor.row < 0 ? -1 : d->currentSource();
    d->reset([&] {
        d->rows.setFilter(d->filterOf(std::move(filter)));
        d->fetchUntilSeen(1);
        d->cursor.row = d->rows.firstSeenFrom(source);
        d->cursor.settle(d->rows.seenCount());
    });
    d->scrolled();
}

// --- values

Variant TDataSet::Private::valueAt(int source, int field)
{
    if (field >= fields.stored())
        return calculatedOf(source)[size_t(field - fields.stored())];
    return source < 0 ? edited.now[size_t(field)] : rows.value(source, field);
}

Variant TDataSet::Private::value(int field)
{
    if (state == dsInactive)
        return {};
    if (lookInto && field < fields.stored())
        return (*lookInto)[size_t(field)];
    if (lookAt >= 0)
        return valueAt(lookAt, field);
    if (q->editing())
        return valueAt(-1, field);
    return cursor.row < 0 ? Variant() : valueAt(currentSource(), field);
}

const Record &TDataSet::Private::calculatedOf(int source)
{
    return calculated.of(source, fields.calculated(), [this, source] {
        const LookAtRow look(lookAt, source);
        if (q->OnCalcFields)
            q->OnCalcFields(*q);
    });
}

// --- cursor

bool TDataSet::IsEmpty() const
{
    return d->rows.seenCount() == 0 && d->state != dsInsert;
}

bool TDataSet::Bof() const
{
    return d->cursor.bof;
}

bool TDataSet::Eof() const
{
    return d->cursor.eof;
}

int TDataSet::RecNo() const
{
    return d->cursor.row;
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
    if (edited.modified)
        q->Post();
    else
        q->Cancel();
}

void TDataSet::Private::moveTo(int row)
{
    cursor.put(row);
    scrolled();
}

void TDataSet::First()
{
    d->leaveRecord();
    d->moveTo(d->rows.seenCount() > 0 ? 0 : -1);
    d->cursor.bof = true;
}

void TDataSet::Last()
{
    d->leaveRecord();
    d->fetchAll();
    d->moveTo(d->rows.seenCount() - 1);
    d->cursor.eof = true;
}

void TDataSet::Prior()
{
    d->leaveRecord();
    if (d->cursor.row > 0)
        d->moveTo(d->cursor.row - 1);
    else
        d->cursor.bof = true;
}

void TDataSet::Next()
{
    d->leaveRecord();
    d->fetchUntilSeen(d->cursor.row + 2);
    if (d->cursor.row + 1 < d->rows.seenCount()) {
        d->moveTo(d->cursor.row + 1);
        return;
    }
    d->reader.checkWhole(); // a loop to the end must not take a part for the whole
    d->cursor.eof = true;
}

// Where the post reads the list anew, the row that is meant may stand elsewhere in it.
void TDataSet::setRecNo(int row)
{
    if (row == d->cursor.row)
        return;
    std::optional<Record> meant;
    if (editing() && row >= 0 && row < d->modelRows())
        meant = d->recordOf(d->sourceOfModel(row));
    if (d->state == dsInsert && !d->edited.modified && row > d->edited.insertedAt)
        --row; // the untouched new record goes
    const int opening = d->openings;
    d->leaveRecord();
    if (meant && d->openings != opening) {
        d->moveToSame(*meant);
        return;
    }
    d->fetchUntilSeen(row + 1);
    if (row >= 0 && row < d->rows.seenCount())
        d->moveTo(row);
}

// The cursor stays when there is no such record any more.
void TDataSet::Private::moveToSame(const Record &record)
{
    const int found = fetchUntilFound([&](int from) {
        for (int seen = from; seen < rows.seenCount(); ++seen) {
            if (recordOf(rows.sourceOf(seen)) == record)
                return seen;
        }
        return -1;
    });
    if (found >= 0)
        moveTo(found);
}

int TDataSet::findRow(const QString &column, const Variant &key, int from) const
{
    const int field = FieldByName(column)->index();
    for (int seen = std::max(0, from); seen < d->rows.seenCount(); ++seen) {
        if (sameKey(d->valueAt(d->rows.sourceOf(seen), field), key))
            return seen;
    }
    return -1;
}

int TDataSet::Private::fetchUntilFound(const std::function<int(int from)> &find)
{
    BusyBeat busy;
    busy.start();
    int looked = 0;
    for (;;) {
        const int found = find(looked);
        if (found >= 0)
            return found;
        looked = rows.seenCount();
        if (!fetchRows(firstRows, -1) && looked == rows.seenCount())
            return -1;
        busy.beat();
    }
}

bool TDataSet::Locate(const QString &column, const Variant &key)
{
    d->leaveRecord();
    const int found = d->fetchUntilFound([&](int from) { return findRow(column, key, from); });
    if (found < 0) {
        d->reader.checkWhole();
        return false;
    }
    d->moveTo(found);
    return true;
}
