#pragma once

#include <QDialog>
#include <QString>

// Disables the input controls of a form; buttons that close or only look, scroll bars and lists stay usable.
void DisableFormControls(QWidget *form);

// The base of the host's plain forms.
class TMinMaxFrm : public QDialog {
    Q_OBJECT
public:
    explicit TMinMaxFrm(QWidget *owner);
};

// The animations of the platform.
enum class TCommonAVI { aviNone, aviFindFolder, aviFindFile, aviCopyFiles, aviDeleteFile };

// An animation that can stand in a form: hidden and stopped until started. It keeps moving while a statement
// runs, because it is painted from the sessions' busy hook too.
class TAnimate : public QWidget {
    Q_OBJECT
public:
    explicit TAnimate(TCommonAVI kind, QWidget *parent = nullptr);
    ~TAnimate() override;
    void Start();
    void Stop();
    bool Active() const;
    int frame() const; // frames painted since the start
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Private;
    Private *d;
};

// The shared progress window with an animation and a text. cancellable shows a button; frames is the interval.
void EnableAnimation(TCommonAVI kind, const QString &text, bool modal, int interval);
void DisableAnimation(const QString &text);

// Lets windows paint and timers tick while a statement runs, without taking input: the hook for TDatabase.
void paintWhileBusy();
