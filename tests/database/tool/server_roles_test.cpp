#include "database/history.h"
#include "database/seals.h"
#include "database/tool/keeping/server_console.h"
#include "tests/database/tool/server_logins.h"
#include "tests/support/postgres.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

const auto denied = u"42501"_s; // the engine's state for a missing privilege

// Which of the numbered statements the engine refuses for want of a privilege. Each is taken back.
QSet<qsizetype> deniedOf(const QString &database, const QString &login, const QStringList &statements)
{
    QString script;
    for (qsizetype i = 0; i < statements.size(); ++i)
        script += u"\\warn # %1\nbegin;\n%2;\nrollback;\n"_s.arg(i).arg(statements[i]);
    QSet<qsizetype> refused;
    qsizetype at = -1;
    for (const QString &line : psql(database, login, script)) {
        if (line.startsWith(u"# "))
            at = line.mid(2).toLongLong();
        else if (line.contains(denied))
            refused.insert(at);
    }
    EXPECT_EQ(at, statements.size() - 1) << "the shell did not come to its end";
    return refused;
}

QList<QStringList> listOf(TDatabase &db, const QString &native, int columns)
{
    TranslatedSql sql;
    sql.text = native;
    const auto statement = db.prepareNative(sql);
    QList<QStringList> all;
    for (statement->exec(); statement->next();) {
        QStringList row;
        for (int i = 0; i < columns; ++i)
            row << QString::fromUtf8(statement->utf8(i));
        all << row;
    }
    return all;
}

QStringList actionsOf(const QString &table, const QString &column)
{
    return {u"select * from %1"_s.arg(table), u"insert into %1 default values"_s.arg(table),
            u"update %1 set %2 = %2 where false"_s.arg(table, column),
            u"delete from %1 where false"_s.arg(table), u"truncate %1"_s.arg(table)};
}

// Which of select, insert, update, delete are a person's; nobody truncates. The administrator is a
// bookkeeper, too.
QString rightsOn(const QString &table, const QString &person)
{
    const bool isAdmin = person == u"adm";
    if (table == u"bd_usr")
        return isAdmin ? u"siud"_s : QString();
    if (person == u"ziu" || table == u"bd_versija" || table == u"sys_nuorodos" || table == u"bd_istorija")
        return u"s"_s;
    if (table == u"bd_antspaudai" || (table == u"bd_usrkdv" && !isAdmin))
        return u"siu"_s;
    return u"siud"_s;
}

class ServerRoles : public OwnLogins {
protected:
    TDatabase &of(const QString &book) { return book == u"fin" ? *fin : *ravl; }
};

} // namespace

TEST_F(ServerRoles, EachGroupMayDoWithEachTableWhatIsItsOwn)
{
    for (const QString &book : {u"fin"_s, u"ravl"_s}) {
        const QList<QStringList> tables =
            listOf(of(book),
                   u"select relname, (select attname from pg_attribute where attrelid = c.oid and "
                   "attnum = 2) from pg_class c where relkind = 'r' and "
                   "relnamespace = 'public'::regnamespace order by 1"_s,
                   2);
        ASSERT_GT(tables.size(), 8);
        QStringList statements;
        for (const QStringList &table : tables)
            statements << actionsOf(table[0], table[1]);
        for (const QString &person : {u"ziu"_s, u"buh"_s, u"adm"_s}) {
            const QSet<qsizetype> refused = deniedOf(database(book), login(person), statements);
            for (qsizetype i = 0; i < statements.size(); ++i) {
                const bool allowed = rightsOn(tables[i / 5][0], person).contains(u"siud-"[i % 5]);
                EXPECT_EQ(refused.contains(i), !allowed)
                    << person.toStdString() << ": " << statements[i].toStdString();
            }
        }
    }
}

