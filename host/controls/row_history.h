#pragma once

#include "host/controls/session.h"

#include <QString>

#include <functional>

// A row of a list whose changes are asked for: Ctrl+H and the menu of every list.
struct TRowOfHistory {
    TSession session = TSession::Main;
    QString table;   // small letters
    QString key;     // the values of its key joined with '|', as the history has them
    QString caption; // of the list

    bool operator==(const TRowOfHistory &) const = default;
};

// The program that shows the history of a row says how, once at its start; until then no list offers it.
using TRowHistoryOpener = std::function<void(const TRowOfHistory &)>;
void setRowHistoryOpener(TRowHistoryOpener opener);
const TRowHistoryOpener &rowHistoryOpener();
