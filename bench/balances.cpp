// The balances of debtors and creditors computed from the journal, against the best single statement written
// by hand in the engine's own shell on a copy of the same books; a counterparty found among all by typing;
// and the nodes below one of the first level with their estimates.
//
//   bench_balances [--rows N] [--entries N] [--nodes N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/child.h"
#include "bench/party_books.h"
#include "host/data/dka_combo.h"
#include "host/data/main_datas.h"
#include "src/balances/Dkaliked.h"
#include "src/estimates/Samform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// What p_CalcDBKRLik does for books whose balances all come from entries.
constexpr char sqliteShell[] = R"(
pragma foreign_keys = on;
pragma temp_store = memory;
begin immediate;
delete from bd_dbkrlik where dkl_perid = 7;
insert into bd_dbkrlik (dkl_perid, dkl_dkaid, dkl_sum_db, dkl_sum_kr, dkl_padid)
select 7, irs_dkaid, max(round(sum(irs_sum_db - irs_sum_kr), 4), 0),
       max(-round(sum(irs_sum_db - irs_sum_kr), 4), 0), irs_padid
from bd_irasai join bd_dbkrasm on dka_id = irs_dkaid
where irs_perid = 6 and irs_sasid in (dka_sasid, dka_sasid_2)
group by irs_dkaid, irs_padid having round(sum(irs_sum_db - irs_sum_kr), 4) <> 0;
commit;
)";

constexpr char serverShell[] = R"(
set work_mem = '256MB';
begin;
delete from bd_dbkrlik where dkl_perid = 7;
insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sum_db, dkl_sum_kr, dkl_padid)
select row_number() over (), 7, irs_dkaid, greatest(suma, 0), greatest(-suma, 0), irs_padid
from (select irs_dkaid, irs_padid, sum(irs_sum_db - irs_sum_kr) as suma
      from bd_irasai join bd_dbkrasm on dka_id = irs_dkaid
      where irs_perid = 6 and irs_sasid in (dka_sasid, dka_sasid_2)
      group by irs_dkaid, irs_padid) b
where suma <> 0;
commit;
)";

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QString numbers(Engine engine, int rows)
{
    return engine == Engine::Sqlite ? u"(with recursive n(i) as (select 1 union all select i + 1 from n "
                                      u"where i < %1) select i from "
                                      "n) n"_s.arg(rows)
                                    : u"generate_series(1, %1) n(i)"_s.arg(rows);
}

void fill(TDatabase &fin, int parties, int entries, int nodes)
{
    TTransaction tran(&fin);
    fin.nativeExec(u"insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (3, 2026, 2, 0), "
                   "(4, 2026, 3, 0), (5, 2026, 4, 0), (6, 2026, 1, 1), (7, 2026, 1, 2)"_s);
    fin.nativeExec(
        u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_dkaid, irs_sum_db, irs_sum_kr) "
        "select i, 6, 1 + i % 2, 1 + (cast(i as bigint) * 7919) % %1, (i % 2) * (i % 7919 + 0.10), "
        "(1 - i % 2) * (i % 7919 + 0.10) from "_s.arg(parties) +
        numbers(fin.engine(), entries));
    fin.nativeExec(u"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Knyga')"_s);
    fin.nativeExec(u"insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) "
                   "values (1, 1, '1', 'Visi', 0)"_s);
    fin.nativeExec(u"insert into bd_jve (jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom) "
                   "select 1 + i, 1, 1, cast(100000 + i as varchar(10)), 'Mazgas ' || i, 1 from "_s +
                   numbers(fin.engine(), nodes));
    for (int row = 0; row < 5; ++row)
        fin.nativeExec(u"insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                       "select 5 * i + %1, 1 + i, 1 + %1, 100, 0 from "_s.arg(row) +
                       numbers(fin.engine(), nodes));
    tran.commit();
    fin.nativeExec(u"analyze"_s);
}

