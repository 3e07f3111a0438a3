// People, counterparties with their contracts, and fixed assets.

#include "database/demo/demo_books.h"
#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int partiesPerSize = 300;
constexpr int accountablePersons = 25;
constexpr int responsiblePersons = 18;
constexpr int assets = 80;

// A number as text of a fixed length with zeros in front.
QString padded(qint64 number, int length)
{
    return u"%1"_s.arg(number, length, 10, QLatin1Char('0'));
}

// A bank account number of a bank that does not exist, with right check digits.
QString bankAccount(qint64 serial)
{
    const QString body = u"99%1"_s.arg(padded(serial, 14));
    int rest = 0;
    for (const QChar digit :
         body + u"212900"_s) // the letters L and T as numbers, and the two check digits as zeros
        rest = (rest * 10 + digit.digitValue()) % 97;
    return u"LT"_s + padded(98 - rest, 2) + body;
}

QString companyName(TDemoBooks &books)
{
    static const TTableText words = TTableText::read(u"demo/imoniu_zodziai"_s);
    static const QStringList owners = words.column(u"kilmininkas"_s);
    static const QStringList nouns = words.column(u"daiktavardis"_s);
    static const QStringList forms{u"UAB"_s, u"UAB"_s, u"UAB"_s, u"MB"_s, u"VšĮ"_s, u"IĮ"_s, u"ŽŪB"_s};
    const QString form = books.random.anyOf(forms);
    const QString owner = books.random.anyOf(owners);
    return u"%1 „%2 %3“"_s.arg(form, owner, books.random.anyOf(nouns));
}

QString address(TDemoBooks &books)
{
    static const TTableText words = TTableText::read(u"demo/imoniu_zodziai"_s);
    static const QStringList streets = words.column(u"gatve"_s);
    static const QStringList towns = words.column(u"miestas"_s);
    const QString street = books.random.anyOf(streets);
    const int house = books.random.between(1, 99);
    return u"%1 g. %2, %3"_s.arg(street).arg(house).arg(books.random.anyOf(towns));
}

// The accounts that counterparties stand on; parents who pay for meals are every fifth.
const QString &partyAccount(TDemoBooks &books, int id)
{
    static const QStringList suppliers{u"6910001"_s, u"6910002"_s, u"6910003"_s, u"6910004"_s, u"6910006"_s};
    static const QStringList payers{u"2260001"_s, u"2260002"_s, u"2260004"_s};
    return id % 5 == 0 ? books.random.anyOf(payers) : books.random.anyOf(suppliers);
}

QStringList partyRow(TDemoBooks &books, int id, const QString &account)
{
    static const TTableText banks = TTableText::read(u"demo/fin/bd_bankai"_s);
    const bool person = account.startsWith(u'2');
    const QStringList &bank = books.random.anyOf(banks.rows);
    const QString code = person ? tableNull : QString::number(990600000 + id);
    const bool vat = !person && books.random.chance(60);
    const QString name = person ? books.personName() : companyName(books);
    return {QString::number(id),
            (person ? u"M"_s : u"T"_s) + padded(id, 6),
            name,
            address(books),
            u"+37060"_s + padded(id % 1000000, 6),
            code,
            vat ? u"LT"_s + code : tableNull,
            bankAccount(id),
            bank.at(0),
            bank.at(2),
            books.account(account),
            books.account(account),
            books.random.chance(20) ? u"KL-%1"_s.arg(id) : tableNull};
}

void fillContracts(TDemoBooks &books, int count)
{
    TRowWriter writer(books.fin, u"bd_dbkrsut"_s, u"dks_dkaid,dks_nr,dks_nuo,dks_iki,dks_tipas,dks_suma"_s);
    for (int id = 1; id <= count; id += 4) {
        const bool monthly = books.random.chance(50);
        writer.add({QString::number(id), u"S-%1/26"_s.arg(id), u"2026-01-%1"_s.arg(padded(1 + id % 28, 2)),
                    u"2026-12-31"_s, monthly ? u"M"_s : u"B"_s,
                    amountText(qint64(books.random.between(5, 900)) * (monthly ? 1000 : 12000))});
    }
    writer.flush();
}

} // namespace

