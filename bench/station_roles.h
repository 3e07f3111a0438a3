#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>

// What bench_stations plays in processes of its own.

// How many counterparties each station changes, those after the ones of the station before it.
constexpr int partiesOfStation = 5;

// A station on the main books: says "ready", and for every number of seconds that it reads saves one
// counterparty after another for so long. Then it tells how many milliseconds each save took ("ms") and what
// it was told when one failed ("failed"). It ends with its input.
void saveAsTold(const TSessionSettings &fin, int station);

// The memory of this process in megabytes: "rss", "pss" with its part of what is shared, and "own".
QJsonObject memoryOfProcess();

// What one more session costs a process that has one, both with their first save done.
QJsonObject memoryOfSession(const TSessionSettings &fin);

// The whole program, logged in to the books of a server with the list of counterparties open; prints its
// memory and ends.
int runHostAndTellMemory(const QByteArray &server);