QString balancesOf(TDatabase &fin)
{
    const QString sql = u"select %1 from bd_dbkrlik where dkl_perid = 7"_s;
    return fin.fieldResult(sql.arg(u"count(*)"_s)).toString() + u' ' +
           QString::number(fin.fieldResult(sql.arg(u"sum(dkl_sum_db)"_s)).toDouble(), 'f', 2) + u' ' +
           QString::number(fin.fieldResult(sql.arg(u"sum(dkl_sum_kr)"_s)).toDouble(), 'f', 2);
}

// The routine first, or the shell first: the one behind finds the pages warm.
void measureCalculation(const PartyBooks &books, TDatabase &fin)
{
    const QByteArray shell = books.books().fin.engine == Engine::Sqlite ? sqliteShell : serverShell;
    const auto byRoutine = [&fin] {
        QElapsedTimer timer;
        timer.start();
        TTransaction tran(&fin);
        fin.ExecSQL(u"call p_CalcDBKRLik(null)"_s);
        tran.commit();
        return since(timer);
    };
    byRoutine(); // both find the pages warm and the same rows to delete
    const double byHand = books.inShell(shell);
    const QString hand = balancesOf(fin);
    const double routine = byRoutine();
    if (balancesOf(fin) != hand)
        qFatal("the balances differ: %s and %s", qPrintable(balancesOf(fin)), qPrintable(hand));
    std::printf("  p_CalcDBKRLik %.0f ms, by hand %.0f ms, ratio %.2f\n", routine, byHand, routine / byHand);
}

// From the first of six keys to the offers that have the counterparty.
void measureTyping(int rows)
{
    double id = 0;
    QTimer hands;
    QObject::connect(&hands, &QTimer::timeout, [&] {
        auto *dialog = dynamic_cast<Dkaliked::TDKALikDlg *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        hands.stop();
        auto *code = dialog->findChild<TDKAComboBox *>(u"DKL_I_KOD"_s);
        auto *edit = code->findChild<QLineEdit *>();
        edit->setFocus();
        QElapsedTimer timer;
        timer.start();
        QTest::keyClicks(edit, QString::number(300000000 + rows));
        code->commit();
        std::printf("  a counterparty among %d typed and found in %.1f ms\n", rows, since(timer));
        dialog->reject();
    });
    QElapsedTimer timer;
    timer.start();
    hands.start(0);
    Dkaliked::NewDKALik(id);
    std::printf("  the dialog opened, used and left in %.1f ms\n", since(timer));
}

void measureChildren(int nodes)
{
    const std::unique_ptr<Samform::TSamFrm> book(createForm<Samform::TSamFrm>(nullptr));
    book->show();
    QElapsedTimer timer;
    timer.start();
    book->SetJungId(1);
    QCoreApplication::processEvents();
    std::printf("  %d nodes with their five sums listed in %.0f ms\n", nodes, since(timer));
    book->SetJungId(TBookFrm::nodeOf(book->list()->topLevelItem(0)));
    timer.start();
    book->acRefresh->trigger();
    QCoreApplication::processEvents();
    std::printf("  one of them shown anew in %.0f ms\n", since(timer));
}

void measure(Engine engine, int rows, int entries, int nodes)
{
    const PartyBooks books(engine, rows);
    auto datas = std::make_unique<TMainDatas>(books.books().fin, books.books().ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    TDatabase &fin = *MainDatas()->mnFin_Db();
    fill(fin, rows, entries, nodes);
    GetPeriod();
    std::printf("%s, %d counterparties, %d entries\n", nameOf(engine), rows, entries);
    measureCalculation(books, fin);
    measureTyping(rows);
    measureChildren(nodes);
    std::fflush(stdout);
    setMainDatas(nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    return benchMain({{u"rows"_s, u"Counterparties"_s, 300000},
                      {u"entries"_s, u"Lines of the journal"_s, 1000000},
                      {u"nodes"_s, u"Nodes below one"_s, 2000}},
                     [](Engine engine, const QList<int> &n) { measure(engine, n[0], n[1], n[2]); });
}
