// fault_victim MODE ENGINE PLACE [NUMBER | BUDGET]: works on the books as the program does, for somebody to
// disturb.
//
// ENGINE is Sqlite or PostgreSql, PLACE the file or the connection words of the main database and BUDGET
// those of the other. Prints a line when the work begins and one when it is done; a failure is printed as
// "klaida: …" and ends with 3. The environment can take things away beforehand: VELMORA_UID names the user to
// become, VELMORA_FILE_LIMIT the largest file that may be written, in bytes.

#include "database/history.h"
#include "database/schema.h"
#include "database/seals.h"
#include "tests/faults/victim/crowd.h"
#include "tests/faults/victim/new_books.h"
#include "toolkit/data/database.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <grp.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
void say(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

void becomeUser(uid_t user)
{
    if (setgroups(0, nullptr) != 0 || setgid(user) != 0 || setuid(user) != 0)
        qFatal("cannot become user %u", user);
}

void limitFiles(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
        qFatal("cannot limit the size of files");
}

void takeAway()
{
    if (qEnvironmentVariableIsSet("VELMORA_FILE_LIMIT"))
        limitFiles(rlim_t(qEnvironmentVariableIntValue("VELMORA_FILE_LIMIT")));
    if (qEnvironmentVariableIsSet("VELMORA_UID"))
        becomeUser(uid_t(qEnvironmentVariableIntValue("VELMORA_UID")));
}

TSessionSettings settingsOf(const QString &engine, const QString &place)
{
    TSessionSettings settings;
    settings.alias = u"mnFin_Db"_s;
    settings.engine = engine == u"Sqlite" ? Engine::Sqlite : Engine::PostgreSql;
    (settings.engine == Engine::Sqlite ? settings.file : settings.connInfo) = place;
    return settings;
}

// As the program closes: under history, with a seal.
void close(TDatabase &db)
{
    keepHistory(db, {u"ona"_s, u"stotis1"_s});
    TTransaction tran(&db);
    const qlonglong month = db.fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong();
    db.ExecSQL(u"call Close_Per()"_s);
    appendSeal(db, TSealEvent::Close, month);
    tran.commit();
}

// The wrong way, for the tests to find: the same result as close(), but committed in two pieces.
void closeInHalves(TDatabase &db)
{
    const QString half =
        u"ssl_perid = (select max(per_id) from bd_period) and ssl_id > (select avg(ssl_id) from bd_saslik)"_s;
    {
        TTransaction tran(&db);
        db.ExecSQL(u"call Close_Per()"_s);
        db.nativeExec(u"create temporary table later as select * from bd_saslik where "_s + half +
                      u"; delete from bd_saslik where "_s + half);
        tran.commit();
    }
    TTransaction tran(&db);
    db.nativeExec(u"insert into bd_saslik select * from later"_s);
    tran.commit();
}

// Adds typical operations, each under the next free key and in a transaction of its own.
void append(TDatabase &db, int count)
{
    for (int i = 0; i < count; ++i) {
        TTransaction tran(&db);
        const Variant id =
            db.fieldResult(u"select GetNextTableColumnId('dba', 'bd_opr', 'opr_id') from dummy"_s);
        db.ExecSQL(u"insert into bd_opr (opr_id, opr_pavad) values (:id, 'Operacija')"_s, {{u"id"_s, id}});
        tran.commit();
    }
}

// The wrong way, for the tests to find: the chart of accounts is there before the rest.
void setUpInHalves(TDatabase &fin, TDatabase &ravl)
{
    setUpBooks(fin, ravl, {.standard = {SetUpStep::Accounts}});
    TSetUp rest = newBooks();
    rest.standard.remove(SetUpStep::Accounts);
    setUpBooks(fin, ravl, rest);
}

void setUp(const QString &mode, TDatabase &fin, const TSessionSettings &budget)
{
    TDatabase ravl(budget);
    ravl.Open();
    say(u"pradeda"_s);
    if (mode == u"setup")
        setUpBooks(fin, ravl, newBooks());
    else
        setUpInHalves(fin, ravl);
    say(u"baigta"_s);
}

void work(const QStringList &arguments)
{
    const QString &mode = arguments.at(1);
    if (mode == u"crowd") {
        workAsCrowd(settingsOf(arguments.at(2), arguments.at(3)), arguments.at(4).toInt(), say);
        return say(u"baigta"_s);
    }
    TDatabase db(settingsOf(arguments.at(2), arguments.at(3)));
    db.Open();
    if (mode == u"create")
        upgrade(db, Book::Main);
    db.fieldResult(u"select count(*) from bd_period"_s);
    if (mode.startsWith(u"setup"))
        return setUp(mode, db, settingsOf(arguments.at(2), arguments.at(4)));
    say(u"pradeda"_s);
    if (mode == u"close")
        close(db);
    else if (mode == u"halves")
        closeInHalves(db);
    else if (mode == u"append")
        append(db, arguments.at(4).toInt());
    say(u"baigta"_s);
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    takeAway();
    try {
        work(QCoreApplication::arguments());
    } catch (const Exception &error) {
        say(u"klaida: "_s + error.message());
        return 3;
    }
    return 0;
}
