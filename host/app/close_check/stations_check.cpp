#include "host/app/close_check/checks.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 50;

// Sessions of this database that hold a lock which only writing takes. Half-read lists, ours and theirs, are
// inside a transaction as well, but change nothing. Who a session belongs to is told to everybody, its kind
// is not; processes of the server itself have no user.
constexpr char16_t writersSql[] =
    u"select usename::text, coalesce(host(client_addr), ''), coalesce(to_char(xact_start, 'HH24:MI'), '?') "
    "from pg_stat_activity a where datname = current_database() and usename is not null "
    "and pid <> pg_backend_pid() and exists (select from pg_locks l join pg_database d on d.oid = l.database "
    "where l.pid = a.pid and l.granted and l.locktype = 'relation' and d.datname = current_database() "
    "and l.mode in ('RowExclusiveLock', 'ShareLock', 'ShareRowExclusiveLock', 'ExclusiveLock', "
    "'AccessExclusiveLock')) order by xact_start, pid";

std::vector<TCloseFinding> writersOnServer(TDatabase &fin)
{
    std::vector<TCloseFinding> found;
    const auto rows = fin.prepareNative({SqlKind::Select, QString::fromUtf16(writersSql)});
    for (rows->exec(); rows->next();) {
        const QString user = rows->value(0).toString(), address = rows->value(1).toString();
        found.push_back(
            {.about = address.isEmpty() ? user : user + u", "_s + address,
             .text = u"Nuo %1 įrašo pakeitimus ir dar nebaigė."_s.arg(rows->value(2).toString())});
    }
    return found;
}

// Only one station writes to a file at a time: who cannot take the lock knows that another one holds it.
bool anotherHoldsLock(const TDatabase &fin)
{
    TSessionSettings settings = fin.settings();
    settings.busyTimeoutMs = patienceMs;
    TDatabase probe(settings);
    try {
        probe.Open();
        probe.StartTransaction();
        probe.Rollback();
    } catch (const EDatabaseBusy &) {
        return true;
    }
    return false;
}

} // namespace

std::vector<TCloseFinding> stationsAtWork(const TClosing &closing)
{
    if (closing.fin.engine() == Engine::PostgreSql)
        return writersOnServer(closing.fin);
    if (closing.fin.settings().readOnly)
        throw ENotChecked(u"Matoma tik tam, kam leista duomenis keisti."_s);
    if (anotherHoldsLock(closing.fin))
        return {
            {.about = u"Kita programa"_s, .text = u"Šiuo metu rašo į knygas ir savo darbo dar nebaigė."_s}};
    return {};
}
