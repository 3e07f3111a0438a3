#pragma once

#include <QDeadlineTimer>
#include <QProgressDialog>

// A progress window over work done in steps, which the user can stop with Esc. It comes up only when the work
// takes longer than a moment, blocks the other windows meanwhile, and goes with the object.
class TProgressWindow {
public:
    // total: the steps of the whole work; 0 when nobody knows.
    TProgressWindow(const QString &title, const QString &text, int total, QWidget *owner);

    // To be called as the work goes on, with the steps done. Raises EAbort once the user has stopped it.
    void step(int done);

private:
    QProgressDialog window;
    QDeadlineTimer patience;
};
