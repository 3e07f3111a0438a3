#pragma once

#include "toolkit/data/database.h"

#include <QProcess>

#include <memory>

// What many who save at once came to.
struct CrowdSaves {
    QList<double> milliseconds; // of each save
    QStringList failures;
    double aSecond = 0;

    // The time that this part of the saves did not exceed.
    double within(double part) const;
};

// Many stations at once, each a process of its own, as people have them: a session knows no threads.
class Crowd {
public:
    // Returns when all are connected.
    Crowd(const TSessionSettings &fin, int stations);
    ~Crowd();
    Crowd(const Crowd &) = delete;
    Crowd &operator=(const Crowd &) = delete;

    // From now on all save for so long; end() waits for the last of them.
    void begin(int seconds);
    CrowdSaves end();

private:
    QByteArray lineOf(QProcess &station) const;

    std::vector<std::unique_ptr<QProcess>> stations;
    int span = 0;
};

// The same statements in the same messages by the engine's own program; or without the question that comes
// with each beginning, what number the server gives the transaction.
enum class Number { Asked, NotAsked };
CrowdSaves savesByPgbench(const TSessionSettings &fin, int clients, int seconds,
                          Number number = Number::Asked);
