#include "toolkit/data/connection.h"
#include "toolkit/data/dataset_private.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int sliceMs = 8; // of idle time

} // namespace

TDataSet::Private::Private(TDataSet *set) : q(set), fields(set), reader([this] { idleFetch(); }) {}

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

TField *TDataSet::FindField(const QString &name) const
{
    return d->fields.find(name);
}

TField *TDataSet::FieldByName(const QString &name) const
{
    if (TField *field = FindField(name))
        return field;
    throw EDatabaseError(u"Laukas „%1“ nerastas."_s.arg(name));
}

int TDataSet::FieldCount() const
{
    return d->fields.size();
}

TField *TDataSet::Field(int index) const
{
    return index >= 0 && index < FieldCount() ? &d->fields.at(index) : nullptr;
}

TField *TDataSet::addCalculated(const QString &name, TFieldType type, int size)
{
    Q_ASSERT(!Active());
    TResultColumn column;
    column.name = name;
    column.type = type;
    column.size = size;
    return d->fields.addCalculated(column);
}

void TDataSet::describe(const QString &name, std::function<void(TField &)> settings)
{
    Q_ASSERT_X(!Active() || FindField(name), "TDataSet::describe: no such column", qPrintable(name));
    d->fields.describe(name, std::move(settings));
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
    ++d->openings;
    try {
        d->reset([&] {
            d->clearRows();
            d->fields.make(statement->columns());
            d->reader.start(std::move(statement));
            d->state = dsBrowse;
            d->fetchRows(readsAtOnce() ? std::numeric_limits<int>::max() : firstRows, -1);
            d->fetchUntilSeen(1);
        });
    } catch (const Exception &) {
        Close();
        throw;
    }
    d->cursor.settle(d->rows.seenCount());
    d->reader.readInIdleTime();
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
    d->reader.end();
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
    reader.end();
    rows.clear();
    held.clear();
    cursor = {};
    calculated.forget();
}

// --- fetching

bool TDataSet::Private::fetchRows(int limit, qint64 milliseconds)
{
    bool more = false;
    try {
        more = reader.read(limit, milliseconds, [this](const TStatement &row) {
            held.rowCame(rows.append(row, fields.stored()));
        });
    } catch (const Exception &) {
        publish();
        throw;
    }
    publish();
    return more;
}

// Tells the model of the rows that came; the first one seen becomes the current record.
void TDataSet::Private::publish()
{
    const int added = rows.countNew();
    const bool tells = added > 0 && !resetting;
    if (tells)
        q->beginInsertRows({}, modelRows(), modelRows() + added - 1);
    rows.show();
    if (added > 0 && cursor.row < 0 && state == dsBrowse)
        cursor.row = 0;
    if (tells)
        q->endInsertRows();
}

void TDataSet::Private::fetchAll()
{
    while (reader.reading())
        fetchRows(std::numeric_limits<int>::max(), -1);
    reader.checkWhole();
}

void TDataSet::Private::fetchUntilSeen(int seen)
{
    while (rows.seenCount() < seen && fetchRows(firstRows, -1)) {
    }
}

// Runs inside the event loop, so nothing may be raised out of it. The busy hook may let the loop run while a
// statement is under way: nothing is read then.
void TDataSet::Private::idleFetch()
{
    if (BusyBeat::isBeating())
        return;
    const bool wasEmpty = cursor.row < 0;
    try {
        fetchRows(std::numeric_limits<int>::max(), sliceMs);
    } catch (const Exception &error) {
        emit q->fetchFailed(error.message());
        return;
    }
    if (wasEmpty && cursor.row >= 0) {
        cursor.eof = false;
        emit q->scrolled();
    }
    emit q->fetched();
}

bool TDataSet::fetchedAll() const
{
    return Active() && !d->reader.reading() && !d->reader.failed();
}

int TDataSet::fetchedCount() const
{
    return d->rows.seenCount();
}

int TDataSet::RecordCount()
{
    d->fetchAll();
    return d->rows.seenCount();
}

void TDataSet::stopReading()
{
    d->reader.stop();
}

bool TDataSet::stopped() const
{
    return d->reader.stopped();
}

bool TDataSet::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && d->reader.reading() && !d->resetting;
}

void TDataSet::fetchMore(const QModelIndex &parent)
{
    if (canFetchMore(parent))
        d->idleFetch();
}
