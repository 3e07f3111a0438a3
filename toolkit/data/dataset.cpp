#include "toolkit/data/connection.h"
#include "toolkit/data/dataset_private.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int sliceMs = 8;
constexpr int rowsPerLook = 64; // rows between two looks at the clock

} // namespace

TDataSet::Private::Private(TDataSet *set) : q(set)
{
    idle.setInterval(0);
    QObject::connect(&idle, &QTimer::timeout, set, [this] { idleFetch(); });
}

TDataSet::TDataSet(QObject *parent) : QAbstractTableModel(parent), d(std::make_unique<Private>(this)) {}

TDataSet::~TDataSet() = default;

bool TDataSet::Active() const
{
    return d->state != dsInactive;
}

TDataSetState TDataSet::State() const
{
    return d->state;
}

// --- fields

TField *TDataSet::Private::fieldOf(const TResultColumn &column, int index, bool isCalculated)
{
    for (std::unique_ptr<TField> &old : retired) {
        if (!old || old->calculated != isCalculated ||
            old->column.name.compare(column.name, Qt::CaseInsensitive) != 0)
            continue;
        old->column = column;
        old->position = index;
        fields.push_back(std::move(old));
        return fields.back().get();
    }
    fields.push_back(std::make_unique<TField>(q, index, column, isCalculated));
    return fields.back().get();
}

void TDataSet::Private::makeFields(const QList<TResultColumn> &columns)
{
    for (std::unique_ptr<TField> &field : fields)
        retired.push_back(std::move(field));
    fields.clear();
    fieldIndex.clear();
    const qsizetype stored = columns.size();
    for (const TResultColumn &column : columns + calculatedColumns) {
        const int index = int(fields.size());
        fieldOf(column, index, index >= stored);
        if (!fieldIndex.contains(column.name.toLower()))
            fieldIndex.insert(column.name.toLower(), index);
    }
    std::erase(retired, nullptr);
    for (const auto &[name, apply] : settings) {
        TField *field = q->FindField(name);
        Q_ASSERT_X(field, "TDataSet::describe", qPrintable(name));
        if (field)
            apply(*field);
    }
}

TField *TDataSet::FindField(const QString &name) const
{
    const int index = d->fieldIndex.value(name.toLower(), -1);
    return index < 0 ? nullptr : d->fields[size_t(index)].get();
}

TField *TDataSet::FieldByName(const QString &name) const
{
    if (TField *field = FindField(name))
        return field;
    throw EDatabaseError(u"Laukas „%1“ nerastas."_s.arg(name));
}

int TDataSet::FieldCount() const
{
    return int(d->fields.size());
}

TField *TDataSet::Field(int index) const
{
    return index >= 0 && index < FieldCount() ? d->fields[size_t(index)].get() : nullptr;
}

TField *TDataSet::addCalculated(const QString &name, TFieldType type, int size)
{
    Q_ASSERT(!Active());
    TResultColumn column;
    column.name = name;
    column.type = type;
    column.size = size;
    d->calculatedColumns.append(column);
    const int index = FieldCount();
    d->fieldIndex.insert(name.toLower(), index);
    return d->fieldOf(column, index, true);
}

void TDataSet::describe(const QString &name, std::function<void(TField &)> settings)
{
    TField *field = FindField(name);
    Q_ASSERT_X(field || !Active(), "TDataSet::describe", qPrintable(name));
    if (field)
        settings(*field);
    d->settings.emplace_back(name, std::move(settings));
}

// --- opening

void TDataSet::Open()
{
    if (Active())
        return;
    if (BeforeOpen)
        BeforeOpen(*this);
    std::unique_ptr<TStatement> statement = openStatement();
    statement->exec();
    try {
        d->reset([&] {
            d->clearRows();
            d->makeFields(statement->columns());
            d->statement = std::move(statement);
            d->state = dsBrowse;
            d->fetchRows(readsAtOnce() ? std::numeric_limits<int>::max() : firstRows, -1);
            d->fetchUntilSeen(1);
        });
    } catch (const Exception &) {
        Close();
        throw;
    }
    d->current = d->seenCount() > 0 ? 0 : -1;
    d->bof = true;
    d->eof = d->current < 0;
    if (d->statement)
        d->idle.start();
    emit stateChanged();
    if (AfterOpen)
        AfterOpen(*this);
    d->scrolled();
}

