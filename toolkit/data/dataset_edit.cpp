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
        if (field->Required && !field->isCalculated() && isBlank(buffer[size_t(field->index())]))
            raiseEmpty(*field);
    }
}

// What the database tells by the names of its columns, told by the labels of the fields.
void TDataSet::Private::raiseInCaptions(const EConstraintError &error, const Record &record)
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

void TDataSet::Private::writeChange(TRecordChange &change)
{
    try {
        q->write(change);
    } catch (const EUniqueViolation &error) {
        raiseInCaptions(error, change.now);
    }
}

void TDataSet::Private::write()
{
    if (q->holdsChanges() || (state == dsEdit && !modified))
        return;
    TRecordChange change{state == dsInsert ? TChangeKind::Inserted : TChangeKind::Modified, before, buffer};
    writeChange(change);
    buffer = change.now;
}

void TDataSet::Post()
{
    if (!editing())
        return;
    d->flush();
    if (BeforePost)
        BeforePost(*this);
    d->checkRequired();
    d->write();
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
        const Record before = d->arena.values(address, d->storedFields());
        TRecordChange change{TChangeKind::Deleted, before, before};
        d->writeChange(change);
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

// --- another station's changes

// Theirs becomes the value as it was read; taken over, it is the record's own value, too.
void TDataSet::Private::takeTheirs(const QList<TChangedColumn> &columns, bool asOwn)
{
    Q_ASSERT(state == dsEdit);
    for (const TChangedColumn &column : columns) {
        const size_t at = size_t(q->FieldByName(column.field)->index());
        before[at] = column.theirs;
        if (asOwn)
            buffer[at] = column.theirs;
    }
    rereadHeldRow(columns);
    forgetCalculated();
    changed(current);
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
    d->forgetCalculated();
    const auto done = qScopeGuard([this] {
        d->lookInto = nullptr;
        d->forgetCalculated();
    });
    d->lookInto = &record;
    return Field(field)->DisplayText();
}
