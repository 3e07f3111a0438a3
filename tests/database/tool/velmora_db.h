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