// A view that cannot be written to says so before it asks for a privilege: that is asked of the catalogue.
TEST_F(ServerRoles, ViewsAreOnlyReadAndNumbersOnlyDrawn)
{
    for (const QString &book : {u"fin"_s, u"ravl"_s}) {
        const auto named = [&](const QString &kind, const QString &condition = u"true"_s) {
            QStringList names;
            for (const QStringList &row :
                 listOf(of(book),
                        u"select relname from pg_class where relkind = '%1' and relnamespace = "
                        "'public'::regnamespace and %2 order by 1"_s.arg(kind, condition),
                        1))
                names << row[0];
            return names;
        };
        QStringList statements;
        QSet<qsizetype> denied, deniedToViewers;
        for (const QString &view : named(u"v"_s))
            statements << u"select * from "_s + view;
        ASSERT_GT(statements.size(), 3);
        for (const QString &sequence : named(u"S"_s)) {
            statements << u"select * from "_s + sequence << u"select nextval('%1')"_s.arg(sequence)
                       << u"select setval('%1', 1)"_s.arg(sequence);
            denied << statements.size() - 1;
            (sequence == u"bd_istorija_ist_id_seq" ? denied : deniedToViewers) << statements.size() - 2;
        }
        for (const QString &person : {u"ziu"_s, u"buh"_s, u"adm"_s}) {
            EXPECT_EQ(deniedOf(database(book), login(person), statements),
                      person == u"ziu" ? denied + deniedToViewers : denied)
                << person.toStdString();
            EXPECT_EQ(
                named(u"v"_s, u"has_table_privilege('%1', oid, 'insert, update, delete, truncate')"_s.arg(
                                  login(person))),
                QStringList());
        }
    }
}

TEST_F(ServerRoles, EachGroupCallsTheRoutinesThatAreItsOwn)
{
    for (const QString &book : {u"fin"_s, u"ravl"_s}) {
        // A call with nothing but nulls gets as far as the privilege.
        const QList<QStringList> routines =
            listOf(of(book),
                   u"select case when prokind = 'p' then 'call ' else 'select ' end || proname || '(' || "
                   "coalesce((select string_agg(case when provariadic <> 0 and nr = pronargs then 'variadic "
                   "' else '' end "
                   "|| 'null::' || format_type(t, null), ', ' order by nr) "
                   "from unnest(proargtypes::oid[]) with ordinality a (t, nr)), '') || ')', "
                   "case when proname like 'sys\\_prisijung%' "
                   "or proname in ('sys_irasyti_istorija', 'sys_istorija_visoms', 'sys_rutina_prasideda', "
                   "'sys_rutina_baigiasi', 'sys_rutina_savininko') or prosecdef and proname not in "
                   "('close_per', 'back_per', "
                   "'p_calcdbkrlik') then 'niekas' "
                   "when prokind = 'f' and provolatile <> 'v' then 'visi' else 'buhalteriai' end "
                   "from pg_proc where pronamespace = 'public'::regnamespace "
                   "and prorettype <> 'trigger'::regtype order by 1"_s,
                   2);
        ASSERT_GT(routines.size(), 10);
        QStringList statements;
        for (const QStringList &routine : routines)
            statements << routine[0];
        for (const QString &person : {u"ziu"_s, u"buh"_s, u"adm"_s}) {
            const QSet<qsizetype> refused = deniedOf(database(book), login(person), statements);
            for (qsizetype i = 0; i < statements.size(); ++i) {
                const QString &whose = routines[i][1];
                const bool allowed = whose == u"visi" || (whose == u"buhalteriai" && person != u"ziu");
                EXPECT_EQ(refused.contains(i), !allowed)
                    << person.toStdString() << ": " << statements[i].toStdString();
            }
        }
    }
}

TEST_F(ServerRoles, PasswordsAreReadByAdministratorsOnly)
{
    const QStringList statements{u"select usr_pasw from bd_usr"_s,
                                 u"select usr_id from bd_usr where usr_pasw like 's%'"_s,
                                 u"select bd_usr from bd_usr"_s, u"copy bd_usr to stdout"_s,
                                 u"select usr_id, usr_name, usr_user_admin from bd_usr"_s};
    for (const QString &person : {u"ziu"_s, u"buh"_s})
        EXPECT_EQ(deniedOf(database(u"ravl"_s), login(person), statements), QSet<qsizetype>({0, 1, 2, 3}));
    EXPECT_EQ(deniedOf(database(u"ravl"_s), login(u"adm"_s), statements), QSet<qsizetype>());
}

TEST_F(ServerRoles, NobodyKeepsHisChangesOutOfTheHistoryOrSignsAsAnother)
{
    psql(database(u"fin"_s), login(u"buh"_s),
         u"set velmora.rutina = 'taip'; set velmora.login = 'direktorius';"
         "insert into bd_objektai (obj_id, obj_pavad) values (77, 'Slapta');"_s);
    EXPECT_EQ(listOf(*fin, u"select ist_login from bd_istorija where ist_raktas = '77'"_s, 1),
              QList<QStringList>({{login(u"buh"_s)}}));
}

