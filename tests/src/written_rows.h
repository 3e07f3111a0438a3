#pragma once

#include <QStringList>

class QWidget;

// What the engine refuses when a row of the window's live and cached queries is written: each column changed,
// the row copied, the row deleted. Rules of the database that refuse a value are no refusal of the statement.
// It writes through copies of the queries, without the rules of the screen, and takes everything back.
QStringList writesRefused(const QWidget &window);