void TDataSet::Close()
{
    if (!Active())
        return;
    if (editing())
        Cancel();
    d->stopFetching();
    d->reset([this] {
        d->state = dsInactive;
        d->clearRows();
    });
    emit stateChanged();
}

void TDataSet::Private::reset(const std::function<void()> &change)
{
    resetting = true;
    q->beginResetModel();
    const auto done = qScopeGuard([this] {
        q->endResetModel();
        resetting = false;
    });
    change();
}

void TDataSet::Private::clearRows()
{
    stopFetching();
    failure.clear();
    stop = false;
    arena.clear();
    rows = {};
    visible = {};
    published = 0;
    current = -1;
    bof = eof = true;
    forgetHeld();
    forgetCalculated();
}

// --- fetching

void TDataSet::Private::stopFetching()
{
    idle.stop();
    statement.reset();
}

bool TDataSet::Private::fetchRows(int limit, qint64 milliseconds)
{
    if (!statement)
        return false;
    const int firstNew = int(rows.size());
    const int columns = storedFields();
    QElapsedTimer clock;
    clock.start();
    bool more = true;
    try {
        for (int count = 0; count < limit; ++count) {
            more = !stop && statement->next();
            if (!more)
                break;
            rows.push_back(arena.append(*statement, columns));
            if (holding)
                rowsBefore.push_back(rows.back());
            if (milliseconds >= 0 && count % rowsPerLook == 0 && clock.elapsed() >= milliseconds)
                break;
        }
    } catch (const Exception &error) {
        publish(firstNew);
        fetchFails(error);
        throw;
    }
    if (!more)
        stopFetching();
    publish(firstNew);
    return more;
}

// Tells the model of the rows that came; the first one seen becomes the current record.
void TDataSet::Private::publish(int firstNew)
{
    const int last = int(rows.size());
    if (last == firstNew)
        return;
    std::vector<int> passing;
    if (filter) {
        for (int source = firstNew; source < last; ++source) {
            if (passes(source))
                passing.push_back(source);
        }
    }
    const int added = filter ? int(passing.size()) : last - firstNew;
    const bool wasEmpty = current < 0 && state == dsBrowse;
    const bool tells = added > 0 && !resetting;
    if (tells)
        q->beginInsertRows({}, modelRows(), modelRows() + added - 1);
    visible.insert(visible.end(), passing.begin(), passing.end());
    published = last;
    if (wasEmpty && added > 0)
        current = 0;
    if (tells)
        q->endInsertRows();
}

void TDataSet::Private::fetchFails(const Exception &error)
{
    stopFetching();
    failure = error.message();
}

void TDataSet::Private::fetchAll()
{
    while (statement)
        fetchRows(std::numeric_limits<int>::max(), -1);
    if (!failure.isEmpty())
        throw EDatabaseError(failure);
}

void TDataSet::Private::fetchUntilSeen(int seen)
{
    while (seenCount() < seen && fetchRows(firstRows, -1)) {
    }
}

// Runs inside the event loop, so nothing may be raised out of it. The busy hook may let the loop run while a
// statement is under way: nothing is read then.
void TDataSet::Private::idleFetch()
{
    if (BusyBeat::isBeating())
        return;
    const bool wasEmpty = current < 0;
    try {
        fetchRows(std::numeric_limits<int>::max(), sliceMs);
    } catch (const Exception &error) {
        emit q->fetchFailed(error.message());
        return;
    }
    if (wasEmpty && current >= 0) {
        eof = false;
        emit q->scrolled();
    }
    emit q->fetched();
}

bool TDataSet::fetchedAll() const
{
    return Active() && !d->statement && d->failure.isEmpty();
}

int TDataSet::fetchedCount() const
{
    return d->seenCount();
}

int TDataSet::RecordCount()
{
    d->fetchAll();
    return d->seenCount();
}

void TDataSet::stopReading()
{
    d->stop = d->statement != nullptr;
}

bool TDataSet::stopped() const
{
    return d->stop;
}

bool TDataSet::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && d->statement && !d->resetting;
}

void TDataSet::fetchMore(const QModelIndex &parent)
{
    if (canFetchMore(parent))
        d->idleFetch();
}
