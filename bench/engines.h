#pragma once

#include "toolkit/data/database.h"

#include <QCommandLineOption>
#include <QList>

class QCommandLineParser;

// Measuring on both engines, or on the one that --engine names.
QCommandLineOption engineOption();
QList<Engine> wantedEngines(const QCommandLineParser &parser);

// The engine as that option and the figures name it.
const char *nameOf(Engine engine);

// Measures without a screen unless the environment names one; before the application is there.
void needNoScreen();
