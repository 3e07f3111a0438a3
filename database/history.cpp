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

void switchServer(TDatabase &db, const QString &state)
{
    if (db.engine() == Engine::PostgreSql)
        db.nativeExec(u"select set_config('velmora.rutina', '%1', false)"_s.arg(state));
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
    switchServer(db, u"pildymas"_s);
}

THistoryPause::~THistoryPause()
{
    try {
        switchServer(db, QString());
    } catch (const Exception &) { // the server is gone, and the setting with it
        return;
    }
}

void coverByHistory(TDatabase &db)
{
    if (db.engine() == Engine::PostgreSql)
        db.nativeExec(u"do $$ begin if to_regprocedure('sys_istorija_visoms()') is not null then "
                      "call sys_istorija_visoms(); end if; end $$"_s);
}
