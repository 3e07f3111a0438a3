// Balances at the start of work.

#include "database/demo/demo_books.h"
#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

const QString startOfWork = u"6"_s;
constexpr char16_t surplusAccount[] = u"3100002";

// Whether an account usually stands on the credit side: financing received, liabilities, and what is taken
// off the value of assets.
bool standsOnCredit(const QString &number)
{
    switch (number.front().unicode()) {
    case u'1':
        return number.endsWith(u"002"_s) || number.endsWith(u"003"_s);
    case u'2':
        return number == u"2290009";
    case u'4':
        return number.endsWith(u"0001"_s);
    default:
        return true;
    }
}

// The cents of an account that no counterparty makes up; 0 when it has no balance at the beginning of a year.
qint64 openingOf(TDemoBooks &books, const QString &number)
{
    const QChar kind = number.front();
    if (kind > u'6' || kind == u'3' || number.startsWith(u"691"_s) || books.parties.contains(number))
        return 0;
    if (books.random.chance(25))
        return 0;
    const qint64 cents = books.random.between(1000, 9999999);
    if (kind == u'1')
        return number.endsWith(u"002"_s) ? cents / 20 : number.endsWith(u"003"_s) ? cents * 2 : cents * 8;
    return kind == u'4' && number.endsWith(u"0001"_s) ? cents * 6 : cents;
}

struct TOpening {
    TRowWriter writer;
    TDemoBooks &books;
    qint64 difference = 0; // debit above credit
    int id = 0;

    void add(const QString &number, qint64 debit)
    {
        if (debit == 0)
            return;
        difference += debit;
        writer.add({QString::number(++id), books.account(number), startOfWork, amountText(qMax(debit, 0LL)),
                    amountText(qMax(-debit, 0LL))});
    }
};

// Balances of counterparties; their sum is the balance of the account.
qint64 fillPartyBalances(TDemoBooks &books, TRowWriter &writer, const QString &number, int &id)
{
    const bool credit = number.startsWith(u'6');
    qint64 total = 0;
    for (const TDemoParty &party : books.parties.value(number)) {
        if (books.random.chance(40))
            continue;
        const qint64 cents = books.random.between(100, 250000);
        const QString department =
            books.random.chance(30) ? QString::number(books.random.between(1, 10)) : tableNull;
        total += credit ? -cents : cents;
        writer.add({QString::number(++id), startOfWork, QString::number(party.id),
                    amountText(credit ? 0 : cents), amountText(credit ? cents : 0), department});
    }
    return total;
}

void fillExpenses(TDemoBooks &books)
{
    TRowWriter writer(books.fin, u"bd_isllik"_s,
                      u"sml_id,sml_perid,sml_jveid,sml_asig_db,sml_kas_db,sml_fak_db"_s);
    for (qsizetype i = 0; i < books.nodes.size(); i += 3) {
        const qint64 cents = books.random.between(1000, 999999);
        writer.add({QString::number(i / 3 + 1), startOfWork, QString::number(books.nodes.at(i)),
                    amountText(cents * 2), amountText(cents), amountText(cents + cents / 10)});
    }
    writer.flush();
}

} // namespace

void fillOpeningBalances(TDemoBooks &books)
{
    TOpening opening{{books.fin, u"bd_saslik"_s, u"ssl_id,ssl_sasid,ssl_perid,ssl_sum_db,ssl_sum_kr"_s},
                     books};
    TRowWriter parties(books.fin, u"bd_dbkrlik"_s,
                       u"dkl_id,dkl_perid,dkl_dkaid,dkl_sum_db,dkl_sum_kr,dkl_padid"_s);
    int partyBalance = 0;
    for (const QString &number : books.details) {
        if (books.parties.contains(number)) {
            opening.add(number, fillPartyBalances(books, parties, number, partyBalance));
        } else {
            const qint64 cents = openingOf(books, number);
            opening.add(number, standsOnCredit(number) ? -cents : cents);
        }
    }
    parties.flush();
    opening.add(QString::fromUtf16(surplusAccount), -opening.difference);
    opening.writer.flush();
    fillExpenses(books);
}
