// A save with its record in the history against the same save without one, on the same books in turns: the
// bare statement, and a save in the editor of a counterparty until its list stands on the row again; and the
// first page of the history among many records, whole and narrowed.
//
//   bench_history [--saves N] [--records N] [--engine sqlite|postgresql]

#include "database/history.h"
#include "bench/bench_main.h"
#include "bench/party_books.h"
#include "bench/party_editor.h"
#include "host/data/main_datas.h"
#include "src/debtors/Dbkr.h"
#include "toolkit/data/statement.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScopeGuard>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int parties = 1000;
constexpr int turns = 21;
constexpr int page = 100;

double millisecondsOf(const std::function<void()> &action)
{
    QElapsedTimer time;
    time.start();
    action();
    return double(time.nsecsElapsed()) / 1e6;
}

// Three columns of a counterparty, as its editor writes them.
double saveAll(TDatabase &db, int saves)
{
    static int number = 0;
    return millisecondsOf([&] {
        for (int i = 0; i < saves; ++i) {
            TTransaction tran(&db);
            db.ExecSQL(u"update bd_dbkrasm set dka_adr = :adr, dka_tel = :tel, dka_pavad = :pavad "
                       "where dka_id = :id"_s,
                       {{u"adr"_s, u"Gatvė %1"_s.arg(++number)},
                        {u"tel"_s, QString::number(number)},
                        {u"pavad"_s, u"Įmonė „%1“"_s.arg(number)},
                        {u"id"_s, 1 + number % parties}});
            tran.commit();
        }
    });
}

std::unique_ptr<TDatabase> opened(const TSessionSettings &settings)
{
    auto db = std::make_unique<TDatabase>(settings);
    db->Open();
    return db;
}

double middle(QList<double> figures)
{
    std::ranges::sort(figures);
    return figures.at(figures.size() / 2);
}

const TPerson person{u"ona"_s, u"stotis1"_s};

// Both give the milliseconds of one save. The ratio is that of neighbouring turns: what else the machine does
// slows both of them.
void measureInTurns(const char *what, const std::function<double()> &saveWith,
                    const std::function<double()> &saveWithout)
{
    QList<double> with, without, ratios;
    for (int turn = 0; turn < turns; ++turn) {
        with.append(saveWith());
        without.append(saveWithout());
        ratios.append(with.constLast() / without.constLast());
    }
    std::printf("  %s: with history %.3f ms, without %.3f ms, ratio %.2f\n", what, middle(with),
                middle(without), middle(ratios));
}

void measureBare(const TSessionSettings &settings, int saves)
{
    const auto kept = opened(settings);
    keepHistory(*kept, person);
    const auto plain = opened(settings);
    const THistoryPause pause(*plain);
    measureInTurns(
        "the bare statement", [&] { return saveAll(*kept, saves) / saves; },
        [&] { return saveAll(*plain, saves) / saves; });
}

void measureEditor(const TBooks &books, int saves)
{
    setMainDatas(std::make_unique<TMainDatas>(books.fin, books.ravl));
    const auto close = qScopeGuard([] { setMainDatas(nullptr); });
    MainDatas()->Open();
    TDatabase &db = *MainDatas()->mnFin_Db();
    keepHistory(db, person);
    const std::unique_ptr<Dbkr::TDbKrFrm> list(createForm<Dbkr::TDbKrFrm>(nullptr));
    list->show();
    const auto saveOften = [&] {
        double all = 0;
        for (int i = 0; i < saves; ++i)
            all += saveInEditor(1 + i % parties, list.get());
        return all / saves;
    };
    measureInTurns("in the editor", saveOften, [&] {
        const THistoryPause pause(db);
        return saveOften();
    });
}

void measurePage(TDatabase &db, const char *what, const QString &condition,
                 const QString &order = u"ist_laikas desc, ist_id"_s)
{
    const double time = millisecondsOf([&] {
        const auto list = db.prepare(u"select * from bd_istorija %1 order by %2 desc"_s.arg(condition, order),
                                     TDatabase::Connection::Reading);
        list->exec();
        for (int i = 0; i < page && list->next(); ++i)
            list->value(0);
    });
    std::printf("  the first %d of %-24s %.1f ms\n", page, what, time);
}

void fillHistory(TDatabase &db, int records)
{
    const QString day = db.engine() == Engine::Sqlite ? u"printf('%02d', 1 + i * 28 / (%1 + 1))"_s
                                                      : u"to_char(1 + i::bigint * 28 / (%1 + 1), 'FM00')"_s;
    db.nativeExec(
        u"with recursive eile (i) as (select 1 union all select i + 1 from eile where i < %1) "
        "insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, "
        "ist_buvo, ist_yra, ist_suma) select '2026-01-' || %2 || ' 08:00:00.000', 'v' || i % 20, 'stotis', "
        "'bd_' || i % 40, i % 5000, 'U', '{\"a\": 1}', '{\"a\": 2}', 0 from eile"_s.arg(records)
            .arg(day.arg(records)));
}

void measure(Engine engine, const QList<int> &numbers)
{
    const PartyBooks books(engine, parties);
    std::printf("%s, a save\n", nameOf(engine));
    measureBare(books.books().fin, numbers.at(0));
    measureEditor(books.books(), numbers.at(0));
    const auto db = opened(books.books().fin);
    fillHistory(*db, numbers.at(1));
    measurePage(*db, "all records", {});
    measurePage(*db, "a person and a table", u"where ist_login = 'v7' and ist_lentele = 'bd_7'"_s);
    measurePage(*db, "one row", u"where ist_lentele = 'bd_7' and ist_raktas = '7'"_s, u"ist_id"_s);
    measurePage(*db, "two days of a person",
                u"where ist_login = 'v7' and ist_laikas >= '2026-01-10' and ist_laikas < '2026-01-12'"_s);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    return benchMain(
        {{u"saves"_s, u"saves in each turn"_s, 20}, {u"records"_s, u"records of the history"_s, 1'000'000}},
        measure);
}
