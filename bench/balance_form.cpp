// The balance-sheet form opened, shown and saved: 300 lines with 250 accounts, and 10,000 lines on its three
// sides, beside a bare insert of the same rows.
//
//   bench_balance_form [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/party_books.h"
#include "host/data/main_datas.h"
#include "src/accounts/Balans.h"
#include "toolkit/data/statement.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int accountCount = 250;
constexpr int detailsOfGroup = 50;
constexpr int rounds = 5;

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

void addAccounts(TDatabase &fin)
{
    const auto account = fin.prepare(u"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                                     "values (:id, :nr, :pavad, 'D')"_s);
    TTransaction tran(&fin);
    for (int i = 1; i <= accountCount; ++i) {
        account->bind(u"id"_s, 100 + i);
        account->bind(u"nr"_s, QString::number(2000000 + i));
        account->bind(u"pavad"_s, u"Sąskaita Nr. %1"_s.arg(i));
        account->exec();
    }
    tran.commit();
}

// A form of about so many lines, a third on each side, one account to every detail.
void fillForm(TDatabase &fin, int lines)
{
    const Balans::TAccountIds accounts(fin);
    Balans::TBalForm form;
    int account = 0;
    for (const Balans::TBalSide side : Balans::allSides) {
        Balans::TBalSheet sheet{{u"IŠ VISO"_s, Balans::TBalKind::SideTotal}};
        while (int(sheet.size()) < lines / Balans::sideCount) {
            sheet.push_back({u"Grupė"_s, Balans::TBalKind::GroupTotal});
            for (int i = 0; i < detailsOfGroup && int(sheet.size()) < lines / Balans::sideCount; ++i)
                sheet.push_back({u"Eilutė Nr. %1 (%2)"_s.arg(i).arg(2000001 + account++ % accountCount),
                                 Balans::TBalKind::Detail});
        }
        form[std::size_t(side)] = Balans::encodeSheet(side, sheet, accounts.known());
    }
    TTransaction tran(&fin);
    Balans::TBalStore(&fin, false).SaveBal(form, accounts);
    tran.commit();
    fin.nativeExec(u"analyze"_s); // a server does so by itself before long
}

// The rows of both tables deleted and inserted again by prepared statements, and nothing else.
double bareInsert(TDatabase &fin)
{
    struct TRow {
        QString code;
        Variant value;
    };
    const auto read = [&fin](const QString &sql) {
        std::vector<TRow> rows;
        const auto select = fin.prepare(sql);
        for (select->exec(); select->next();)
            rows.push_back({QString::fromUtf8(select->utf8(0)), select->value(1)});
        return rows;
    };
    const auto lines = read(u"select bel_kod, bel_pavad from bd_baleil order by bel_kod"_s);
    const auto accounts = read(u"select bss_balkod, bss_sasid from bd_balsas order by bss_id"_s);
    QElapsedTimer timer;
    timer.start();
    TTransaction tran(&fin);
    fin.ExecSQL(u"DELETE FROM bd_baleil"_s);
    const auto insert = [&fin](const QString &sql, const std::vector<TRow> &rows) {
        const auto statement = fin.prepare(sql);
        for (const TRow &row : rows) {
            statement->bind(u"kod"_s, row.code);
            statement->bind(u"reiksme"_s, row.value);
            statement->exec();
        }
    };
    insert(u"insert into bd_baleil (bel_kod, bel_pavad) values (:kod, :reiksme)"_s, lines);
    insert(u"insert into bd_balsas values (NULL, :kod, :reiksme, 'D')"_s, accounts);
    tran.commit();
    return since(timer);
}

void measureForm(TDatabase &fin, int lines)
{
    fillForm(fin, lines);
    double opened = 0;
    double saved = 0;
    double bare = 0;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        const std::unique_ptr<Balans::TBalFrm> frm(createForm<Balans::TBalFrm>(nullptr));
        frm->InitializeBal(false);
        frm->show();
        QCoreApplication::processEvents();
        opened += since(timer);
        timer.restart();
        frm->NewBtnClick();
        saved += since(timer);
        bare += bareInsert(fin);
    }
    std::printf(
        "  %5d lines: opened and painted in %.1f ms, saved in %.1f ms, bare insert %.1f ms, ratio %.2f\n",
        lines, opened / rounds, saved / rounds, bare / rounds, saved / bare);
}

void measure(Engine engine)
{
    const PartyBooks books(engine, 1);
    auto datas = std::make_unique<TMainDatas>(books.books().fin, books.books().ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    TDatabase &fin = *MainDatas()->mnFin_Db();
    addAccounts(fin);
    std::printf("%s, %d accounts\n", nameOf(engine), accountCount);
    for (const int lines : {300, 10000})
        measureForm(fin, lines);
    std::fflush(stdout);
    setMainDatas(nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    return benchMain({}, [](Engine engine, const QList<int> &) { measure(engine); });
}
