#include "toolkit/data/dataset_private.h"

using namespace Qt::StringLiterals;

bool TDataSet::Modified() const
{
    return d->modified;
}

bool TDataSet::ReadOnly() const
{
    return d->readOnly || !canWrite();
}

void TDataSet::setReadOnly(bool on)
{
    d->readOnly = on;
    emit stateChanged();
}

int TDataSet::addFlusher(std::function<void()> flusher)
{
    d->flushers.emplace(++d->lastFlusher, std::move(flusher));
    return d->lastFlusher;
}

void TDataSet::removeFlusher(int number)
{
    d->flushers.erase(number);
}

void TDataSet::Private::checkWritable() const
{
    checkActive();
    if (q->ReadOnly())
        throw EDatabaseError(u"Duomenis galima tik peržiūrėti, keisti negalima."_s);
}

void TDataSet::Private::setState(TDataSetState to)
{
    state = to;
    emit q->stateChanged();
}

// --- starting

void TDataSet::Edit()
{
    if (editing())
        return;
    d->checkWritable();
    if (d->current < 0) {
        Append();
        return;
    }
    if (BeforeEdit)
        BeforeEdit(*this);
    d->before = d->arena.values(d->rows[size_t(d->sourceOfSeen(d->current))], d->storedFields());
    d->buffer = d->before;
    d->modified = false;
    d->forgetCalculated();
    d->setState(dsEdit);
    if (AfterEdit)
        AfterEdit(*this);
}

void TDataSet::Insert()
{
    d->leaveRecord();
    d->checkWritable();
    d->startInsert(std::max(0, d->current));
}

void TDataSet::Append()
{
    d->leaveRecord();
    d->checkWritable();
    d->fetchAll();
    d->startInsert(d->seenCount());
}

void TDataSet::Private::startInsert(int row)
{
    if (q->BeforeInsert)
        q->BeforeInsert(*q);
    before.assign(size_t(storedFields()), Variant());
    buffer = before;
    for (const std::unique_ptr<TField> &field : fields) {
        if (!field->isCalculated() && !field->DefaultExpression.isNull())
            buffer[size_t(field->index())] = field->accepted(field->DefaultExpression);
    }
    modified = false;
    forgetCalculated();
    q->beginInsertRows({}, row, row);
    state = dsInsert;
    insertedAt = row;
    current = row;
    q->endInsertRows();
    emit q->stateChanged();
    if (q->AfterInsert)
        q->AfterInsert(*q);
    modified = false; // what the hook presets is no change of the user's
    scrolled();
}

// --- a field gets a value

void TDataSet::Private::setValue(TField &field, const Variant &accepted)
{
    if (field.isCalculated()) {
        calculated[size_t(field.index() - storedFields())] = accepted;
        return;
    }
    buffer[size_t(field.index())] = accepted;
    modified = true;
    forgetCalculated();
    changed(current);
    emit q->fieldChanged(field.FieldName());
}

void TDataSet::Private::changed(int row)
{
    if (row >= 0)
        emit q->dataChanged(q->index(row, 0), q->index(row, q->columnCount() - 1));
}

// --- posting

void TDataSet::Private::flush()
{
    emit q->updatingRecord();
    const auto all = flushers; // a flusher may remove itself
    for (const auto &[number, flusher] : all)
        flusher();
}

namespace {

bool isBlank(const Variant &value)
{
    return value.isNull() || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
}

} // namespace

void TDataSet::Private::checkRequired() const
{
    for (const std::unique_ptr<TField> &field : fields) {
        if (field->Required && !field->isCalculated() && isBlank(buffer[size_t(field->index())]))
            throw EDatabaseError(u"Laukas \"%1\" negali būti tuščias!"_s.arg(field->label()));
    }
}

void TDataSet::Private::write()
{
    if (q->holdsChanges())
        return;
    if (state == dsInsert)
        q->writeInsert();
    else if (modified)
        q->writeUpdate();
}

void TDataSet::Post()
{
    if (!editing())
        return;
    d->flush();
    if (BeforePost)
        BeforePost(*this);
    d->checkRequired();
    const Record typed = d->buffer;
    try {
        d->write();
    } catch (...) {
        d->buffer = typed; // what was read back before the failure never came true
        throw;
    }
    if (d->state == dsInsert)
        d->keepInserted();
    else
        d->keepUpdated();
    d->hideCurrentUnlessPassing();
    if (AfterPost)
        AfterPost(*this);
    emit scrolled();
}

// The model row of the new record is there already; it becomes a stored one.
void TDataSet::Private::keepInserted()
{
    const RowArena::Address address = arena.append(buffer);
    if (q->holdsChanges()) {
        startHolding();
        holdInserted(address);
    }
    state = dsBrowse;
    insertRow(insertedAt, address);
    current = std::exchange(insertedAt, -1);
    modified = false;
    bof = eof = false;
    changed(current);
    emit q->stateChanged();
}

void TDataSet::Private::keepUpdated()
{
    const size_t source = size_t(sourceOfSeen(current));
    if (modified) {
        const RowArena::Address address = arena.append(buffer);
        if (q->holdsChanges()) {
            startHolding();
            holdModified(rows[source], address);
        }
        rows[source] = address;
    }
    modified = false;
    state = dsBrowse;
    forgetCalculated();
    changed(current);
    emit q->stateChanged();
}

// --- taking back

void TDataSet::Cancel()
{
    if (!editing())
        return;
    const bool wasInserting = d->state == dsInsert;
    d->forgetCalculated();
    d->modified = false;
    if (wasInserting) {
        const int row = d->insertedAt;
        beginRemoveRows({}, row, row);
        d->state = dsBrowse;
        d->insertedAt = -1;
        d->settle();
        endRemoveRows();
    } else {
        d->state = dsBrowse;
        d->changed(d->current);
    }
    emit stateChanged();
    if (AfterCancel)
        AfterCancel(*this);
    if (wasInserting)
        d->scrolled();
    else
        emit scrolled();
}

void TDataSet::Delete()
{
    if (d->state == dsInsert) {
        Cancel();
        return;
    }
    d->checkWritable();
    if (d->current < 0)
        throw EDatabaseError(u"Nėra įrašo, kurį būtų galima ištrinti."_s);
    if (BeforeDelete)
        BeforeDelete(*this);
    const RowArena::Address address = d->rows[size_t(d->sourceOfSeen(d->current))];
    if (holdsChanges()) {
        d->startHolding();
        d->holdDeleted(address);
    } else {
        d->before = d->arena.values(address, d->storedFields());
        writeDelete();
    }
    d->modified = false;
    if (d->state == dsEdit)
        d->setState(dsBrowse);
    beginRemoveRows({}, d->current, d->current);
    d->removeRow(d->current);
    d->settle();
    endRemoveRows();
    d->fetchUntilSeen(1);
    if (AfterDelete)
        AfterDelete(*this);
    d->scrolled();
}

// --- for the kinds of data sets

const Variant &TDataSet::writtenValue(int field) const
{
    return d->writeNow ? (*d->writeNow)[size_t(field)] : d->buffer[size_t(field)];
}

const Variant &TDataSet::unchangedValue(int field) const
{
    return d->writeBefore ? (*d->writeBefore)[size_t(field)] : d->before[size_t(field)];
}

void TDataSet::setReread(int field, const Variant &value)
{
    if (!d->writeNow)
        d->buffer[size_t(field)] = value;
}
