#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>
#include <QList>
#include <QStringList>

#include <functional>

// A whole number that the command line may set: --name N.
struct BenchNumber {
    QString name;
    QString told; // in --help
    int preset;
};

// What a process of its own measures: the role's name and its arguments.
using BenchRole = std::function<QJsonObject(const QString &role, const QStringList &arguments)>;

// The whole of a benchmark: reads the command line of the running application, and measures on both engines
// or on the one that --engine names, with the numbers in their order. With --role it plays that role.
int benchMain(const QList<BenchNumber> &numbers,
              const std::function<void(Engine engine, const QList<int> &numbers)> &measure,
              const BenchRole &role = {});

// The figures that this program gives in that role, in a process of its own: nothing that was measured
// before is in its memory. Ends this program when it fails.
QJsonObject played(const QString &role, const QStringList &arguments);
// The run in the middle, by the figure "all".
QJsonObject middleOf(QList<QJsonObject> runs);

// The engine as --engine and the figures name it.
const char *nameOf(Engine engine);
// What a role is told of a session, its engine and its place, and the session again.
QStringList wordsOf(const TSessionSettings &settings);
TSessionSettings sessionOf(const QString &alias, const QStringList &words);

// Measures without a screen unless the environment names one; before the application is there.
void needNoScreen();
