#include "database/sqlite_routines.h"

#include "database/debtor_routines.h"
#include "database/exact_sum.h"
#include "database/history_functions.h"
#include "database/key_routines.h"
#include "database/period_routines.h"
#include "database/person_routines.h"
#include "database/print_sums.h"
#include "database/text_functions.h"
#include "toolkit/data/database.h"

namespace {

struct Entry {
    const char *name;
    int arguments;
    int flags;
    void (*function)(sqlite3_context *, int, sqlite3_value **);
};

// Depends on its arguments alone, may stand in views and indexes.
constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
// Reads tables; a statement asks once for each argument. No view or trigger of a strange file may call it.
constexpr int reads = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
// Changes tables.
constexpr int writes = SQLITE_UTF8 | SQLITE_DIRECTONLY;

constexpr Entry entries[] = {
    {"lt_raktas", 1, pure, guarded<sortKey>},
    {"ucase", 1, pure, guarded<upperCase>},
    {"dateformat", 2, pure, guarded<dateAsText>},
    {"getdatebyperiodid", 1, reads, guarded<dateOfPeriod>},
    {"get_last_per_id", 0, reads, guarded<lastPeriod>},
    {"checksasinbalform", 2, reads, guarded<accountInForm>},
    {"f_checkused", 3, reads, guarded<countUses>},
    {"getnexttablecolumnid", 3, writes, guarded<nextKey>},
    {"close_per", 0, writes, guarded<closePeriod>},
    {"back_per", 0, writes, guarded<rollPeriodBack>},
    {"p_calcdbkrlik", 1, writes, guarded<computeDebtors>},
    {"updmatasmunq", 0, writes, guarded<mergePersons>},
};

// A program that holds the schema never has a connection that does not know its routines.
[[maybe_unused]] const bool installed = (TDatabase::setSqliteTeacher(teachSqlite), true);

} // namespace

void teachSqlite(sqlite3 *db)
{
    for (const Entry &entry : entries) {
        sqlite3_create_function_v2(db, entry.name, entry.arguments, entry.flags, nullptr, entry.function,
                                   nullptr, nullptr, nullptr);
    }
    teachExactSum(db);
    teachHistory(db);
    teachPrintSums(db);
    // The schema's own view would make every select from dummy a reader of the file, and a reader that turns
    // writer, as one that draws a key does, is refused instead of waiting for other stations.
    sqlite3_exec(db, "create temp view if not exists dummy as select 1 as dummy_col", nullptr, nullptr,
                 nullptr);
}
