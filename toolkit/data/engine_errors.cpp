#include "toolkit/data/engine_errors.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

const auto busyText = u"Duomenų bazę užrakino kita programa arba kita darbo vieta. Pabandykite dar kartą."_s;
const auto referenceText =
    u"Įrašas susietas su kitais įrašais: nurodytas įrašas neegzistuoja arba jis naudojamas."_s;
const auto readOnlyText = u"Duomenų bazė atverta tik skaitymui, keisti negalima."_s;
const auto standbyText =
    u"Prisijungta prie atsarginio serverio: jame duomenis galima tik peržiūrėti. Prisijunkite prie pagrindinio."_s;
const auto diskFullText = u"Diske nebeliko vietos, duomenys neįrašyti."_s;

const auto duplicateText = u"Toks įrašas jau yra."_s;
const auto missingText = u"Neužpildytas privalomas laukas."_s;

QString checkText(const QString &rule)
{
    return u"Reikšmė neatitinka duomenų bazės taisyklės „%1“."_s.arg(rule);
}

QString brokenText(const QString &server)
{
    return server.isEmpty() ? u"Duomenų bazės klaida, serveris priežasties nenurodė."_s
                            : u"Duomenų bazės klaida: %1"_s.arg(server);
}

// "UNIQUE constraint failed: t.a, t.b" names the columns after the colon; the table is left out.
QStringList columnsOfSqliteText(const QString &text)
{
    QStringList columns;
    for (const QString &each : text.section(u": "_s, 1).split(u", "_s, Qt::SkipEmptyParts))
        columns.append(each.section(u'.', -1).toLower());
    return columns;
}

// An index over expressions is named instead of columns: "UNIQUE constraint failed: index 'name'".
[[noreturn]] void raiseSqliteDuplicate(const QString &text, const QString &statement)
{
    const QString index = text.section(u"index '"_s, 1).section(u'\'', 0, 0);
    if (index.isEmpty())
        throw EUniqueViolation(duplicateText, text, statement, {}, columnsOfSqliteText(text));
    throw EUniqueViolation(duplicateText, text, statement, index);
}

[[noreturn]] void raiseSqliteConstraint(int code, const QString &text, const QString &statement)
{
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        raiseSqliteDuplicate(text, statement);
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        throw EConstraintError(referenceText, text, statement);
    case SQLITE_CONSTRAINT_NOTNULL:
        throw EConstraintError(missingText, text, statement, {}, columnsOfSqliteText(text));
    case SQLITE_CONSTRAINT_TRIGGER: // raise(abort, 'text')
        throw EDatabaseError(text, text, statement);
    default:
        throw EConstraintError(checkText(text.section(u": "_s, 1)), text, statement,
                               text.section(u": "_s, 1));
    }
}

// "Key (a, b)=(1, 2) already exists." names the columns between the first brackets, in whatever language.
QStringList columnsOfDetail(const QString &detail)
{
    return detail.section(u")=("_s, 0, 0).section(u'(', 1).split(u", "_s, Qt::SkipEmptyParts);
}

// A trigger of SQLite raises fixed texts only. One that has to say more makes json_extract() fail over a path
// that is none: "JSON path error near 'text'", or "bad JSON path: 'text'" in newer releases.
QString raisedText(const QString &text)
{
    const bool composed =
        text.startsWith(u"JSON path error near '"_s) || text.startsWith(u"bad JSON path: '"_s);
    return composed ? text.section(u'\'', 1).chopped(1) : text;
}

} // namespace

void raiseSqliteError(sqlite3 *db, int code, const QString &statement)
{
    const QString text = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString();
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw EDatabaseBusy(busyText, text, statement);
    case SQLITE_CONSTRAINT:
        raiseSqliteConstraint(code, text, statement);
    case SQLITE_ERROR: // also what a stored routine raises: its text is the message
        throw EDatabaseError(text.isEmpty() ? brokenText(text) : raisedText(text), text, statement);
    case SQLITE_READONLY:
        throw EDatabaseError(readOnlyText, text, statement);
    case SQLITE_FULL:
        throw EDatabaseError(diskFullText, text, statement);
    case SQLITE_NOTADB:
        throw EDatabaseError(u"Tai ne duomenų bazės failas."_s, text, statement);
    case SQLITE_CORRUPT:
        throw EDatabaseError(u"Duomenų bazės failas sugadintas. Atkurkite jį iš kopijos."_s, text, statement);
    case SQLITE_IOERR:
        throw EDatabaseError(u"Nepavyko perskaityti arba įrašyti duomenų bazės failo."_s, text, statement);
    default:
        throw EDatabaseError(brokenText(text), text, statement);
    }
}

void raiseBadWording(const QString &engineText, const QString &statement)
{
    throw EDatabaseError(brokenText(engineText), engineText, statement);
}

bool meansConnectionLost(const QString &state)
{
    return state.startsWith(u"08") || state == u"57P01" || state == u"57P02" || state == u"57P03";
}

void raiseConnectionLost(const QString &serverText, const QString &statement)
{
    throw EConnectionLost(u"Nutrūko ryšys su duomenų bazės serveriu. Pabandykite dar kartą."_s, serverText,
                          statement);
}

void raiseServerError(const ServerFailure &failure, const QString &statement)
{
    const QString &state = failure.state;
    const QString &text = failure.message;
    if (meansConnectionLost(state))
        raiseConnectionLost(text, statement);
    if (state == u"23505")
        throw EUniqueViolation(duplicateText, text, statement, failure.constraint,
                               columnsOfDetail(failure.detail));
    if (state == u"23503")
        throw EConstraintError(referenceText, text, statement, failure.constraint);
    if (state == u"23502")
        throw EConstraintError(missingText, text, statement, failure.constraint, {failure.column});
    if (state.startsWith(u"23"))
        throw EConstraintError(checkText(failure.constraint), text, statement, failure.constraint);
    if (state == u"P0001" && !text.isEmpty()) // raised by a stored routine: its text is the message
        throw EDatabaseError(text, text, statement);
    if (state == u"55P03" || state == u"40P01" || state == u"40001")
        throw EDatabaseBusy(busyText, text, statement);
    if (state == u"25006")
        throw EDatabaseError(failure.atStandby ? standbyText : readOnlyText, text, statement);
    if (state == u"25P02")
        throw EDatabaseError(u"Ankstesnis operacijos veiksmas nepavyko, operaciją reikia atšaukti."_s, text,
                             statement);
    if (state == u"22001")
        throw EDatabaseError(u"Tekstas per ilgas."_s, text, statement);
    if (state == u"22003")
        throw EDatabaseError(u"Skaičius per didelis."_s, text, statement);
    if (state == u"42501")
        throw EDatabaseError(u"Neturite teisės atlikti šio veiksmo duomenų bazėje."_s, text, statement);
    if (state == u"53100")
        throw EDatabaseError(diskFullText, text, statement);
    throw EDatabaseError(brokenText(text), text, statement);
}
