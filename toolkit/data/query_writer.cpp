#include "toolkit/data/query_writer.h"

#include "toolkit/data/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList namesOf(const RecordWriter::Cells &cells)
{
    QStringList names;
    for (const RecordWriter::Cell &cell : cells)
        names.append(cell.column);
    return names;
}

} // namespace

QueryWriter::QueryWriter(TQuery *theQuery, const QVariantMap &theParameters)
    : query(theQuery),
      database(theQuery->Database()),
      parameters(theParameters)
{
    if (!query->RequestLive)
        return;
    const QStringList tables = database->translator().translate(query->SQL()).tables;
    if (tables.size() != 1)
        throw EDatabaseError(u"Keisti galima tik vienos lentelės užklausos įrašus."_s, {}, query->SQL());
    liveTable = tables.first();
}

const QString &QueryWriter::wordingFor(TChangeKind kind) const
{
    switch (kind) {
    case TChangeKind::Inserted:
        return query->InsertSQL;
    case TChangeKind::Modified:
        return query->ModifySQL;
    case TChangeKind::Deleted:
        break;
    }
    return query->DeleteSQL;
}

void QueryWriter::write(TRecordChange &change)
{
    const QString &wording = wordingFor(change.kind);
    TTransaction tran(database);
    if (!wording.isEmpty())
        writeAsWorded(wording, change);
    else if (!query->RequestLive)
        throw EDatabaseError(u"Užklausai nenurodyta, kaip įrašyti pakeitimus."_s, {}, query->SQL());
    else if (change.kind == TChangeKind::Inserted)
        insert(change);
    else if (change.kind == TChangeKind::Modified)
        update(change);
    else
        remove(change);
    tran.commit();
}

// --- by the query's own statements

// The first table that a writing statement names is the one it writes to. It tells the key that the row has
// then, whatever the statement made of it.
void QueryWriter::writeAsWorded(const QString &wording, TRecordChange &change)
{
    TranslatedSql sql = database->translator().translate(wording);
    const QStringList key = sql.tables.isEmpty() ? QStringList() : database->keyOf(sql.tables.first());
    const bool tellsKey = (sql.kind == SqlKind::Insert || sql.kind == SqlKind::Update) && !key.isEmpty();
    if (tellsKey)
        sql.text += u" returning "_s + RecordWriter::nameList(key);
    if (sql.kind == SqlKind::Update && query->UpdateMode == upWhereChanged)
        mergeElsewhere(sql.tables.value(0), change);
    const std::unique_ptr<TStatement> statement = database->prepareNative(sql);
    bindChange(*statement, change);
    statement->exec();
    const bool wasWritten = tellsKey ? takeKey(*statement, key, change.now) : statement->affected() > 0;
    if (!wasWritten && sql.kind == SqlKind::Insert)
        throw EDatabaseError(u"Duomenų bazė įrašo nepriėmė."_s);
    if (!wasWritten && sql.kind != SqlKind::Call)
        throw ERowGone(wording);
    if (change.kind != TChangeKind::Deleted)
        readAsShown(keyIn(change.now, key), change.now);
}

// Parameters are named after the columns; OLD_name is the value before the change.
void QueryWriter::bindChange(TStatement &statement, const TRecordChange &change) const
{
    for (const QString &name : statement.parameters()) {
        const bool isOld = name.startsWith(u"OLD_"_s, Qt::CaseInsensitive);
        const int field = query->FieldByName(isOld ? name.mid(4) : name)->index();
        statement.bind(name, isOld ? change.before[size_t(field)] : change.now[size_t(field)]);
    }
}

// False when the statement wrote no row.
bool QueryWriter::takeKey(TStatement &statement, const QStringList &key, Record &record) const
{
    if (!statement.next())
        return false;
    for (int i = 0; i < key.size(); ++i) {
        if (const TField *field = query->FindField(key.at(i)))
            record[size_t(field->index())] = statement.value(i);
    }
    while (statement.next()) { // the statement ends with its last row
    }
    return true;
}

// A worded statement writes every column that it names: those that were not changed here get what another
// station made of them.
void QueryWriter::mergeElsewhere(const QString &tableName, TRecordChange &change)
{
    RecordWriter written(database, tableName);
    const Cells key = keyIn(change.before, written.key());
    if (key.isEmpty())
        return;
    const Cells asRead = columnsIn(change.before, written);
    const QList<Variant> stored = written.lock(namesOf(asRead), key);
    checkUnchangedElsewhere(asRead, stored, change);
    for (qsizetype i = 0; i < asRead.size(); ++i) {
        const QString &column = asRead.at(i).column;
        if (!isChanged(change, column))
            change.now[size_t(query->FieldByName(column)->index())] = stored.at(i);
    }
}

// The row as the query's own statement shows it, computed columns included. A row that it does not show, and
// one whose key is not among its columns, stays as it is.
bool QueryWriter::readAsShown(const Cells &key, Record &record) const
{
    if (key.isEmpty())
        return false;
    QStringList names;
    for (size_t i = 0; i < record.size(); ++i)
        names.append(u'c' + QString::number(i));
    TranslatedSql sql = database->translator().translate(query->SQL());
    const qsizetype own = sql.parameters.size();
    QStringList equal;
    for (const RecordWriter::Cell &cell : key) {
        sql.parameters.append(u"key "_s + cell.column);
        equal.append(names.at(query->FieldByName(cell.column)->index()) + u" = "_s +
                     RecordWriter::placeOf(sql.parameters.size(), database->engine()));
    }
    sql.text = u"with q (%1) as (%2) select * from q where %3"_s.arg(names.join(u", "_s), sql.text,
                                                                     equal.join(u" and "_s));
    const std::unique_ptr<TStatement> statement = database->prepareNative(sql);
    for (auto each = parameters.cbegin(); each != parameters.cend(); ++each)
        statement->bind(each.key(), each.value());
    for (qsizetype i = 0; i < key.size(); ++i)
        statement->bind(sql.parameters.at(own + i), key.at(i).value);
    statement->exec();
    if (!statement->next())
        return false;
    for (size_t i = 0; i < record.size(); ++i)
        record[i] = statement->value(int(i));
    return true;
}

