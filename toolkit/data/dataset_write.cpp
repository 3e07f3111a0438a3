#include "toolkit/data/changed_elsewhere.h"
#include "toolkit/data/dataset_private.h"

using namespace Qt::StringLiterals;

// Records on their way into the database: one at once, or several that were held back.

// What the database tells by the names of its columns, told by the labels of the fields.
void TDataSet::Private::raiseInCaptions(const EUniqueViolation &error, const Record &record)
{
    QStringList parts;
    for (const QString &column : error.columns) {
        const TField *field = q->FindField(column);
        if (!field || field->DisplayLabel.isEmpty() || field->isCalculated())
            throw;
        parts.append(u"%1 „%2“"_s.arg(field->DisplayLabel, q->textIn(record, field->index())));
    }
    if (parts.isEmpty())
        throw;
    throw EUniqueViolation(u"Toks įrašas jau yra: %1."_s.arg(parts.join(u", "_s)), error.serverText,
                           error.statement, error.constraint, error.columns);
}

void TDataSet::Private::write(TRecordChange &change)
{
    try {
        q->write(change);
    } catch (const EUniqueViolation &error) {
        raiseInCaptions(error, change.now);
    }
}

void TDataSet::Private::writeEdited()
{
    if (q->holdsChanges() || (state == dsEdit && !edited.modified))
        return;
    TRecordChange change{state == dsInsert ? TChangeKind::Inserted : TChangeKind::Modified, edited.before,
                         edited.now};
    write(change);
    edited.now = change.now;
}

void TDataSet::Private::writeDeletion()
{
    const RowList::Address address = rows.at(currentSource());
    if (q->holdsChanges()) {
        held.start(rows.all());
        held.deleted(address);
        return;
    }
    const Record record = rows.read(address, fields.stored());
    TRecordChange change{TChangeKind::Deleted, record, record};
    write(change);
}

void TDataSet::replaceRecord(const std::function<bool(Record &)> &with)
{
    Q_ASSERT(!editing() && !hasHeldChanges());
    const int source = d->cursor.row < 0 ? -1 : d->currentSource();
    if (source < 0)
        return;
    Record record = d->recordOf(source);
    if (!with(record))
        return;
    d->rows.replace(source, d->rows.store(record));
    d->calculated.forget();
    d->changed(d->cursor.row);
    emit scrolled();
}

// --- changes held back

bool TDataSet::hasHeldChanges() const
{
    return !d->held.isEmpty();
}

void TDataSet::writeHeldChanges()
{
    for (const HeldChanges::Change &each : d->held.inOrder()) {
        const Record now = d->rows.read(each.now, d->fields.stored());
        TRecordChange change{each.kind,
                             each.kind == TChangeKind::Inserted
                                 ? Record(now.size())
                                 : d->rows.read(each.before, d->fields.stored()),
                             now};
        d->write(change);
        if (HeldChanges::Change *held = d->held.find(each.now))
            held->written = d->rows.store(change.now);
    }
}

void TDataSet::heldChangesAreWritten()
{
    for (int source = 0; source < d->rows.size(); ++source) {
        const HeldChanges::Change *change = d->held.find(d->rows.at(source));
        if (change && change->written)
            d->rows.replace(source, *change->written);
    }
    d->held.clear();
    d->calculated.forget();
    if (d->modelRows() > 0)
        emit dataChanged(index(0, 0), index(d->modelRows() - 1, columnCount() - 1));
}

void TDataSet::dropHeldChanges()
{
    if (editing())
        Cancel();
    if (!d->held.started())
        return;
    d->reset([this] {
        d->rows.restore(d->held.rowsBefore());
        d->held.clear();
        d->calculated.forget();
        d->cursor.settle(d->rows.seenCount());
    });
    d->scrolled();
}

// The record being edited was read anew: a change of it that is held starts from there.
void TDataSet::Private::rereadHeldRow(const QList<TChangedColumn> &columns)
{
    HeldChanges::Change *change = held.find(rows.at(currentSource()));
    if (!change)
        return;
    Record asRead = rows.read(change->before, fields.stored());
    for (const TChangedColumn &column : columns)
        asRead[size_t(q->FieldByName(column.field)->index())] = column.theirs;
    change->before = rows.store(asRead);
}

// --- another station's changes

// Theirs becomes the value as it was read; taken over, it is the record's own value, too.
void TDataSet::Private::takeTheirs(const QList<TChangedColumn> &columns, bool asOwn)
{
    Q_ASSERT(state == dsEdit);
    for (const TChangedColumn &column : columns) {
        const size_t at = size_t(q->FieldByName(column.field)->index());
        edited.before[at] = column.theirs;
        if (asOwn)
            edited.now[at] = column.theirs;
    }
    // What is stored, or held as a change, is something else than the record by now.
    edited.modified = true;
    rereadHeldRow(columns);
    calculated.forget();
    changed(cursor.row);
    for (const TChangedColumn &column : columns)
        emit q->fieldChanged(column.field);
}

void TDataSet::acceptOther(const QList<TChangedColumn> &columns)
{
    d->takeTheirs(columns, true);
}

void TDataSet::keepOwn(const QList<TChangedColumn> &columns)
{
    d->takeTheirs(columns, false);
}

QString TDataSet::textIn(const Record &record, int field)
{
    d->calculated.forget();
    const auto done = qScopeGuard([this] {
        d->lookInto = nullptr;
        d->calculated.forget();
    });
    d->lookInto = &record;
    return Field(field)->DisplayText();
}
