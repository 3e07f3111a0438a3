// Structures over the accounts and the budget: classification, balance-sheet form, operations, estimates,
// periods.

#include "database/demo/demo_books.h"
#include "database/filling/common_tables.h"
#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int bookCount = 3;

// The numbers of the detail accounts under the given beginnings, which stand between commas.
QStringList accountsUnder(const TDemoBooks &books, const QString &beginnings)
{
    QStringList found;
    for (const QString &beginning : beginnings.split(u',', Qt::SkipEmptyParts)) {
        for (const QString &number : books.details) {
            if (number.startsWith(beginning))
                found.append(number);
        }
    }
    return found;
}

// The economic classification once under a function of a book.
void fillEconomic(TDemoBooks &books, TRowWriter &writer, int book, int functionNode, int &id)
{
    const QList<TCode> codes = codeTree(TTableText::read(u"demo/ekonomine"_s));
    const int first = id + 1;
    for (const TCode &code : codes) {
        const qsizetype parent = code.parent < 0 ? functionNode : first + code.parent;
        writer.add({QString::number(++id), QString::number(book), QString::number(parent), code.code,
                    code.name, code.leaf ? u"1"_s : u"0"_s});
        if (code.leaf)
            books.nodes.append(id);
    }
}

void fillForm(TDemoBooks &books, TDatabase &db, const QString &accountColumn, bool byNumber)
{
    const TTableText text = TTableText::read(u"demo/balanso_forma"_s);
    TRowWriter lines(db, u"bd_baleil"_s, u"bel_kod,bel_pavad"_s);
    for (const QStringList &row : text.rows)
        lines.add({row.at(0), row.at(1)});
    lines.flush();
    TRowWriter accounts(db, u"bd_balsas"_s, u"bss_balkod,%1,bss_tip"_s.arg(accountColumn));
    for (const QStringList &row : text.rows) {
        for (const QString &number : accountsUnder(books, row.at(2)))
            accounts.add({row.at(0), byNumber ? number : books.account(number), u"D"_s});
    }
    accounts.flush();
}

} // namespace

void fillClassification(TDemoBooks &books)
{
    const TTableText functions = TTableText::read(u"demo/fin/bd_fun"_s);
    TRowWriter writer(books.fin, u"bd_jve"_s, u"jve_id,jve_islid,jve_tevid,jve_kodas,jve_pavad,jve_duom"_s);
    int id = 0;
    for (int book = 1; book <= bookCount; ++book) {
        for (const QStringList &function : functions.rows) {
            if (function.at(1) == tableNull)
                continue;
            const int node = ++id;
            writer.add({QString::number(node), QString::number(book), tableNull, function.at(2),
                        function.at(3), u"0"_s});
            fillEconomic(books, writer, book, node, id);
        }
    }
    writer.flush();
}

void fillFormAndOperations(TDemoBooks &books)
{
    fillForm(books, books.fin, u"bss_sasid"_s, false);
    fillForm(books, books.ravl, u"bss_sasnr"_s, true);
    const TTableText text = TTableText::read(u"demo/operacijos"_s);
    TRowWriter operations(books.fin, u"bd_opr"_s, u"opr_id,opr_pavad"_s);
    for (qsizetype i = 0; i < text.rows.size(); ++i)
        operations.add({QString::number(i + 1), text.rows.at(i).first()});
    operations.flush();
    TRowWriter accounts(books.fin, u"bd_oprsaskor"_s, u"osk_oprid,osk_sasid,osk_db_kr,osk_1_2"_s);
    for (qsizetype i = 0; i < text.rows.size(); ++i) {
        for (int side = 1; side <= 2; ++side) {
            for (const QString &number : text.rows.at(i).at(side).split(u','))
                accounts.add(
                    {QString::number(i + 1), books.account(number), side == 1 ? u"D"_s : u"K"_s, u"1"_s});
        }
    }
    accounts.flush();
}

void fillPeriods(TDemoBooks &books)
{
    writeStartOfWork(books.fin, 2026, 1);
}

void fillEstimates(TDemoBooks &books)
{
    TRowWriter estimates(books.fin, u"bd_samatos"_s, u"sam_id,sam_jveid,sam_perid,sam_samata"_s);
    QList<int> yearly;
    int id = 0;
    for (qsizetype i = 0; i < books.nodes.size(); i += 4) {
        const QString node = QString::number(books.nodes.at(i));
        const qint64 quarter = qint64(books.random.between(200, 9000)) * 10000;
        yearly.append(++id);
        estimates.add({QString::number(id), node, u"1"_s, amountText(quarter * 4)});
        for (int k = 1; k <= 4; ++k)
            estimates.add({QString::number(++id), node, QString::number(1 + k), amountText(quarter)});
    }
    estimates.flush();
    TRowWriter corrections(
        books.fin, u"bd_samkor"_s,
        u"sak_id,sak_samid,sak_data,sak_doknr,sak_i_ketv,sak_ii_ketv,sak_iii_ketv,sak_iv_ketv"_s);
    for (qsizetype i = 0; i < yearly.size(); i += 3) {
        const qint64 moved = qint64(books.random.between(1, 90)) * 1000;
        corrections.add({QString::number(i / 3 + 1), QString::number(yearly.at(i)),
                         u"2026-04-%1"_s.arg(10 + i % 18), u"SK-%1"_s.arg(100 + i), u"0"_s,
                         u'-' + amountText(moved), amountText(moved), amountText(moved)});
    }
    corrections.flush();
}
