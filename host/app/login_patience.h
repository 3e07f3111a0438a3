#pragma once

#include <QObject>
#include <QTimer>

// How long the way in waits after refusals: a little longer after each. It outlives the dialogs that ask.
class TLoginPatience : public QObject {
    Q_OBJECT
public:
    TLoginPatience();

    void refused();
    int secondsLeft() const { return left; } // before the next try; 0: none

signals:
    void counted(); // another second is over

private:
    QTimer eachSecond;
    int refusals = 0;
    int left = 0;
};
