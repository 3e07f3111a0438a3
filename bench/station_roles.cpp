#include "bench/station_roles.h"

#include "database/history.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int furtherSessions = 20;

std::unique_ptr<TDatabase> opened(const TSessionSettings &fin)
{
    auto db = std::make_unique<TDatabase>(fin);
    db->Open();
    keepHistory(*db, {u"ona"_s, u"stotis1"_s});
    return db;
}

void say(const QByteArray &line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

// Three columns of a counterparty, as its editor writes them.
void save(TDatabase &db, int station, int number)
{
    TTransaction tran(&db);
    db.ExecSQL(u"update bd_dbkrasm set dka_adr = :adr, dka_tel = :tel, dka_pavad = :pavad "
               "where dka_id = :id"_s,
               {{u"adr"_s, u"Gatvė %1"_s.arg(number)},
                {u"tel"_s, QString::number(number)},
                {u"pavad"_s, u"Įmonė %1"_s.arg(number)},
                {u"id"_s, 1 + station * partiesOfStation + number % partiesOfStation}});
    tran.commit();
}

QJsonObject savesOf(TDatabase &db, int station, double seconds)
{
    static int number = 0;
    QJsonArray milliseconds, failed;
    QElapsedTimer whole, one;
    whole.start();
    while (double(whole.nsecsElapsed()) < seconds * 1e9) {
        one.start();
        try {
            save(db, station, ++number);
            milliseconds.append(double(one.nsecsElapsed()) / 1e6);
        } catch (const Exception &error) {
            failed.append(error.message());
        }
    }
    return {{u"ms"_s, milliseconds}, {u"failed"_s, failed}};
}

} // namespace

void saveAsTold(const TSessionSettings &fin, int station)
{
    const auto db = opened(fin);
    say("ready");
    for (std::string seconds; std::getline(std::cin, seconds);)
        say(QJsonDocument(savesOf(*db, station, std::stod(seconds))).toJson(QJsonDocument::Compact));
}

QJsonObject memoryOfProcess()
{
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("there is no /proc/self/smaps_rollup");
    const QByteArray content = file.readAll();
    const auto megabytes = [&content](const char *name) {
        const QByteArray line = content.mid(content.indexOf(QByteArray("\n") + name + ':')).trimmed();
        return line.left(line.indexOf('\n')).simplified().split(' ').at(1).toDouble() / 1024;
    };
    return {{u"rss"_s, megabytes("Rss")},
            {u"pss"_s, megabytes("Pss")},
            {u"own"_s, megabytes("Private_Clean") + megabytes("Private_Dirty")}};
}

QJsonObject memoryOfSession(const TSessionSettings &fin)
{
    const auto another = [&fin] {
        auto db = opened(fin);
        save(*db, 0, 0);
        return db;
    };
    std::vector<std::unique_ptr<TDatabase>> sessions;
    sessions.push_back(another());
    const double before = memoryOfProcess()[u"pss"_s].toDouble();
    for (int i = 0; i < furtherSessions; ++i)
        sessions.push_back(another());
    return {{u"pss"_s, (memoryOfProcess()[u"pss"_s].toDouble() - before) / furtherSessions}};
}
