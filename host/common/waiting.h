#pragma once

#include <QApplication>

// The waiting cursor while it lives.
class TWaiting {
public:
    TWaiting() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~TWaiting() { QApplication::restoreOverrideCursor(); }
    TWaiting(const TWaiting &) = delete;
    TWaiting &operator=(const TWaiting &) = delete;
};
