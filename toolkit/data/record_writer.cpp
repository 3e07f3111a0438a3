#include "toolkit/data/record_writer.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

QString quotedName(const QString &name)
{
    return u'"' + name + u'"';
}

} // namespace

QString RecordWriter::nameList(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names)
        quoted.append(quotedName(name));
    return quoted.join(u", "_s);
}

QString RecordWriter::placeOf(qsizetype parameter, Engine engine)
{
    return (engine == Engine::Sqlite ? u'?' : u'$') + QString::number(parameter);
}

// A statement being worded for the engine, with the values of its parameters.
class RecordWriter::Wording {
public:
    Wording(Engine theEngine, SqlKind kind) : engine(theEngine) { sql.kind = kind; }

    QString place(const Variant &value)
    {
        values.append(value);
        sql.parameters.append(QString::number(values.size()));
        return placeOf(values.size(), engine);
    }

    QString equal(const Cells &cells, const QString &between)
    {
        QStringList parts;
        for (const Cell &cell : cells)
            parts.append(quotedName(cell.column) + u" = "_s + place(cell.value));
        return parts.join(between);
    }

    QString where(const Cells &keyValues) { return u" where "_s + equal(keyValues, u" and "_s); }

    TranslatedSql sql;
    QList<Variant> values;

private:
    Engine engine;
};

RecordWriter::RecordWriter(TDatabase *theDatabase, const QString &table)
    : database(theDatabase),
      name(table.toLower()),
      columns(database->columnNames(name)),
      keyColumns(database->keyOf(name))
{
    if (columns.isEmpty())
        throw EDatabaseError(u"Duomenų bazėje nėra lentelės „%1“."_s.arg(name));
    if (keyColumns.isEmpty())
        throw EDatabaseError(u"Lentelė „%1“ neturi rakto, jos įrašų keisti negalima."_s.arg(name));
}

std::unique_ptr<TStatement> RecordWriter::run(const Wording &wording)
{
    std::unique_ptr<TStatement> statement = database->prepareNative(wording.sql);
    for (qsizetype i = 0; i < wording.values.size(); ++i)
        statement->bind(QString::number(i + 1), wording.values.at(i));
    statement->exec();
    return statement;
}

RecordWriter::Cells RecordWriter::insert(const Cells &cells)
{
    Wording wording(database->engine(), SqlKind::Insert);
    QStringList names;
    QStringList places;
    for (const Cell &cell : cells) {
        names.append(cell.column);
        places.append(wording.place(cell.value));
    }
    wording.sql.text = u"insert into "_s + quotedName(name);
    wording.sql.text += cells.isEmpty()
                            ? u" default values"_s
                            : u" ("_s + nameList(names) + u") values ("_s + places.join(u", "_s) + u')';
    wording.sql.text += u" returning "_s + nameList(keyColumns);
    const std::unique_ptr<TStatement> statement = run(wording);
    if (!statement->next())
        throw ERowGone(wording.sql.text);
    Cells keyValues;
    for (int i = 0; i < keyColumns.size(); ++i)
        keyValues.append({keyColumns.at(i), statement->value(i)});
    while (statement->next()) { // the statement ends with its last row
    }
    return keyValues;
}

void RecordWriter::update(const Cells &changed, const Cells &keyValues)
{
    Wording wording(database->engine(), SqlKind::Update);
    wording.sql.text = u"update "_s + quotedName(name) + u" set "_s + wording.equal(changed, u", "_s);
    wording.sql.text += wording.where(keyValues);
    if (run(wording)->affected() != 1)
        throw ERowGone(wording.sql.text);
}

void RecordWriter::remove(const Cells &keyValues)
{
    Wording wording(database->engine(), SqlKind::Delete);
    wording.sql.text = u"delete from "_s + quotedName(name);
    wording.sql.text += wording.where(keyValues);
    if (run(wording)->affected() != 1)
        throw ERowGone(wording.sql.text);
}

QList<Variant> RecordWriter::read(const QStringList &wanted, const Cells &keyValues)
{
    return select(wanted, keyValues, {});
}

// The file of an embedded database has one writer at a time: the open transaction is the lock.
QList<Variant> RecordWriter::lock(const QStringList &wanted, const Cells &keyValues)
{
    Q_ASSERT(database->InTransaction());
    return select(wanted, keyValues, database->engine() == Engine::PostgreSql ? u" for update"_s : QString());
}

QList<Variant> RecordWriter::select(const QStringList &wanted, const Cells &keyValues, const QString &ending)
{
    Wording wording(database->engine(), SqlKind::Select);
    wording.sql.text = u"select "_s + nameList(wanted) + u" from "_s + quotedName(name);
    wording.sql.text += wording.where(keyValues) + ending;
    const std::unique_ptr<TStatement> statement = run(wording);
    if (!statement->next())
        throw ERowGone(wording.sql.text);
    QList<Variant> values;
    for (int i = 0; i < wanted.size(); ++i)
        values.append(statement->value(i));
    return values;
}