bool QueryWriter::reread(Record &record) const
{
    const QString table = query->ModifySQL.isEmpty()
                              ? liveTable
                              : database->translator().translate(query->ModifySQL).tables.value(0);
    return !table.isEmpty() && readAsShown(keyIn(record, database->keyOf(table)), record);
}

// --- into the table of a live query

RecordWriter &QueryWriter::table()
{
    if (!writer)
        writer = std::make_unique<RecordWriter>(database, liveTable);
    return *writer;
}

// The key's values in a record; empty when not all of it is among the fields.
QueryWriter::Cells QueryWriter::keyIn(const Record &record, const QStringList &columns) const
{
    Cells cells;
    for (const QString &column : columns) {
        const TField *field = query->FindField(column);
        if (!field || field->isCalculated())
            return {};
        cells.append({column, record[size_t(field->index())]});
    }
    return cells;
}

QueryWriter::Cells QueryWriter::liveKey(const Record &record)
{
    Cells key = keyIn(record, table().key());
    if (key.isEmpty())
        throw EDatabaseError(
            u"Lentelės „%1“ rakto užklausoje nėra, jos įrašų keisti negalima."_s.arg(liveTable), {},
            query->SQL());
    return key;
}

// The fields that are columns of the table, with their values.
QueryWriter::Cells QueryWriter::columnsIn(const Record &record, const RecordWriter &written) const
{
    Cells cells;
    for (size_t i = 0; i < record.size(); ++i) {
        const QString column = query->Field(int(i))->FieldName().toLower();
        const bool first = query->FindField(column)->index() == int(i);
        if (first && written.has(column))
            cells.append({column, record[i]});
    }
    return cells;
}

// A column and all that are written together with it.
QStringList QueryWriter::withCompanions(const QString &column) const
{
    for (const QStringList &group : query->WrittenTogether)
        if (group.contains(column, Qt::CaseInsensitive))
            return group;
    return {column};
}

bool QueryWriter::isChanged(const TRecordChange &change, const QString &column) const
{
    return std::ranges::any_of(withCompanions(column), [&](const QString &name) {
        const auto at = size_t(query->FieldByName(name)->index());
        return !sameKey(change.now[at], change.before[at]);
    });
}

void QueryWriter::insert(TRecordChange &change)
{
    Cells cells = columnsIn(change.now, table());
    // What stays null is left to the database: its keys and its defaults.
    cells.removeIf([](const RecordWriter::Cell &cell) { return cell.value.isNull(); });
    readBack(table().insert(cells), change.now);
}

void QueryWriter::update(TRecordChange &change)
{
    const Cells before = columnsIn(change.before, table());
    Cells changed;
    Cells unchanged;
    const Cells now = columnsIn(change.now, table());
    for (qsizetype i = 0; i < now.size(); ++i) {
        if (!isChanged(change, now.at(i).column))
            continue;
        changed.append(now.at(i));
        unchanged.append(before.at(i));
    }
    if (changed.isEmpty())
        return;
    const Cells key = liveKey(change.before);
    if (query->UpdateMode == upWhereChanged)
        checkUnchangedElsewhere(unchanged, table().lock(namesOf(unchanged), key), change);
    table().update(changed, key);
    readBack(liveKey(change.now), change.now);
}

// What is stored was read with a lock, so that nobody changes it between the look and the writing. Columns
// that are written together are told together, so that the user takes or keeps all of them.
void QueryWriter::checkUnchangedElsewhere(const Cells &asRead, const QList<Variant> &stored,
                                          const TRecordChange &change) const
{
    Record theirs = change.before;
    QStringList differing;
    for (qsizetype i = 0; i < asRead.size(); ++i) {
        const QString &column = asRead.at(i).column;
        const auto at = size_t(query->FieldByName(column)->index());
        theirs[at] = stored.at(i);
        if (isChanged(change, column) && !sameKey(stored.at(i), asRead.at(i).value) &&
            !sameKey(stored.at(i), change.now[at]))
            differing += withCompanions(column);
    }
    QList<TChangedColumn> columns;
    for (const RecordWriter::Cell &cell : asRead) {
        const TField *field = query->FieldByName(cell.column);
        const int at = field->index();
        if (differing.contains(cell.column, Qt::CaseInsensitive))
            columns.append({field->FieldName(), field->DisplayLabel, change.before[size_t(at)],
                            theirs[size_t(at)], change.now[size_t(at)], query->textIn(change.before, at),
                            query->textIn(theirs, at), query->textIn(change.now, at)});
    }
    if (!columns.isEmpty())
        throw EChangedElsewhere(columns);
}

void QueryWriter::remove(const TRecordChange &change)
{
    table().remove(liveKey(change.before));
}

// Columns that the table does not have are computed by the query's statement.
void QueryWriter::readBack(const Cells &key, Record &record)
{
    const Cells columns = columnsIn(record, table());
    const QStringList wanted = namesOf(columns);
    const QList<Variant> values = table().read(wanted, key);
    for (qsizetype i = 0; i < values.size(); ++i)
        record[size_t(query->FieldByName(wanted.at(i))->index())] = values.at(i);
    if (columns.size() < qsizetype(record.size()))
        readAsShown(liveKey(record), record);
}
