#include "database/demo/demo_books.h"
#include "database/demo/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

// Copies a resource into the table of its name; a value "@number" is the id of that account.
void fillTable(TDemoBooks &books, TDatabase &db, const QString &folder, const QString &table)
{
    const TDemoText text = TDemoText::read(folder + u'/' + table);
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

// The number of the account whose sub-account this is; empty for a class.
QString parentOf(const TDemoBooks &books, const QString &number)
{
    for (qsizetype length = number.size() - 1; length > 0; --length) {
        if (books.accounts.contains(number.first(length)))
            return number.first(length);
    }
    return {};
}

} // namespace

void fillAccounts(TDemoBooks &books)
{
    const TDemoText text = TDemoText::read(u"fin/bd_sasplan"_s);
    int id = 0;
    for (const QStringList &row : text.rows)
        books.accounts.insert(row.first(), ++id);
    QStringList summaries;
    for (const QStringList &row : text.rows)
        summaries.append(parentOf(books, row.first()));
    TRowWriter writer(books.fin, u"bd_sasplan"_s, u"sas_id,sas_sasnr,sas_pavad,sas_tip,sas_tevid"_s);
    for (const QStringList &row : text.rows) {
        const QString &number = row.first();
        const QString parent = parentOf(books, number);
        const bool detail = !summaries.contains(number);
        if (detail)
            books.details.append(number);
        writer.add({books.account(number), number, row.last(), detail ? u"D"_s : u"S"_s,
                    parent.isEmpty() ? demoNull : books.account(parent)});
    }
    writer.flush();
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
        for (const QString &account : TDemoText::read(table).column(column))
            ids.insert(account.sliced(1), ++id);
    };
    remember(u"fin/bd_kasos"_s, u"kas_sasid"_s, books.cashDesks);
    remember(u"fin/bd_einsas"_s, u"ein_sasid"_s, books.bankAccounts);
}

void fillBudget(TDemoBooks &books)
{
    fillMunicipalities(books, books.ravl);
    for (const QString &table : {u"bd_kdv"_s, u"bd_fin"_s, u"bd_usr"_s, u"bd_usrkdv"_s})
        fillTable(books, books.ravl, u"ravl"_s, table);
}