void fillPersons(TDemoBooks &books)
{
    books.accountable = accountablePersons;
    TRowWriter accountable(books.fin, u"bd_atsasm"_s, u"ats_id,ats_pav,ats_asm_kod,ats_sasid,ats_prgid"_s);
    for (int id = 1; id <= accountablePersons; ++id)
        accountable.add({QString::number(id), books.personName(), books.personCode(),
                         books.account(id % 2 ? u"2290001"_s : u"6920007"_s),
                         QString::number(books.random.between(1, 24))});
    accountable.flush();

    books.responsible = responsiblePersons;
    TRowWriter responsible(books.fin, u"bd_matasm"_s, u"mat_id,mat_pavad,mat_asm_kod,mat_padid,mat_prgid"_s);
    QStringList last;
    for (int id = 1; id <= responsiblePersons; ++id) {
        last = {QString::number(id), books.personName(), books.personCode(),
                QString::number(books.random.between(1, 10)), QString::number(books.random.between(1, 24))};
        responsible.add(last);
    }
    // The same person entered once more, so that merging has something to merge.
    last[0] = QString::number(++books.responsible);
    last[1] = last.at(1).toUpper();
    responsible.add(last);
    responsible.flush();
}

void fillCounterparties(TDemoBooks &books)
{
    const int count = partiesPerSize * books.size;
    TRowWriter writer(
        books.fin, u"bd_dbkrasm"_s,
        u"dka_id,dka_kod,dka_pavad,dka_adr,dka_tel,dka_i_kod,dka_pvm_kod,dka_ein_sas,dka_bank_kod,"
        u"dka_bank_pav,dka_sasid,dka_sasid_2,dka_klient_infsist"_s);
    for (int id = 1; id <= count; ++id) {
        const QString account = partyAccount(books, id);
        writer.add(partyRow(books, id, account));
        books.parties[account].append({id, account});
    }
    writer.flush();
    fillContracts(books, count);
}

void fillAssets(TDemoBooks &books)
{
    static const QStringList names{
        u"Mokyklinė lenta"_s,     u"Kompiuteris"_s, u"Spausdintuvas"_s,    u"Suolas"_s,       u"Šaldytuvas"_s,
        u"Gimnastikos sienelė"_s, u"Mikroskopas"_s, u"Rašomasis stalas"_s, u"Projektorius"_s, u"Pianinas"_s};
    static const QStringList accounts{u"1207001"_s, u"1205001"_s, u"1208001"_s};
    TRowWriter writer(
        books.fin, u"it_turtas"_s,
        u"tur_id,tur_inv_nr,tur_pavad,tur_pitid,tur_patid,tur_lvid,tur_matid,tur_objid,tur_sasid,"
        u"tur_isigyta,tur_nurasyta,tur_suma"_s);
    for (int id = 1; id <= assets; ++id) {
        const bool gone = id % 16 == 0;
        const int year = books.random.between(2009, 2025);
        writer.add({QString::number(id), u"IT-%1"_s.arg(padded(id, 5)), names.at(id % names.size()),
                    QString::number(books.random.between(1, 5)),
                    gone ? QString::number(books.random.between(1, 4)) : tableNull,
                    QString::number(books.random.between(1, 23)),
                    QString::number(books.random.between(1, responsiblePersons)),
                    QString::number(books.random.between(1, 8)), books.account(books.random.anyOf(accounts)),
                    u"%1-%2-15"_s.arg(year).arg(padded(books.random.between(1, 12), 2)),
                    gone ? u"2025-11-30"_s : tableNull,
                    amountText(qint64(books.random.between(200, 4000)) * 100)});
    }
    writer.flush();
}
