#pragma once

#include <QAction>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>

class QMainWindow;

// What a user does with mouse and keyboard, done by the program: choosing from the menus, typing, and
// answering the modal windows that come up meanwhile.
class TTourHands : public QObject {
    Q_OBJECT
public:
    TTourHands();

    // When the next modal window comes, act is called with it. Windows are answered in the order of the
    // calls.
    void whenAsked(std::function<void(QWidget &)> act);
    // Raises Exception when an expected window did not come.
    void nothingLeft() const;
    // The first thing that went wrong in a modal window; empty when nothing did.
    const QString &failure() const { return wrong; }

    static void chooseFromMenu(QMainWindow &window, const QString &actionName);
    static void press(QWidget &window, const QString &buttonText);
    static void type(QWidget &edit, const QString &text);

private:
    void look();

    std::deque<std::function<void(QWidget &)>> expected;
    QWidget *answering = nullptr;
    QTimer timer;
    int idleLooks = 0;
    QString wrong;
};
