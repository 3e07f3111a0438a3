#include "toolkit/data/dataset_private.h"

using namespace Qt::StringLiterals;

bool TDataSet::Modified() const
{
    return d->edited.modified;
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
    if (d->cursor.row < 0) {
        Append();
        return;
    }
    if (BeforeEdit)
        BeforeEdit(*this);
    d->edited.start(d->recordOf(d->currentSource()));
    d->calculated.forget();
    d->setState(dsEdit);
    if (AfterEdit)
        AfterEdit(*this);
}

void TDataSet::Insert()
{
    d->leaveRecord();
    d->checkWritable();
    d->startInsert(std::max(0, d->cursor.row));
}

void TDataSet::Append()
{
    d->leaveRecord();
    d->checkWritable();
    d->fetchAll();
    d->startInsert(d->rows.seenCount());
}

void TDataSet::Private::startInsert(int row)
{
    if (q->BeforeInsert)
        q->BeforeInsert(*q);
    edited.start(Record(size_t(fields.stored())));
    for (const std::unique_ptr<TField> &field : fields) {
        if (!field->isCalculated() && !field->DefaultExpression.isNull())
            edited.now[size_t(field->index())] = field->accepted(field->DefaultExpression);
    }
    calculated.forget();
    q->beginInsertRows({}, row, row);
    state = dsInsert;
    edited.insertedAt = row;
    cursor.row = row;
    q->endInsertRows();
    emit q->stateChanged();
    if (q->AfterInsert)
        q->AfterInsert(*q);
    edited.modified = false; // what the hook presets is no change of the user's
    scrolled();
}

// --- a field gets a value

void TDataSet::Private::setValue(TField &field, const Variant &accepted)
{
    if (field.isCalculated()) {
        calculated.set(field.index() - fields.stored(), accepted);
        return;
    }
    edited.now[size_t(field.index())] = accepted;
    edited.modified = true;
    calculated.forget();
    changed(cursor.row);
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
    const auto all = flushers; // a flusher may remove itself
    for (const auto &[number, flusher] : all)
        flusher();
}

namespace {

bool isBlank(const Variant &value)
{
    return value.isNull() || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
}

[[noreturn]] void raiseEmpty(const TField &field)
{
    throw EFieldRefused(field.DisplayLabel.isEmpty()
                            ? u"Neužpildytas privalomas laukas."_s
                            : u"Laukas \"%1\" negali būti tuščias!"_s.arg(field.DisplayLabel),
                        field.FieldName());
}

} // namespace

void TDataSet::Private::checkRequired() const
{
    for (const std::unique_ptr<TField> &field : fields) {
        if (field->Required && !field->isCalculated() && isBlank(edited.now[size_t(field->index())]))
            raiseEmpty(*field);
    }
}

void TDataSet::Post()
{
    if (!editing())
        return;
    d->flush();
    if (BeforePost)
        BeforePost(*this);
    d->checkRequired();
    d->writeEdited();
    if (d->state == dsInsert)
        d->keepInserted();
    else
        d->keepUpdated();
    d->edited.modified = false;
    d->state = dsBrowse;
    d->calculated.forget();
    d->changed(d->cursor.row);
    emit stateChanged();
    d->hideCurrentUnlessPassing();
    if (AfterPost)
        AfterPost(*this);
    emit scrolled();
}

// The model row of the new record is there already; it becomes a stored one.
void TDataSet::Private::keepInserted()
{
    const RowList::Address address = rows.store(edited.now);
    if (q->holdsChanges()) {
        held.start(rows.all());
        held.inserted(address);
    }
    cursor.put(std::exchange(edited.insertedAt, -1));
    rows.insert(cursor.row, address);
}

void TDataSet::Private::keepUpdated()
{
    if (!edited.modified)
        return;
    const int source = currentSource();
    const RowList::Address address = rows.store(edited.now);
    if (q->holdsChanges()) {
        held.start(rows.all());
        held.modified(rows.at(source), address);
    }
    rows.replace(source, address);
}

// --- taking back

void TDataSet::Cancel()
{
    if (!editing())
        return;
    const bool wasInserting = d->state == dsInsert;
    d->calculated.forget();
    d->edited.modified = false;
    if (wasInserting) {
        beginRemoveRows({}, d->edited.insertedAt, d->edited.insertedAt);
        d->state = dsBrowse;
        d->edited.insertedAt = -1;
        d->cursor.settle(d->rows.seenCount());
        endRemoveRows();
    } else {
        d->state = dsBrowse;
        d->changed(d->cursor.row);
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
    if (d->cursor.row < 0)
        throw EDatabaseError(u"Nėra įrašo, kurį būtų galima ištrinti."_s);
    if (BeforeDelete)
        BeforeDelete(*this);
    d->writeDeletion();
    d->edited.modified = false;
    if (d->state == dsEdit)
        d->setState(dsBrowse);
    beginRemoveRows({}, d->cursor.row, d->cursor.row);
    d->rows.erase(d->cursor.row);
    d->calculated.forget();
    d->cursor.settle(d->rows.seenCount());
    endRemoveRows();
    d->fetchUntilSeen(1);
    if (AfterDelete)
        AfterDelete(*this);
    d->scrolled();
}
