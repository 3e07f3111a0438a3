#include "tests/database/routines_books.h"

using namespace Qt::StringLiterals;

void SmallBooks::SetUp()
{
    OnBothEngines::SetUp();
    run(u"insert into bd_sasplan values (1, '2411', 'Kasa', 'D', NULL)"_s);
    run(u"insert into bd_sasplan values (2, '2264', 'Gautinos sumos', 'D', NULL)"_s);
    run(u"insert into bd_sasplan values (3, '6920', 'Mokėtinos sumos', 'D', NULL)"_s);
    run(u"insert into bd_asgisl values (1, 'Ekonominė klasifikacija')"_s);
    run(u"insert into bd_jve values (10, 1, NULL, '2.1', 'Darbo užmokestis', 1)"_s);
    run(u"insert into bd_jve values (11, 1, NULL, '2.2', 'Prekės', 1)"_s);
    run(u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
        "values (5, 'A1', 'UAB „Ąžuolas“', 2, 3)"_s);
    run(u"insert into bd_pad (pad_id, pad_pavad) values (1, 'Raštinė')"_s);
    run(u"insert into bd_prg (prg_id, prg_pavad) values (1, 'Sargas')"_s);
}

void SmallBooks::startOfWork(int year, int month)
{
    for (int quarter = 0; quarter <= 4; ++quarter)
        run(u"insert into bd_period values (%1, %2, %3, 0)"_s.arg(quarter + 1).arg(year).arg(quarter));
    run(u"insert into bd_period values (6, %1, %2, %3)"_s.arg(year)
            .arg((month - 1) / 3 + 1)
            .arg((month - 1) % 3 + 1));
}

void SmallBooks::close(int months)
{
    for (int i = 0; i < months; ++i)
        run(u"call Close_Per()"_s);
}

void SmallBooks::balance(int account, int period, double debit, double credit)
{
    const QString key = one(u"select max(ssl_id) from bd_saslik"_s);
    mnFin_Db->ExecSQL(u"insert into bd_saslik values (:id, :sas, :per, :db, :kr)"_s,
                      {{u"id"_s, key.toInt() + 1},
                       {u"sas"_s, account},
                       {u"per"_s, period},
                       {u"db"_s, debit},
                       {u"kr"_s, credit}});
}

void SmallBooks::entry(int account, int period, double debit, double credit)
{
    const QString key = one(u"select max(irs_id) from bd_irasai"_s);
    mnFin_Db->ExecSQL(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_sum_kr) "
                      "values (:id, :per, :sas, :db, :kr)"_s,
                      {{u"id"_s, key.toInt() + 1},
                       {u"per"_s, period},
                       {u"sas"_s, account},
                       {u"db"_s, debit},
                       {u"kr"_s, credit}});
}

QString SmallBooks::errorOf(const QString &statement)
{
    try {
        if (statement.startsWith(u"select"))
            mnFin_Db->fieldResult(statement);
        else
            run(statement);
    } catch (const EDatabaseError &error) {
        return error.message();
    }
    ADD_FAILURE() << statement.toStdString() << " raised no error";
    return {};
}
