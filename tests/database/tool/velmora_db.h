#pragma once

#include <QStringList>

// What a run of velmora-db ended with and said.
struct TResult {
    int code = -1;
    QString out;
    QString err;
};
// input: what it reads from its standard input.
TResult velmoraDb(const QStringList &arguments, const QString &input = {});

// Runs it and kills it before this step (stop_at/stop_at.cpp says what a step is); true when it came to its
// end before.
bool velmoraDbEndsBefore(int step, const QStringList &arguments);
