#include "bench/party_books.h"

#include "bench/child.h"
#include "database/tool/keeping/keeper.h"

using namespace Qt::StringLiterals;

namespace {

void fill(TDatabase &fin, int rows)
{
    const QString source =
        fin.engine() == Engine::Sqlite
            ? u"(with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) select i from n) n"_s
            : u"generate_series(1, %1) n(i)"_s;
    TTransaction tran(&fin);
    fin.nativeExec(u"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) values "
                   "(1, '221', 'Pirkėjų skolos', 'D'), (2, '431', 'Skolos tiekėjams', 'D')"_s);
    fin.nativeExec(
        u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_adr, dka_tel, dka_i_kod, "
        "dka_pvm_kod, dka_ein_sas, dka_bank_kod, dka_bank_pav, dka_sasid, dka_sasid_2, "
        "dka_klient_infsist) "
        "select i, 'K' || i, 'Įmonė „Žąsų ' || ((cast(i as bigint) * 7919) % 1000003) || ' ūkis“', "
        "'Šiaulių g. ' || (i % 200) || ', Kėdainiai', '+370' || (60000000 + i), 300000000 + i, "
        "'LT' || (100000000 + i), 'LT64704400' || (1000000000 + i), 70000 + i % 9, "
        "'Bankas Nr. ' || (i % 9), 1, 2, 'Klientas ' || i from "_s +
        source.arg(rows));
    tran.commit();
    fin.nativeExec(u"analyze"_s);
}

} // namespace

PartyBooks::PartyBooks(Engine engine, int rows) : place(engine)
{
    createBooks(place.store(), [](const QString &) {});
    if (rows == 0)
        return;
    TDatabase fin(books().fin);
    fin.Open();
    fill(fin, rows);
}

double PartyBooks::inShell(const QByteArray &statements) const
{
    if (books().fin.engine == Engine::Sqlite)
        return runChild(u"sqlite3"_s, {u"-bail"_s, books().fin.file},
                        "pragma synchronous = full;\n" + statements);
    return runChild(u"psql"_s, {u"-qX"_s, u"-v"_s, u"ON_ERROR_STOP=1"_s, books().fin.connInfo}, statements);
}

QString partyList()
{
    return u"select DKA_ID, DKA_KOD, DKA_PAVAD, DKA_ADR, DKA_TEL, DKA_I_KOD, DKA_PVM_KOD, DKA_EIN_SAS, "
           "DKA_BANK_KOD, DKA_BANK_PAV, DKA_SASID, DKA_KLIENT_INFSIST from BD_DBKRASM ORDER BY DKA_PAVAD"_s;
}
