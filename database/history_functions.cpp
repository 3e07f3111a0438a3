#include "database/history_functions.h"

#include "database/history_json.h"
#include "database/history_records.h"
#include "database/nested.h"
#include "toolkit/text/datetime.h"

namespace {

// What a connection knows of the history.
struct HistoryOfConnection {
    QByteArray login;
    QByteArray station;
    bool kept = false;
    int routines = 0; // under way
};

HistoryOfConnection &of(const RoutineCall &call)
{
    return *static_cast<HistoryOfConnection *>(call.data());
}

void setPerson(RoutineCall &call)
{
    of(call).login = call.text(0);
    of(call).station = call.text(1);
    of(call).kept = true;
}

void setRoutine(RoutineCall &call)
{
    of(call).routines += int(call.integer(0));
}

void isKept(RoutineCall &call)
{
    call.give(qint64(of(call).kept && of(call).routines == 0));
}

void isPersonKnown(RoutineCall &call)
{
    call.give(qint64(of(call).kept));
}

void loginName(RoutineCall &call)
{
    call.give(of(call).login);
}

void stationName(RoutineCall &call)
{
    call.give(of(call).station);
}

void moment(RoutineCall &call)
{
    call.give(Now().dateTime().toString(u"yyyy-MM-dd hh:mm:ss.zzz").toLatin1());
}

// sys_json(name, value, …): all of them.
void rowAsJson(RoutineCall &call)
{
    HistoryJson json;
    for (int i = 0; i + 1 < call.count(); i += 2)
        json.add(call.text(i), call.value(i + 1));
    call.give(json.finish());
}

// sys_json_keista(name, value, other, …): those whose value is not the other.
void changedAsJson(RoutineCall &call)
{
    HistoryJson json;
    for (int i = 0; i + 2 < call.count(); i += 3) {
        if (!isSameValue(call.value(i + 1), call.value(i + 2)))
            json.add(call.text(i), call.value(i + 1));
    }
    call.give(json.finish());
}

// sys_iraso_suma(moment, login, station, table, key, operation, before, after, fingerprints)
void recordSum(RoutineCall &call)
{
    THistoryRecord record;
    int argument = 0;
    for (QByteArray *part : {&record.moment, &record.login, &record.station, &record.table, &record.key,
                             &record.operation, &record.before, &record.after, &record.prints}) {
        if (!call.isNull(argument))
            *part = call.text(argument);
        ++argument;
    }
    call.give(record.checkSum());
}

struct Entry {
    const char *name;
    int arguments;
    void (*function)(sqlite3_context *, int, sqlite3_value **);
};

constexpr Entry entries[] = {
    {"sys_rutina", 1, guarded<setRoutine>},       {"sys_istorija", 0, guarded<isKept>},
    {"sys_yra_asmuo", 0, guarded<isPersonKnown>}, {"sys_login", 0, guarded<loginName>},
    {"sys_stotis", 0, guarded<stationName>},      {"sys_dabar", 0, guarded<moment>},
    {"sys_json", -1, guarded<rowAsJson>},         {"sys_json_keista", -1, guarded<changedAsJson>},
    {"sys_iraso_suma", 9, guarded<recordSum>},
};

// No trigger or view of a strange file may call them; temporary ones may.
constexpr int flags = SQLITE_UTF8 | SQLITE_DIRECTONLY;

} // namespace

// The function that names the person owns what all of them share; it goes with the connection.
void teachHistory(sqlite3 *db)
{
    auto *shared = new HistoryOfConnection;
    sqlite3_create_function_v2(db, "sys_asmuo", 2, flags, shared, guarded<setPerson>, nullptr, nullptr,
                               [](void *data) { delete static_cast<HistoryOfConnection *>(data); });
    for (const Entry &entry : entries)
        sqlite3_create_function_v2(db, entry.name, entry.arguments, flags, shared, entry.function, nullptr,
                                   nullptr, nullptr);
}
