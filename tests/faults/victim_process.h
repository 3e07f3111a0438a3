#pragma once

#include "toolkit/data/database.h"

#include <QElapsedTimer>
#include <QProcess>

// A run of fault_victim on the database of some settings.
class VictimProcess {
public:
    // environment: what fault_victim's takes away, as "NAME=value".
    VictimProcess(const QString &mode, const TSessionSettings &settings, const QStringList &environment = {},
                  const QString &number = {});
    ~VictimProcess();

    // Waits until it has opened the books and begins its work; false when it ended before.
    bool waitUntilItBegins();
    // Lets it end by itself; true when it did all its work.
    bool finish();
    // Kills it this many microseconds after it began.
    void killAfter(qint64 microseconds);

    // From the beginning to the end of its work, in microseconds.
    qint64 duration() const { return worked; }
    // What it reported as its failure; empty when it reported none.
    QString failure() const;
    // What stands behind this word in the lines that it printed.
    QStringList told(const QString &word) const;

private:
    bool readUntil(const QByteArray &line);

    QProcess process;
    QByteArray output;
    QElapsedTimer sinceBeginning;
    qint64 worked = 0;
};

// The user that a test by root gives up its rights for; null text for anybody else, who has none to give up.
QStringList withoutRightsOfRoot();

// Waits until nobody but this session is left on the database: a server goes on for a while with the
// statement of a client that died.
void waitUntilAlone(TDatabase &db);

// The whole number that an environment variable gives, else the usual one.
int numberGiven(const char *variable, int usual);
