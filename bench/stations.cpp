// Two hundred stations that save at once on one server against the same statements by pgbench, in turns; a
// month closed among them; the memory of a station and of one more session.
//
//   bench_stations [--stations N] [--seconds N] [--size N]
//
// The stations stand on the server's own machine, so that they take processor time from it. With
// VELMORA_DURABLE set the server keeps what it promises.

#include "bench/bench_books.h"
#include "bench/bench_main.h"
#include "bench/crowd.h"
#include "bench/station_roles.h"
#include "database/history.h"
#include "database/seals.h"
#include "database/tool/keeping/keeper.h"
#include "database/tool/keeping/native_query.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 3;
constexpr double almostAll = 0.99;

// The books of the demonstration on a server.
class Institution {
public:
    explicit Institution(int size) : place(Engine::PostgreSql)
    {
        createDemoBooks(place.store(), size, [](const QString &) {});
        fin = std::make_unique<TDatabase>(place.books().fin);
        ravl = std::make_unique<TDatabase>(place.books().ravl);
        for (TDatabase *db : {fin.get(), ravl.get()}) {
            db->Open();
            keepHistory(*db, {u"rasa"_s, u"stotis2"_s});
        }
    }

    const TBooks &books() const { return place.books(); }
    // Whether the server keeps what it promises.
    QString durable() const { return columnOf(*fin, u"show fsync"_s).value(0); }

    // What changed rows leave behind slows down whoever comes later.
    void tidy() const { fin->nativeExec(u"vacuum analyze bd_dbkrasm"_s); }

    // Milliseconds of a close as the dialog closes a month.
    double close() const
    {
        QElapsedTimer timer;
        timer.start();
        move(u"call Close_Per()"_s, TSealEvent::Close);
        return double(timer.nsecsElapsed()) / 1e6;
    }
    void rollBack() const { move(u"call Back_Per()"_s, TSealEvent::RollBack); }

private:
    void move(const QString &routine, TSealEvent event) const
    {
        TTransaction tran(fin.get());
        const qlonglong month = fin->fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong();
        fin->ExecSQL(routine);
        appendSeal(*fin, event, month);
        tran.commit();
        appendSeal(*ravl, event, month);
    }

    const BenchBooks place;
    std::unique_ptr<TDatabase> fin;
    std::unique_ptr<TDatabase> ravl;
};

template<typename Figure> auto middleOf(QList<Figure> figures)
{
    std::ranges::sort(figures);
    return figures.at(figures.size() / 2);
}

void measureSaves(const Institution &institution, Crowd &crowd, int stations, int seconds)
{
    QList<double> ours, theirs, late, lateTheirs, ratios;
    for (int turn = 0; turn < turns; ++turn) {
        institution.tidy();
        crowd.begin(seconds);
        const CrowdSaves saves = crowd.end();
        institution.tidy();
        const CrowdSaves same = savesByPgbench(institution.books().fin, stations, seconds);
        if (!saves.failures.isEmpty())
            qFatal("a save failed: %s", qPrintable(saves.failures.constFirst()));
        ours.append(saves.aSecond);
        theirs.append(same.aSecond);
        late.append(saves.within(almostAll));
        lateTheirs.append(same.within(almostAll));
        ratios.append(saves.aSecond / same.aSecond);
    }
    std::printf("%d stations: %.0f saves a second, 99 of 100 within %.0f ms; pgbench %.0f, within %.0f ms; "
                "ratio %.2f (fsync %s)\n",
                stations, middleOf(ours), middleOf(late), middleOf(theirs), middleOf(lateTheirs),
                middleOf(ratios), qPrintable(institution.durable()));
    std::fflush(stdout);
}

void measureClose(const Institution &institution, Crowd &crowd, int seconds)
{
    QList<double> quiet, among;
    qsizetype saves = 0;
    QStringList failures;
    for (int turn = 0; turn < turns; ++turn) {
        institution.tidy();
        quiet.append(institution.close());
        institution.rollBack();
        institution.tidy();
        crowd.begin(seconds);
        among.append(institution.close());
        const CrowdSaves meanwhile = crowd.end();
        institution.rollBack();
        saves += meanwhile.milliseconds.size();
        failures += meanwhile.failures;
    }
    std::printf("a close %.0f ms on the quiet server, %.0f ms among the stations, who saved %lld times "
                "meanwhile; %lld saves failed\n",
                middleOf(quiet), middleOf(among), qlonglong(saves), qlonglong(failures.size()));
    failures.removeDuplicates();
    for (const QString &failure : std::as_const(failures))
        std::printf("  %s\n", qPrintable(failure));
    std::fflush(stdout);
}

// What it costs one station that each beginning of a transaction asks for its number.
void measureQuestion(const Institution &institution, int seconds)
{
    QList<double> ratios;
    for (int turn = 0; turn < turns; ++turn) {
        institution.tidy();
        const auto rate = [&](Number number) {
            return savesByPgbench(institution.books().fin, 1, seconds, number).aSecond;
        };
        ratios.append(rate(Number::NotAsked) / rate(Number::Asked));
    }
    std::printf("the number of the transaction asked with its beginning: a save takes %.2f times the time\n",
                middleOf(ratios));
    std::fflush(stdout);
}

void measureMemory(const TBooks &books)
{
    const QTemporaryDir settings;
    for (const char *folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(folder, settings.path().toUtf8());
    const QJsonObject host = played(u"host"_s, wordsOf(books.fin) + wordsOf(books.ravl));
    const QJsonObject session = played(u"session"_s, wordsOf(books.fin));
    std::printf("the program with a list: %.0f MB with its part of what is shared (%.0f MB its own, %.0f MB "
                "in all); one more session in a process %.2f MB\n",
                host[u"pss"_s].toDouble(), host[u"own"_s].toDouble(), host[u"rss"_s].toDouble(),
                session[u"pss"_s].toDouble());
}

void measure(Engine engine, const QList<int> &numbers)
{
    if (engine != Engine::PostgreSql)
        return;
    const int stations = numbers.at(0), seconds = numbers.at(1);
    const Institution institution(numbers.at(2));
    measureQuestion(institution, seconds);
    Crowd crowd(institution.books().fin, stations);
    crowd.begin(1);
    crowd.end();
    measureSaves(institution, crowd, stations, seconds);
    measureClose(institution, crowd, seconds);
    measureMemory(institution.books());
}

QJsonObject play(const QString &role, const QStringList &arguments)
{
    const TSessionSettings fin = sessionOf(u"mnFin_Db"_s, arguments);
    if (role == u"session")
        return memoryOfSession(fin);
    saveAsTold(fin, arguments.at(2).toInt());
    return {};
}

// The words with which the program reaches both databases.
QByteArray serverWordsOf(const QByteArray &fin, const QByteArray &ravl)
{
    QByteArray words = fin;
    words.replace("dbname=", "fin=");
    return words + ' ' + ravl.mid(ravl.indexOf("dbname=")).replace("dbname=", "ravl=");
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    if (argc > 6 && qstrcmp(argv[2], "host") == 0)
        return runHostAndTellMemory(serverWordsOf(argv[4], argv[6]));
    const QCoreApplication application(argc, argv);
    return benchMain({{u"stations"_s, u"stations at once"_s, 200},
                      {u"seconds"_s, u"seconds of each turn"_s, 10},
                      {u"size"_s, u"times the demonstration books"_s, 10}},
                     measure, play);
}
