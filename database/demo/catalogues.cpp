#include "database/demo/demo_books.h"
#include "database/filling/common_tables.h"
#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

// Copies a resource into the table of its name; a value "@number" is the id of that account.
void fillTable(TDemoBooks &books, TDatabase &db, const QString &folder, const QString &table)
{
    const TTableText text = TTableText::read(u"demo/%1/%2"_s.arg(folder, table));
    TRowWriter writer(db, table, text.columns.join(u','));
    for (QStringList row : text.rows) {
        for (QString &value : row) {
            if (value.startsWith(u'@'))
                value = books.account(value.sliced(1));
        }
        writer.add(row);
    }
    writer.flush();
}

// The schema may bring the municipalities itself.
void fillMunicipalities(TDemoBooks &books, TDatabase &db)
{
    if (db.fieldResult(u"select count(*) from bd_savivaldybes"_s).toLongLong() == 0)
        fillTable(books, db, u"fin"_s, u"bd_savivaldybes"_s);
}

} // namespace

void fillAccounts(TDemoBooks &books)
{
    const QList<TCode> accounts = accountTree(TTableText::read(u"demo/fin/bd_sasplan"_s));
    for (const TCode &account : accounts) {
        books.accounts.insert(account.code, int(books.accounts.size()) + 1);
        if (account.leaf)
            books.details.append(account.code);
    }
    writeAccounts(books.fin, accounts);
}

void fillCatalogues(TDemoBooks &books)
{
    fillMunicipalities(books, books.fin);
    const QStringList tables{u"bd_bankai"_s,  u"du_drbklas"_s, u"bd_tarn"_s,
                             u"bd_prg"_s,     u"du_veikl"_s,   u"bd_objektai"_s,
                             u"bd_fun"_s,     u"bd_asgisl"_s,  u"bd_pajamurusiukodai"_s,
                             u"pp_imok"_s,    u"bd_pad"_s,     u"bd_laikymo_vieta"_s,
                             u"bd_kasos"_s,   u"bd_einsas"_s,  u"bd_nuomasm"_s,
                             u"it_pardtip"_s, u"it_pirktip"_s, u"bd_org"_s};
    for (const QString &table : tables)
        fillTable(books, books.fin, u"fin"_s, table);
    const auto remember = [](const QString &table, const QString &column, QHash<QString, int> &ids) {
        int id = 0;
        for (const QString &account : TTableText::read(table).column(column))
            ids.insert(account.sliced(1), ++id);
    };
    remember(u"demo/fin/bd_kasos"_s, u"kas_sasid"_s, books.cashDesks);
    remember(u"demo/fin/bd_einsas"_s, u"ein_sasid"_s, books.bankAccounts);
}

void fillBudget(TDemoBooks &books)
{
    fillMunicipalities(books, books.ravl);
    for (const QString &table : {u"bd_kdv"_s, u"bd_fin"_s, u"bd_usr"_s, u"bd_usrkdv"_s})
        fillTable(books, books.ravl, u"ravl"_s, table);
}