TEST_F(ServerRoles, NobodyKeepsARoutineOutOfTheHistory)
{
    fin->nativeExec(u"insert into bd_period values (1, 2025, 0, 0), (2, 2025, 1, 0), (3, 2025, 4, 3)"_s);
    const QString silence = u"set velmora.rutina = 'taip';"_s;
    psql(database(u"fin"_s), login(u"buh"_s),
         silence + u"call close_per(); call p_calcdbkrlik(null); call back_per();"_s);
    const QList<QStringList> records =
        listOf(*fin,
               u"select ist_lentele || ' ' || ist_veiksmas, count(*), min(ist_login) from bd_istorija "
               "where ist_lentele in ('bd_period', 'bd_saslik', 'bd_dbkrlik') group by 1 order by 1"_s,
               3);
    const QString buh = login(u"buh"_s);
    // A new year has its four quarters; each routine tells of the balances.
    EXPECT_EQ(records, QList<QStringList>({{u"bd_dbkrlik R"_s, u"3"_s, buh},
                                           {u"bd_period D"_s, u"6"_s, buh},
                                           {u"bd_period I"_s, u"6"_s, buh},
                                           {u"bd_saslik R"_s, u"2"_s, buh}}));
}

// Somebody who may make temporary tables puts one in the way: its trigger would run with the owner's rights.
TEST_F(ServerRoles, ATemporaryTableIsNotTakenForOneOfTheBooks)
{
    fin->nativeExec(u"insert into bd_period values (1, 2025, 0, 0), (2, 2025, 1, 0), (3, 2025, 4, 3)"_s);
    postgresExec(u"grant temporary on database %1 to %2"_s.arg(database(u"fin"_s), login(u"buh"_s)));
    const QString trap = u"create temporary table pedsakai (kas text);"
                         "grant insert on pedsakai to public;"
                         "create function pg_temp.gaudykle() returns trigger language plpgsql as "
                         "$$ begin insert into pg_temp.pedsakai values (current_user); return null; end $$;"
                         "create temporary table bd_dbkrlik (like public.bd_dbkrlik including indexes);"
                         "grant all on pg_temp.bd_dbkrlik to public;"
                         "create trigger gaudykle before insert or delete on pg_temp.bd_dbkrlik "
                         "for each statement execute function pg_temp.gaudykle();"_s;
    const QString told =
        u"select set_config('velmora.stotis', coalesce((select string_agg(kas, ' ') from pedsakai), "
        "'niekas'), false);"
        "insert into public.bd_objektai (obj_id, obj_pavad) values (%1, 'x');"_s;
    psql(database(u"fin"_s), login(u"buh"_s),
         trap + u"call close_per(); call p_calcdbkrlik(null); call back_per();"_s + told.arg(1));
    psql(database(u"fin"_s), login(u"buh"_s),
         u"create temporary table bd_istorija (i integer); set velmora.rutina = 'taip';"
         "set velmora.login = 'direktorius';"_s +
             told.arg(2).replace(u"pedsakai"_s, u"(select 'kas' as kas where false) s"_s));
    EXPECT_EQ(
        listOf(*fin,
               u"select ist_raktas, ist_login, ist_stotis from bd_istorija where ist_lentele = "
               "'bd_objektai' order by 1"_s,
               3),
        QList<QStringList>({{u"1"_s, login(u"buh"_s), u"niekas"_s}, {u"2"_s, login(u"buh"_s), u"niekas"_s}}));
    postgresExec(u"revoke temporary on database %1 from %2"_s.arg(database(u"fin"_s), login(u"buh"_s)));
}

TEST_F(ServerRoles, NobodySealsInAnothersName)
{
    const auto buh = session(u"fin"_s, u"buh"_s);
    const auto seal = [&](int number, const QString &whose) {
        buh->nativeExec(u"insert into bd_antspaudai values (%1, '2026-01-01', %2, null, 'Uždarymas', null, "
                        "'[]', '{}', '{}', 'x')"_s.arg(number)
                            .arg(whose));
    };
    EXPECT_THROW(seal(101, u"'direktorius'"_s), EDatabaseError);
    EXPECT_THROW(seal(102, u"null"_s), EDatabaseError);
    EXPECT_NO_THROW(seal(103, TDatabase::quoted(login(u"buh"_s))));
}

