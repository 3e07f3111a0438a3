// One edited counterparty among 300,000: the save, and the refresh that comes back to it, against the bare
// statements in the engine's own shell; finding one by typing six letters; and the preview of the report.
//
//   bench_debtors [--rows N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/party_books.h"
#include "bench/party_editor.h"
#include "bench/when_shown.h"
#include "host/data/main_datas.h"
#include "src/debtors/Dbkr.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScopeGuard>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double residentMb()
{
    QFile status(u"/proc/self/statm"_s);
    return status.open(QIODevice::ReadOnly) ? status.readAll().split(' ').at(1).toDouble() * 4096 / 1e6 : 0;
}

double findByTyping(Dbkr::TDbKrFrm &frm, int rows)
{
    frm.FirstBtnClick();
    frm.grid()->setFocus();
    QElapsedTimer timer;
    timer.start();
    QTest::keyClicks(frm.grid(), u"K%1"_s.arg(rows - 1).left(6));
    do {
        QCoreApplication::processEvents();
    } while (frm.searching() || frm.dataSet()->RecNo() == 0);
    return since(timer);
}

void preview(Dbkr::TDbKrFrm &frm)
{
    QElapsedTimer timer;
    const double before = residentMb();
    double ready = 0, after = 0;
    int pages = 0;
    whenShown<TReportPreview>([&](TReportPreview &shown) {
        shown.view()->viewport()->repaint();
        ready = since(timer);
        after = residentMb();
        pages = shown.layout().pageCount();
        shown.close();
    });
    timer.start();
    frm.PrintBtnClick();
    std::printf("  preview of all rows %.0f ms until painted, %d pages, %.0f MB more\n", ready, pages,
                after - before);
}

Dbkr::TDbKrFrm *measureOpening()
{
    QElapsedTimer timer;
    timer.start();
    auto *frm = createForm<Dbkr::TDbKrFrm>(nullptr);
    frm->show();
    QCoreApplication::processEvents();
    const double opened = since(timer);
    while (frm->loading())
        QCoreApplication::processEvents();
    std::printf("  list open %.0f ms, whole %.0f ms\n", opened, since(timer));
    return frm;
}

// A save through the editor, and its statements in the shell, of which the start counts nothing.
void measureSaving(const PartyBooks &books, int id, double nothing)
{
    constexpr int saves = 50;
    double save = 0;
    for (int i = 0; i < saves; ++i)
        save += saveInEditor(id) / saves;
    const QByteArray oneSave =
        u"select count(dka_id) from bd_dbkrasm where dka_kod = 'K%1' and dka_id <> %1; "
        "begin; update bd_dbkrasm set dka_adr = 'Kita gatvė 1' where dka_id = %1; commit;\n"_s.arg(id)
            .toUtf8();
    std::printf("  save %.2f ms, in the shell %.2f ms without its start\n", save,
                (books.inShell(oneSave.repeated(saves)) - nothing) / saves);
}

void measureRefreshing(const PartyBooks &books, TBrowseFrm &frm, int id, double nothing)
{
    QElapsedTimer timer;
    timer.start();
    frm.RefreshData(id);
    const double refresh = since(timer);
    const QByteArray list =
        MainDatas()->mnFin_Db()->translator().translate(frm.dataSet()->SQL()).text.toUtf8();
    const QByteArray unseen =
        books.books().fin.engine == Engine::Sqlite ? ".output /dev/null\n" : "\\o /dev/null\n";
    const double bare = books.inShell(unseen + list + ";\n") - nothing;
    std::printf("  refresh back to the row %.0f ms, the whole statement in the shell %.0f ms, ratio %.2f\n",
                refresh, bare, refresh / bare);
}

void measure(Engine engine, int rows, bool report)
{
    const PartyBooks books(engine, rows);
    auto datas = std::make_unique<TMainDatas>(books.books().fin, books.books().ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    const auto close = qScopeGuard([] { setMainDatas(nullptr); });
    std::printf("%s, %d counterparties\n", nameOf(engine), rows);
    const std::unique_ptr<Dbkr::TDbKrFrm> frm(measureOpening());
    const double nothing = books.inShell("select 1;\n");
    measureSaving(books, rows / 2, nothing);
    measureRefreshing(books, *frm, rows / 2, nothing);
    std::printf("  found by six letters typed in %.0f ms, the pause after typing included\n",
                findByTyping(*frm, rows));
    if (report)
        preview(*frm);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    return benchMain({{u"rows"_s, u"Counterparties"_s, 300000},
                      {u"preview"_s, u"1: measure the preview of the report as well"_s, 0}},
                     [](Engine engine, const QList<int> &n) { measure(engine, n[0], n[1] != 0); });
}
