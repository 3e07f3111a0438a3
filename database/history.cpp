#include "database/history.h"

#include "database/history_triggers.h"
#include "toolkit/data/server_link.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestStation = 64;

QString personScript(const TDatabase &db, const TPerson &person)
{
    const QString login = TDatabase::quoted(person.login);
    const QString station = TDatabase::quoted(person.station.left(longestStation));
    if (db.engine() == Engine::Sqlite)
        return u"select sys_asmuo(%1, %2);"_s.arg(login, station);
    return u"select set_config('velmora.login', %1, false), set_config('velmora.stotis', %2, false), "
           "set_config('velmora.rutina', '', false)"_s.arg(login, station);
}

void setPaused(TDatabase &db, bool on)
{
    db.nativeExec(db.engine() == Engine::Sqlite ? u"select sys_rutina(%1)"_s.arg(on ? 1 : -1)
                                                : u"select set_config('velmora.rutina', '%1', false)"_s.arg(
                                                      on ? u"pildymas"_s : QString()));
}

} // namespace

void keepHistory(TDatabase &db, const TPerson &person)
{
    if (db.settings().readOnly)
        return;
    QString script = personScript(db, person);
    if (db.engine() == Engine::Sqlite)
        script += historyTriggers(db);
    db.setOpeningScript(script);
    if (db.engine() == Engine::PostgreSql)
        setCommitWitness(db, u"select sys_ar_irasyta('%1'::xid8)"_s);
}

THistoryPause::THistoryPause(TDatabase &aDb) : db(aDb)
{
    setPaused(db, true);
}

THistoryPause::~THistoryPause()
{
    try {
        setPaused(db, false);
    } catch (const Exception &) { // the connection is gone, and the setting with it
        return;
    }
}

void coverByHistory(TDatabase &db)
{
    if (db.engine() == Engine::PostgreSql)
        db.nativeExec(u"do $$ begin if to_regprocedure('sys_istorija_visoms()') is not null then "
                      "call sys_istorija_visoms(); end if; end $$"_s);
}