TEST_F(ServerRoles, NobodyButTheOwnerMakesObjects)
{
    const QStringList statements{u"create table x (i integer)"_s,
                                 u"create temporary table x (i integer)"_s,
                                 u"create schema x"_s,
                                 u"create role x"_s,
                                 u"drop table bd_kdv"_s,
                                 u"alter table bd_usr disable trigger all"_s,
                                 u"set session_replication_role = replica"_s};
    EXPECT_EQ(deniedOf(database(u"ravl"_s), login(u"adm"_s), statements).size(), statements.size());
}

TEST_F(ServerRoles, AnotherInstitutionsBooksAreShut)
{
    const TestPlace other(Engine::PostgreSql);
    createBooks(*other.store(), [](const QString &) {});
    for (const TSessionSettings &book : {other.store()->books().fin, other.store()->books().ravl}) {
        const QStringList said = psql(databaseOf(book.connInfo), login(u"adm"_s), u"select 1;"_s);
        EXPECT_TRUE(said.join(u' ').contains(u"permission denied for database"))
            << said.join(u' ').toStdString();
    }
}

TEST_F(ServerRoles, ABookkeeperGivesWorkPlacesToAdministratorsOnly)
{
    ravl->nativeExec(u"insert into bd_fin (fin_id, fin_pavad) values (1, 'Biudžetas');"
                     "insert into bd_usrkdv values (2, 1, 3)"_s);
    const auto buh = session(u"ravl"_s, u"buh"_s);
    EXPECT_THROW(buh->nativeExec(u"update bd_usrkdv set udv_kdv = 7 where udv_usrid = 2"_s), EDatabaseError);
    EXPECT_THROW(buh->nativeExec(u"insert into bd_usrkdv values (3, 1, 1)"_s), EDatabaseError);
    EXPECT_THROW(buh->nativeExec(u"update bd_usrkdv set udv_usrid = 3"_s), EDatabaseError);
    buh->nativeExec(u"update bd_usrkdv set udv_kdv = 1 where udv_usrid = 2"_s);
    buh->nativeExec(u"insert into bd_usrkdv values (1, 1, 5)"_s);
    buh->nativeExec(u"update bd_usrkdv set udv_kdv = 7 where udv_usrid = 1"_s);
    EXPECT_EQ(listOf(*ravl, u"select udv_usrid, udv_kdv from bd_usrkdv order by 1"_s, 2),
              QList<QStringList>({{u"1"_s, u"7"_s}, {u"2"_s, u"1"_s}}));
}

TEST(ServerRolesOfDemoBooks, ABookkeeperClosesAndRollsBackWithSealsAndHistory)
{
    TestPlace place(Engine::PostgreSql);
    createDemoBooks(*place.store(), 1, [](const QString &) {});
    const QString main = databaseOf(place.store()->books().fin.connInfo);
    const QString login = u"b"_s + main.mid(1).remove(u"_fin"_s);
    postgresExec(u"create role %1 login password 'slapta' in role %2_buhalteriai"_s.arg(login, main));
    const auto opened = [&](TSessionSettings settings) {
        settings.connInfo.replace(u"user=velmora"_s, u"user=%1 password=slapta"_s.arg(login));
        auto db = std::make_unique<TDatabase>(settings);
        db->Open();
        keepHistory(*db, {login, u"stotis1"_s});
        return db;
    };
    {
        const auto fin = opened(place.store()->books().fin);
        const auto ravl = opened(place.store()->books().ravl);
        const qlonglong month = fin->fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong();
        for (const bool closes : {true, false}) {
            TTransaction ofFin(fin.get());
            fin->ExecSQL(closes ? u"call Close_Per()"_s : u"call Back_Per()"_s);
            appendSeal(*fin, closes ? TSealEvent::Close : TSealEvent::RollBack, month);
            ofFin.commit();
            appendSeal(*ravl, closes ? TSealEvent::Close : TSealEvent::RollBack, month);
        }
        fin->ExecSQL(u"call p_CalcDBKRLik(null)"_s);
        fin->ExecSQL(u"call updMatAsmUnq()"_s);
        fin->nativeExec(u"update bd_pad set pad_pavad = pad_pavad || '.'"_s);
        EXPECT_GT(fin->fieldResult(u"select count(*) from bd_istorija where ist_login = :login"_s,
                                   {{u"login"_s, login}})
                      .toInt(),
                  5);
    }
    EXPECT_EQ(checkBooks(*place.store(), [](const QString &) {}), QStringList());
}
