#include "tests/faults/victim/crowd.h"

#include "database/history.h"
#include "toolkit/data/statement.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 120'000;
constexpr int piece = 20;

using Say = std::function<void(const QString &)>;

class Station {
public:
    Station(const TSessionSettings &settings, const QString &itsName) : name(itsName), db(settings)
    {
        db.Open();
        keepHistory(db, {name, name});
        month = lastMonth();
        list = db.prepare(u"select sas_id, sas_sasnr from bd_sasplan order by sas_id"_s,
                          TDatabase::Connection::Reading);
        list->exec();
        read(piece);
    }

    bool monthIsClosed() { return lastMonth() != month; }

    void work(const Say &say)
    {
        ++saves;
        attempt(say, [&] { say(u"operacija "_s + addOperation()); });
        attempt(say, [&] { say(u"irasas "_s + addEntry()); });
        read(piece);
    }

    void readToTheEnd()
    {
        read(std::numeric_limits<int>::max());
        if (rows != db.fieldResult(u"select count(*) from bd_sasplan"_s).toInt())
            throw Exception(u"the list had %1 rows"_s.arg(rows));
    }

private:
    qlonglong lastMonth() { return db.fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong(); }

    void read(int count)
    {
        for (int i = 0; i < count && list->next(); ++i)
            ++rows;
    }

    static void attempt(const Say &say, const std::function<void()> &save)
    {
        try {
            save();
        } catch (const EConnectionLost &) {
            throw;
        } catch (const EDatabaseError &error) {
            say(u"atsisakyta "_s + error.message().simplified());
        }
    }

    Variant nextKey(const QString &table, const QString &column)
    {
        return db.fieldResult(
            u"select GetNextTableColumnId('dba', '%1', '%2') from dummy"_s.arg(table, column));
    }

    QString addOperation()
    {
        const QString saved = u"%1 %2"_s.arg(name).arg(saves);
        TTransaction tran(&db);
        db.ExecSQL(u"insert into bd_opr (opr_id, opr_pavad) values (:id, :pavad)"_s,
                   {{u"id"_s, nextKey(u"bd_opr"_s, u"opr_id"_s)}, {u"pavad"_s, saved}});
        tran.commit();
        return saved;
    }

    QString addEntry()
    {
        TTransaction tran(&db);
        const Variant id = nextKey(u"bd_irasai"_s, u"irs_id"_s);
        db.ExecSQL(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db) values "
                   "(:id, :perid, 1, 1)"_s,
                   {{u"id"_s, id}, {u"perid"_s, month}});
        tran.commit();
        return id.toString();
    }

    const QString name;
    TDatabase db;
    std::unique_ptr<TStatement> list;
    qlonglong month = 0;
    int rows = 0;
    int saves = 0;
};

} // namespace

void workAsCrowd(const TSessionSettings &settings, int count, const Say &say)
{
    std::vector<std::unique_ptr<Station>> stations;
    for (int i = 0; i < count; ++i)
        stations.push_back(
            std::make_unique<Station>(settings, u"s%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(i)));
    say(u"pradeda"_s);
    const QDeadlineTimer patience(patienceMs);
    for (bool closed = false; !closed;) {
        closed = stations.front()->monthIsClosed();
        for (const auto &station : stations)
            station->work(say);
        if (patience.hasExpired())
            throw Exception(u"the month was not closed"_s);
    }
    for (const auto &station : stations)
        station->readToTheEnd();
}
