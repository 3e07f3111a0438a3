#pragma once

#include <QList>
#include <QProcess>
#include <QSet>

// A run of pair_station. What it prints is read while the test's event loop runs.
class StationProcess {
public:
    StationProcess(const QString &work, const QString &name, const QString &words);
    ~StationProcess();
    StationProcess(const StationProcess &) = delete;
    StationProcess &operator=(const StationProcess &) = delete;

    // By what the acknowledged saves are found again.
    const QSet<QString> &acknowledged() const { return saved; }
    // The first acknowledgement after a moment of the steady clock, in its milliseconds; 0: there is none
    // yet.
    qint64 firstAfter(qint64 moment) const;
    // What it was told when a save failed, each once.
    const QStringList &failures() const { return failed; }
    // What was typed stood in its dialogs until it was saved.
    bool keptWhatWasTyped() const { return kept; }

private:
    void read();

    QProcess process;
    QSet<QString> saved;
    QList<qint64> moments;
    QStringList failed;
    bool kept = true;
};
