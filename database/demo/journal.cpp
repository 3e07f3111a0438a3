// The entries of a month: each document debits one account and credits another by the same amount.

#include "database/demo/demo_books.h"
#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int documentsPerSize = 180;

// What a line refers to besides its account, in the order of the columns; null where it does not.
struct TLine {
    QString party = tableNull;
    QString node = tableNull;
    qint64 cash = 0;   // cash expenses
    qint64 actual = 0; // factual expenses
    QString responsible = tableNull;
    QString accountable = tableNull;
    QString cashDesk = tableNull;
    QString bankAccount = tableNull;
};

TLine describe(TDemoBooks &books, const QString &number, bool debit, qint64 cents)
{
    TLine line;
    if (books.parties.contains(number))
        line.party = QString::number(books.random.anyOf(books.parties[number]).id);
    if (number.startsWith(u"87"_s)) {
        line.node = QString::number(books.random.anyOf(books.nodes));
        line.actual = cents;
    }
    if (books.bankAccounts.contains(number)) {
        line.bankAccount = QString::number(books.bankAccounts.value(number));
        if (!debit) {
            line.node = QString::number(books.random.anyOf(books.nodes));
            line.cash = cents;
        }
    }
    if (books.cashDesks.contains(number))
        line.cashDesk = QString::number(books.cashDesks.value(number));
    if (number.startsWith(u"203"_s) || number.startsWith(u"204"_s))
        line.responsible = QString::number(books.random.between(1, books.responsible));
    if (number == u"2110003")
        line.accountable = QString::number(books.random.between(1, books.accountable));
    return line;
}

} // namespace

void fillMonth(TDemoBooks &books, int month, qlonglong period)
{
    static const TTableText operations = TTableText::read(u"demo/operacijos"_s);
    TRowWriter writer(
        books.fin, u"bd_irasai"_s,
        u"irs_id,irs_perid,irs_data,irs_dok,irs_sasid,irs_sum_db,irs_sum_kr,irs_dkaid,irs_jveid,"
        u"irs_kas_db,irs_fak_db,irs_matid,irs_atsid,irs_kasid,irs_einid"_s);
    const int documents = documentsPerSize * books.size;
    qlonglong id = qlonglong(month - 1) * documents * 2;
    for (int document = 1; document <= documents; ++document) {
        const QStringList &operation = books.random.anyOf(operations.rows);
        const qint64 cents = books.random.between(50, 150000);
        const QString date = u"2026-%1-%2"_s.arg(month, 2, 10, QLatin1Char('0'))
                                 .arg(books.random.between(1, 28), 2, 10, QLatin1Char('0'));
        for (const bool debit : {true, false}) {
            const QString number = books.random.anyOf(operation.at(debit ? 1 : 2).split(u','));
            const TLine line = describe(books, number, debit, cents);
            writer.add({QString::number(++id), QString::number(period), date,
                        u"D%1-%2"_s.arg(month).arg(document), books.account(number),
                        amountText(debit ? cents : 0), amountText(debit ? 0 : cents), line.party, line.node,
                        amountText(line.cash), amountText(line.actual), line.responsible, line.accountable,
                        line.cashDesk, line.bankAccount});
        }
    }
    writer.flush();
}
