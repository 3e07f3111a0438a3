#pragma once

#include "toolkit/widgets/dialog.h"

#include <QDialog>
#include <QString>

#include <memory>

// Disables the input controls of a form: edits, choices, dates, buttons that act. Lists, trees and grids can
// still be scrolled and selected in, but neither edited, ticked nor dragged. Buttons that cancel, close or
// help stay usable, and so does every control with the property staysUsable set to true.
void DisableFormControls(QWidget *form);

// The base of the host's plain forms: a dialog that can be minimised and maximised.
class TMinMaxFrm : public QDialog {
    Q_OBJECT
public:
    explicit TMinMaxFrm(QWidget *owner = nullptr);
};

// The animations of the platform.
enum class TCommonAVI { aviNone, aviFindFolder, aviFindFile, aviCopyFiles, aviDeleteFile };

// An animation that can stand in a form: hidden and stopped until started. It keeps moving while a statement
// runs, because it is painted from the sessions' busy hook too; the first start sets paintWhileBusy as the
// hook unless another one is set. Painted by the system itself, so it looks the same everywhere.
class TAnimate : public QWidget {
    Q_OBJECT
public:
    explicit TAnimate(TCommonAVI kind, QWidget *parent = nullptr);
    ~TAnimate() override;
    void Start();
    void Stop();
    bool Active() const;
    int frame() const; // frames since the start
    void setInterval(int milliseconds);
    // Moves on if the interval has passed, and paints at once.
    void advance();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The shared progress window with an animation and a text; modal keeps the other windows from input, interval
// is the time between two frames in milliseconds (0: the usual one). Calls nest: the window shows the last
// text.
void EnableAnimation(TCommonAVI kind, const QString &text, bool modal, int interval);
// Ends what was enabled last with this text; an empty text ends what was enabled last. Harmless without any.
void DisableAnimation(const QString &text = {});

// The hook for TDatabase: moves the running animations on and lets windows paint, at most 25 times a second
// and never inside itself. Input, closing, timers and socket notifiers wait until the statement is done: no
// window can be closed, and no list can start a statement, from inside another statement.
void paintWhileBusy();
