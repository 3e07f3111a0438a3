#include "database/server_roles.h"

#include "database/native_sql.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 63;

QString databaseOf(TDatabase &db)
{
    return nativeColumn(db, u"select current_database()"_s).constFirst();
}

QString script(const QString &name)
{
    QFile file(u":/schema/postgresql/roles/"_s + name);
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    return opened ? QString::fromUtf8(file.readAll()) : QString();
}

// The script with its :"name" and :'text' in place.
QString worded(QString text, const QMap<QString, QString> &values)
{
    for (const auto &[name, value] : values.asKeyValueRange()) {
        text.replace(u":\"%1\""_s.arg(name), nativeName(value));
        text.replace(u":'%1'"_s.arg(name), TDatabase::quoted(value));
    }
    return text;
}

// A role that logs in is somebody's, whatever it is called.
void makeGroup(TDatabase &db, const QString &group)
{
    const QStringList logsIn = nativeColumn(db, u"select rolcanlogin::int from pg_roles where rolname = "_s +
                                                    TDatabase::quoted(group));
    if (logsIn.isEmpty())
        db.nativeExec(u"create role %1 nologin"_s.arg(nativeName(group)));
    else if (logsIn.constFirst() != u"0")
        throw EDatabaseError(
            u"Vardu „%1“, kurio reikia naudotojų grupei, serveryje jau kažkas jungiasi."_s.arg(group));
}

void makeGroups(TDatabase &db, const TServerGroups &groups)
{
    for (const QString &group : {groups.viewers, groups.bookkeepers, groups.administrators})
        makeGroup(db, group);
    for (const QString &group : {groups.bookkeepers, groups.administrators})
        db.nativeExec(u"grant %1 to %2"_s.arg(nativeName(groups.viewers), nativeName(group)));
}

void shut(TDatabase &db)
{
    TTransaction tran(&db);
    db.nativeExec(worded(script(u"shut.sql"_s), {{u"baze"_s, databaseOf(db)}}));
    tran.commit();
}

void grantAll(TDatabase &db, const QStringList &scripts, const QString &mainDatabase)
{
    const TServerGroups groups(mainDatabase);
    const QMap<QString, QString> values{{u"baze"_s, databaseOf(db)},
                                        {u"pagrindine"_s, mainDatabase},
                                        {u"ziurovai"_s, groups.viewers},
                                        {u"buhalteriai"_s, groups.bookkeepers},
                                        {u"administratoriai"_s, groups.administrators}};
    for (const QString &name : scripts)
        db.nativeExec(worded(script(name), values));
}

// Why no roles can be made; empty: they can.
QString obstacle(TDatabase &db, const QString &mainDatabase)
{
    if (TServerGroups(mainDatabase).administrators.toUtf8().size() > longestName)
        return u"Duomenų bazės vardas „%1“ per ilgas, kad pagal jį būtų pavadintos naudotojų grupės."_s.arg(
            mainDatabase);
    if (nativeColumn(db,
                     u"select 1 from pg_roles where rolname = current_user and (rolcreaterole or rolsuper)"_s)
            .isEmpty())
        return u"Naudotojui „%1“ neleista kurti serverio naudotojų."_s.arg(
            nativeColumn(db, u"select current_user"_s).constFirst());
    return {};
}

const QString sharedOnly =
    u"Savi vartotojų prisijungimai prie serverio nesutvarkyti: %1 Prisijungti galima tik "
    "bendru prisijungimu."_s;

} // namespace

TServerGroups::TServerGroups(const QString &mainDatabase)
    : viewers(mainDatabase + u"_ziurovai"_s),
      bookkeepers(mainDatabase + u"_buhalteriai"_s),
      administrators(mainDatabase + u"_administratoriai"_s)
{
}

QStringList setUpServerRoles(TDatabase &fin, TDatabase &ravl)
try {
    const QString mainDatabase = databaseOf(fin);
    shut(fin);
    shut(ravl);
    if (const QString why = obstacle(fin, mainDatabase); !why.isEmpty())
        return {sharedOnly.arg(why)};
    TTransaction ofFin(&fin);
    makeGroups(fin, TServerGroups(mainDatabase));
    grantAll(fin, {u"books.sql"_s}, mainDatabase);
    ofFin.commit();
    TTransaction ofRavl(&ravl);
    grantAll(ravl, {u"books.sql"_s, u"users.sql"_s}, mainDatabase);
    const QStringList remarks = nativeColumn(ravl, u"select sys_prisijungimai_visiems()"_s);
    ofRavl.commit();
    return remarks;
} catch (const EDatabaseError &error) {
    return {sharedOnly.arg(error.message())};
}
