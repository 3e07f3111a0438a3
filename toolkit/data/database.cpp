#include "toolkit/data/database.h"

#include "toolkit/data/catalogue.h"
#include "toolkit/data/commit_fates.h"
#include "toolkit/data/sqlite_connection.h"

using namespace Qt::StringLiterals;

struct TDatabase::Private : ServerSession {
    Private(TSessionSettings theSettings, const TDatabase &session)
        : ServerSession(session),
          settings(std::move(theSettings)),
          translator(settings.engine == Engine::Sqlite ? SqlDialect::Sqlite : SqlDialect::PostgreSql,
                     session),
          catalogue(editing = EngineConnection::create(settings, Connection::Editing), settings.engine)
    {
        watch(editing);
    }

    std::shared_ptr<EngineConnection> freeReading();
    std::shared_ptr<EngineConnection> anotherReading();
    void watch(const std::shared_ptr<EngineConnection> &connection);
    void checkOpened() const;
    void forgetCatalogue();

    const TSessionSettings settings;
    bool opened = false;
    SqlTranslator translator;
    Catalogue catalogue;
    qlonglong transaction = 0; // the number of the last one begun
};

// One loss is reported once: the other connections of the session connect anew before their next use.
void TDatabase::Private::watch(const std::shared_ptr<EngineConnection> &connection)
{
    connection->onLost = [this] {
        editing->mistrust();
        for (const std::shared_ptr<EngineConnection> &each : reading)
            each->mistrust();
        tellLinkEvent(TLinkEvent::Lost);
    };
    connection->onFound = [] { tellLinkEvent(TLinkEvent::Found); };
}

std::shared_ptr<EngineConnection> TDatabase::Private::anotherReading()
{
    reading.push_back(EngineConnection::create(settings, Connection::Reading));
    reading.back()->permit();
    watch(reading.back());
    return reading.back();
}

// The server reads all half-read lists through one connection. A file needs a handle for each: statements of
// one handle share a snapshot, and a list opened beside a half-read one would not see what was committed
// since.
std::shared_ptr<EngineConnection> TDatabase::Private::freeReading()
{
    const bool shared = settings.engine == Engine::PostgreSql;
    for (const std::shared_ptr<EngineConnection> &each : reading) {
        if (shared || each.use_count() == 1)
            return each;
    }
    return anotherReading();
}

void TDatabase::Private::checkOpened() const
{
    if (!opened)
        throw EDatabaseError(u"Duomenų bazės sesija „%1“ neatverta."_s.arg(settings.alias));
}

void TDatabase::Private::forgetCatalogue()
{
    catalogue.forget();
    translator.clear();
    editing->forgetPrepared();
    for (const std::shared_ptr<EngineConnection> &each : reading)
        each->forgetPrepared();
}

TDatabase::TDatabase(TSessionSettings settings) : d(std::make_unique<Private>(std::move(settings), *this)) {}

TDatabase::~TDatabase()
{
    Close();
    d->editing->onLost = nullptr;
}

void TDatabase::setSqliteTeacher(std::function<void(sqlite3 *)> teacher)
{
    SqliteConnection::setTeacher(std::move(teacher));
}

void TDatabase::Open()
{
    d->editing->permit();
    d->editing->open();
    d->opened = true;
}

void TDatabase::Close()
{
    d->opened = false;
    for (const std::shared_ptr<EngineConnection> &each : d->reading) {
        each->onLost = nullptr;
        each->end();
    }
    d->reading.clear();
    d->editing->end();
    d->catalogue.forget();
    d->translator.clear();
}

bool TDatabase::Connected() const
{
    return d->opened && d->editing->isOpen();
}

const QString &TDatabase::AliasName() const
{
    return d->settings.alias;
}

Engine TDatabase::engine() const
{
    return d->settings.engine;
}

const TSessionSettings &TDatabase::settings() const
{
    return d->settings;
}

void TDatabase::StartTransaction()
{
    d->checkOpened();
    if (InTransaction())
        return;
    d->fates.settle(*d->editing);
    d->editing->begin();
    static qlonglong transactions = 0;
    d->transaction = ++transactions;
}

void TDatabase::Commit()
{
    if (!InTransaction())
        return;
    try {
        d->editing->commit(commitPatience());
    } catch (const EConnectionLost &loss) {
        d->fates.answerLost(*d->editing, d->transaction, loss.serverText);
    }
}

void TDatabase::Rollback()
{
    if (InTransaction())
        d->editing->rollback();
}

bool TDatabase::InTransaction() const
{
    return d->editing->inTransaction();
}

qlonglong TDatabase::transactionNumber() const
{
    return InTransaction() ? d->transaction : 0;
}

std::unique_ptr<TStatement> TDatabase::prepare(const QString &statement, Connection on)
{
    d->checkOpened();
    return prepareNative(d->translator.translate(statement), on);
}

