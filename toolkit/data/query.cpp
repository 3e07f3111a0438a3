#include "toolkit/data/query.h"

#include "toolkit/data/record_writer.h"

using namespace Qt::StringLiterals;

struct TQuery::Private {
    explicit Private(TQuery *set) : query(set) {}

    void checkDatabase() const;
    void bindAll(TStatement &prepared) const;

    // --- live writing
    void findTable();
    RecordWriter &recordWriter();
    RecordWriter::Cells keyValues();
    void readBack(const RecordWriter::Cells &key);
    void insertRecord();
    void updateRecord();
    void deleteRecord();

    // --- changes held back
    bool hasUpdateStatements() const;
    void writeHeld(RowState state);
    void runUpdate(const QString &wording);
    Variant updateParameter(const QString &name) const;

    TQuery *query;
    TDatabase *database = nullptr;
    QString sql;
    QVariantMap parameters; // by lower-case name
    QString table;          // of a live query
    std::unique_ptr<RecordWriter> writer;
};

TQuery::TQuery(TDatabase *database, QObject *parent) : TDataSet(parent), q(std::make_unique<Private>(this))
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
    q->writer.reset();
    q->table.clear();
    if (RequestLive)
        q->findTable();
    std::unique_ptr<TStatement> prepared = q->database->prepare(
        q->sql, readsAside ? TDatabase::Connection::Reading : TDatabase::Connection::Editing);
    q->bindAll(*prepared);
    return prepared;
}

// --- live writing

void TQuery::Private::findTable()
{
    const QStringList tables = database->translator().translate(sql).tables;
    if (tables.size() != 1)
        throw EDatabaseError(u"Keisti galima tik vienos lentelės užklausos įrašus."_s, {}, sql);
    table = tables.first();
}

RecordWriter &TQuery::Private::recordWriter()
{
    if (!writer)
        writer = std::make_unique<RecordWriter>(database, table);
    return *writer;
}

RecordWriter::Cells TQuery::Private::keyValues()
{
    RecordWriter::Cells cells;
    for (const QString &column : recordWriter().key())
        cells.append({column, query->unchangedValue(query->FieldByName(column)->index())});
    return cells;
}

void TQuery::Private::readBack(const RecordWriter::Cells &key)
{
    QStringList wanted;
    QList<int> places;
    for (int i = 0; i < query->FieldCount(); ++i) {
        const TField *field = query->Field(i);
        if (field->isCalculated() || !recordWriter().has(field->FieldName().toLower()))
            continue;
        wanted.append(field->FieldName().toLower());
        places.append(i);
    }
    const QList<Variant> values = recordWriter().read(wanted, key);
    for (qsizetype i = 0; i < values.size(); ++i)
        query->setReread(places.at(i), values.at(i));
}

void TQuery::Private::insertRecord()
{
    RecordWriter::Cells cells;
    for (int i = 0; i < query->FieldCount(); ++i) {
        const TField *field = query->Field(i);
        const QString column = field->FieldName().toLower();
        // What stays null is left to the database: its keys and its defaults.
        if (!field->isCalculated() && recordWriter().has(column) && !query->writtenValue(i).isNull())
            cells.append({column, query->writtenValue(i)});
    }
    TTransaction tran(database);
    readBack(recordWriter().insert(cells));
    tran.commit();
}

void TQuery::Private::updateRecord()
{
    RecordWriter::Cells changed;
    for (int i = 0; i < query->FieldCount(); ++i) {
        const TField *field = query->Field(i);
        const QString column = field->FieldName().toLower();
        if (field->isCalculated() || !recordWriter().has(column))
            continue;
        const Variant &now = query->writtenValue(i);
        const Variant &before = query->unchangedValue(i);
        if (now != before || now.isNull() != before.isNull())
            changed.append({column, now});
    }
    if (changed.isEmpty())
        return;
    RecordWriter::Cells key = keyValues();
    TTransaction tran(database);
    recordWriter().update(changed, key);
    for (RecordWriter::Cell &cell : key)
        cell.value = query->writtenValue(query->FieldByName(cell.column)->index());
    readBack(key);
    tran.commit();
}

void TQuery::Private::deleteRecord()
{
    TTransaction tran(database);
    recordWriter().remove(keyValues());
    tran.commit();
}

void TQuery::writeInsert()
{
    q->insertRecord();
}

void TQuery::writeUpdate()
{
    q->updateRecord();
}

void TQuery::writeDelete()
{
    q->deleteRecord();
}

// --- changes held back

bool TQuery::Private::hasUpdateStatements() const
{
    return !query->InsertSQL.isEmpty() || !query->ModifySQL.isEmpty() || !query->DeleteSQL.isEmpty();
}

bool TQuery::canWrite() const
{
    return RequestLive || (CachedUpdates && q->hasUpdateStatements());
}

bool TQuery::holdsChanges() const
{
    return CachedUpdates;
}

bool TQuery::UpdatesPending() const
{
    return hasHeldChanges();
}

Variant TQuery::Private::updateParameter(const QString &name) const
{
    const bool isOld = name.startsWith(u"OLD_"_s, Qt::CaseInsensitive);
    const int field = query->FieldByName(isOld ? name.mid(4) : name)->index();
    return isOld ? query->unchangedValue(field) : query->writtenValue(field);
}

void TQuery::Private::runUpdate(const QString &wording)
{
    const std::unique_ptr<TStatement> prepared = database->prepare(wording);
    for (const QString &name : prepared->parameters())
        prepared->bind(name, updateParameter(name));
    prepared->exec();
    if (prepared->affected() == 0)
        throw EDatabaseError(u"Įrašo jau nėra: jį ištrynė arba pakeitė kita darbo vieta."_s, {}, wording);
}

void TQuery::Private::writeHeld(RowState state)
{
    const QString &wording = state == RowState::Inserted   ? query->InsertSQL
                             : state == RowState::Modified ? query->ModifySQL
                                                           : query->DeleteSQL;
    if (!wording.isEmpty())
        runUpdate(wording);
    else if (!query->RequestLive)
        throw EDatabaseError(u"Užklausai nenurodyta, kaip įrašyti pakeitimus."_s, {}, sql);
    else if (state == RowState::Inserted)
        insertRecord();
    else if (state == RowState::Modified)
        updateRecord();
    else
        deleteRecord();
}

void TQuery::ApplyUpdates()
{
    if (editing())
        Post();
    q->checkDatabase();
    TTransaction tran(q->database);
    forEachHeldChange([this](RowState state) { q->writeHeld(state); });
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
    QStringList by{order};
    if (order.isEmpty()) {
        by.clear();
        for (const TColumnInfo &column : database->columnsOf(table)) {
            if (column.key)
                by.append(column.name);
        }
    }
    const QString all = u"select * from "_s + table;
    return by.isEmpty() ? all : all + u" order by "_s + by.join(u", "_s);
}

} // namespace

TTable::TTable(TDatabase *database, const QString &table, const QString &order, QObject *parent)
    : TQuery(database, wholeTable(database, table, order), parent)
{
    RequestLive = true;
}
