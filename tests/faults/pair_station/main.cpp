// pair_station WORK NAME WORDS: a station that saves without end on the books of a server, whatever happens
// to the server, until it is killed.
//
// WORK is operations (typical operations through a session), close (a month closed and rolled back in turns)
// or parties (counterparties through their editor). Every save is a new one, named after the station; a
// failed one is left to its fate, as a user might who could not know. For each save that was acknowledged it
// prints "irasyta MILLISECONDS WHAT", with the time of the machine's steady clock, for each failure "klaida
// MILLISECONDS TEXT".

#include "database/books.h"
#include "database/history.h"
#include "database/seals.h"
#include "tests/faults/pair_station/work.h"

#include <QApplication>
#include <QThread>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

void told(const char *what, const QString &text)
{
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
    std::printf("%s %lld %s\n", what, static_cast<long long>(now.count()),
                text.simplified().toUtf8().constData());
    std::fflush(stdout);
}

namespace {

// Adds one typical operation under the next key.
class Operations : public Work {
public:
    explicit Operations(const TBooks &books) : db(books.fin) {}

    QString save(const QString &name) override
    {
        openAs(db, name);
        TTransaction tran(&db);
        const Variant id =
            db.fieldResult(u"select GetNextTableColumnId('dba', 'bd_opr', 'opr_id') from dummy"_s);
        db.ExecSQL(u"insert into bd_opr (opr_id, opr_pavad) values (:id, :pavad)"_s,
                   {{u"id"_s, id}, {u"pavad"_s, name}});
        tran.commit();
        return name;
    }

private:
    TDatabase db;
};

// Closes the month or rolls it back, and names the seal that says so.
class Closes : public Work {
public:
    explicit Closes(const TBooks &books) : db(books.fin) {}

    QString save(const QString &name) override
    {
        openAs(db, name);
        TTransaction tran(&db);
        const qlonglong month = db.fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong();
        const bool first =
            db.fieldResult(u"select count(*) from bd_period where per_menuo > 0"_s).toInt() == 1;
        db.ExecSQL(first ? u"call Close_Per()"_s : u"call Back_Per()"_s);
        appendSeal(db, first ? TSealEvent::Close : TSealEvent::RollBack, month);
        const QString seal = db.fieldResult(u"select max(ant_id) from bd_antspaudai"_s).toString();
        tran.commit();
        return u"antspaudas "_s + seal;
    }

private:
    TDatabase db;
};

std::unique_ptr<Work> workOf(const QString &kind, const TBooks &books)
{
    if (kind == u"operations")
        return std::make_unique<Operations>(books);
    if (kind == u"close")
        return std::make_unique<Closes>(books);
    return std::make_unique<Parties>(books);
}

} // namespace

void Work::openAs(TDatabase &db, const QString &name)
{
    if (db.Connected())
        return;
    db.Open();
    keepHistory(db, {name.section(u' ', 0, 0), u"stotis"_s});
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    const auto work = workOf(arguments.at(1), serverBooks(arguments.at(3)));
    for (int number = 1;; ++number) {
        try {
            const QString saved = work->save(u"%1 %2"_s.arg(arguments.at(2)).arg(number));
            if (!saved.isEmpty())
                told("irasyta", saved);
        } catch (const Exception &error) {
            told("klaida", error.message());
            QThread::msleep(50);
        }
    }
}