std::unique_ptr<TStatement> TDatabase::prepareNative(const TranslatedSql &sql, Connection on)
{
    d->checkOpened();
    if (on == Connection::Editing)
        return d->editing->prepare(sql);
    if (sql.kind != SqlKind::Select)
        throw EDatabaseError(u"Skaitymo jungtimi vykdomos tik užklausos."_s, {}, sql.text);
    return d->freeReading()->prepare(sql);
}

// Without an open transaction every statement commits itself, and inside one the word commit is passed over:
// either way there is nothing left to do for it. On a server one that writes by itself has a transaction of
// its own, so that an answer that is lost is looked up.
qlonglong TDatabase::ExecSQL(const QString &statement, const QVariantMap &parameters)
{
    d->checkOpened();
    const TranslatedSql sql = d->translator.translate(statement);
    const std::unique_ptr<TStatement> prepared = prepareNative(sql);
    for (auto each = parameters.cbegin(); each != parameters.cend(); ++each)
        prepared->bind(each.key(), each.value());
    if (engine() == Engine::Sqlite || sql.kind == SqlKind::Select || InTransaction()) {
        prepared->exec();
        return prepared->affected();
    }
    TTransaction alone(this);
    prepared->exec();
    alone.commit();
    return prepared->affected();
}

Variant TDatabase::fieldResult(const QString &statement, const QVariantMap &parameters)
{
    const std::unique_ptr<TStatement> prepared = prepare(statement);
    for (auto each = parameters.cbegin(); each != parameters.cend(); ++each)
        prepared->bind(each.key(), each.value());
    prepared->exec();
    return prepared->next() ? prepared->value(0) : Variant();
}

void TDatabase::nativeExec(const QString &script)
{
    d->checkOpened();
    d->editing->run(script.toUtf8());
    d->forgetCatalogue();
}

void TDatabase::setOpeningScript(const QString &script)
{
    Q_ASSERT(!InTransaction());
    d->editing->setOpeningScript(script.toUtf8());
    if (d->opened)
        d->editing->run(script.toUtf8());
}

QString TDatabase::quoted(const QString &text)
{
    QString inside = text;
    return u'\'' + inside.replace(u'\'', u"''"_s) + u'\'';
}

QList<TColumnInfo> TDatabase::columnsOf(const QString &table) const
{
    return d->catalogue.columnsOf(table);
}

QStringList TDatabase::keyOf(const QString &table) const
{
    return d->catalogue.keyOf(table);
}

ColumnKind TDatabase::kindOf(const QString &column) const
{
    return d->catalogue.kindOf(column);
}

QString TDatabase::joinCondition(const QString &left, const QString &right) const
{
    QStringList equal;
    for (const Catalogue::Pair &pair : d->catalogue.references(left, right))
        equal.append(u"%1.%2 = %3.%4"_s.arg(left, pair.left, right, pair.right));
    return equal.join(u" and "_s);
}

QStringList TDatabase::columnNames(const QString &table) const
{
    QStringList names;
    for (const TColumnInfo &column : columnsOf(table))
        names.append(column.name);
    return names;
}

bool TDatabase::isGivenByDatabase(const QString &table, const QString &column) const
{
    return d->catalogue.isGivenByDatabase(table, column);
}

bool TDatabase::isRequired(const QString &column) const
{
    return d->catalogue.isRequired(column);
}

bool TDatabase::isRoutine(const QString &name) const
{
    return d->catalogue.isRoutine(name);
}

void TDatabase::forgetCatalogue()
{
    d->forgetCatalogue();
}

SqlTranslator &TDatabase::translator()
{
    return d->translator;
}

QSqlDatabase &TDatabase::handle(Connection on)
{
    d->checkOpened();
    const std::shared_ptr<EngineConnection> connection = on == Connection::Editing ? d->editing
                                                         : d->reading.empty()      ? d->anotherReading()
                                                                                   : d->reading.front();
    connection->open();
    return connection->handle();
}

TDatabase::BusyHook TDatabase::setBusyHook(BusyHook hook)
{
    return std::exchange(BusyBeat::hook(), std::move(hook));
}

TTransaction::TTransaction(TDatabase *theDatabase)
    : database(theDatabase),
      owner(!theDatabase->InTransaction())
{
    if (owner)
        database->StartTransaction();
    number = database->transactionNumber();
}

TTransaction::~TTransaction()
{
    if (!owner || done || database->transactionNumber() != number)
        return;
    try {
        database->Rollback();
    } catch (const Exception &) { // the server is gone, and the transaction with it
        done = true;
    }
}

void TTransaction::commit()
{
    if (database->transactionNumber() != number)
        throw EDatabaseError(u"Pakeitimai neįrašyti: transakcija nutrūko."_s);
    if (owner)
        database->Commit();
    done = true; // a commit that was refused leaves the transaction to be rolled back
}
