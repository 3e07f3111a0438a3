#include "toolkit/data/query.h"

#include "toolkit/data/query_writer.h"

using namespace Qt::StringLiterals;

struct TQuery::Private {
    void checkDatabase() const;
    void bindAll(TStatement &prepared) const;

    TDatabase *database = nullptr;
    QString sql;
    QVariantMap parameters; // by lower-case name
    std::unique_ptr<QueryWriter> writer;
};

TQuery::TQuery(TDatabase *database, QObject *parent) : TDataSet(parent), q(std::make_unique<Private>())
{
    q->database = database;
}

TQuery::TQuery(TDatabase *database, const QString &sql, QObject *parent) : TQuery(database, parent)
{
    q->sql = sql;
}

TQuery::~TQuery() = default;

TDatabase *TQuery::Database() const
{
    return q->database;
}

void TQuery::setDatabase(TDatabase *database)
{
    Close();
    q->database = database;
}

QString TQuery::SQL() const
{
    return q->sql;
}

void TQuery::setSQL(const QString &statement)
{
    Close();
    q->sql = statement;
}

void TQuery::setParam(const QString &name, const Variant &value)
{
    q->parameters.insert(name.toLower(), value);
}

Variant TQuery::param(const QString &name) const
{
    return q->parameters.value(name.toLower());
}

void TQuery::Private::checkDatabase() const
{
    if (!database)
        throw EDatabaseError(u"Užklausai nenurodyta duomenų bazės sesija."_s, {}, sql);
}

void TQuery::Private::bindAll(TStatement &prepared) const
{
    for (auto each = parameters.cbegin(); each != parameters.cend(); ++each)
        prepared.bind(each.key(), each.value());
}

void TQuery::ExecSQL()
{
    q->checkDatabase();
    q->database->ExecSQL(q->sql, q->parameters);
}

std::unique_ptr<TStatement> TQuery::openStatement()
{
    q->checkDatabase();
    q->writer = std::make_unique<QueryWriter>(this, q->parameters);
    std::unique_ptr<TStatement> prepared = q->database->prepare(
        q->sql, readsAside ? TDatabase::Connection::Reading : TDatabase::Connection::Editing);
    q->bindAll(*prepared);
    return prepared;
}

// --- writing

bool TQuery::canWrite() const
{
    return RequestLive ||
           (CachedUpdates && !(InsertSQL.isEmpty() && ModifySQL.isEmpty() && DeleteSQL.isEmpty()));
}

bool TQuery::holdsChanges() const
{
    return CachedUpdates;
}

bool TQuery::UpdatesPending() const
{
    return hasHeldChanges();
}

void TQuery::write(TRecordChange &change)
{
    q->writer->write(change);
}

void TQuery::RefreshRecord()
{
    replaceRecord([this](Record &record) { return q->writer->reread(record); });
}

void TQuery::ApplyUpdates()
{
    if (editing())
        Post();
    q->checkDatabase();
    TTransaction tran(q->database);
    writeHeldChanges();
    tran.commit();
}

void TQuery::CommitUpdates()
{
    heldChangesAreWritten();
}

void TQuery::CancelUpdates()
{
    dropHeldChanges();
}

// --- a whole table

namespace {

QString wholeTable(TDatabase *database, const QString &table, const QString &order)
{
    const QString by = order.isEmpty() ? database->keyOf(table).join(u", "_s) : order;
    const QString all = u"select * from "_s + table;
    return by.isEmpty() ? all : all + u" order by "_s + by;
}

} // namespace

TTable::TTable(TDatabase *database, const QString &table, const QString &order, QObject *parent)
    : TQuery(database, wholeTable(database, table, order), parent)
{
    RequestLive = true;
}
