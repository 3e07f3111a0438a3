#include "host/app/tour/tour_hands.h"

#include "toolkit/text/errors.h"
#include "toolkit/widgets/lithuanian.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace {

constexpr int lookEveryMs = 40;
constexpr int patienceLooks = 30000 / lookEveryMs;

} // namespace

TTourHands::TTourHands()
{
    connect(&timer, &QTimer::timeout, this, &TTourHands::look);
    timer.start(lookEveryMs);
}

void TTourHands::whenAsked(std::function<void(QWidget &)> act)
{
    expected.push_back(std::move(act));
}

void TTourHands::nothingLeft() const
{
    if (!wrong.isEmpty())
        throw Exception(wrong);
    if (!expected.empty())
        throw Exception("Laukiamas langas nepasirodė");
}

// An answer may open the next modal window from inside the present one, so it runs outside the timer's slot:
// a timer does not fire again while its own slot runs.
void TTourHands::look()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window || window == answering)
        return;
    if (expected.empty()) {
        if (++idleLooks < patienceLooks)
            return;
        wrong = QString("Netikėtas langas „%1“").arg(window->windowTitle());
        window->close();
        return;
    }
    idleLooks = 0;
    auto act = std::move(expected.front());
    expected.pop_front();
    answering = window;
    QTimer::singleShot(0, window, [this, act, window] {
        try {
            act(*window);
        } catch (const std::exception &error) {
            wrong = QString::fromUtf8(error.what());
            window->close();
        }
        answering = nullptr;
    });
}

namespace {

// The actions to click, one after the other, from one of these down to the last; none when no menu leads
// there.
QList<QAction *> wayTo(const QAction *last, const QList<QAction *> &from)
{
    for (QAction *action : from) {
        if (action == last)
            return {action};
        if (const QList<QAction *> rest =
                action->menu() ? wayTo(last, action->menu()->actions()) : QList<QAction *>();
            !rest.isEmpty())
            return QList<QAction *>{action} + rest;
    }
    return {};
}

} // namespace

void TTourHands::chooseFromMenu(QMainWindow &window, const QString &actionName)
{
    const auto *action = window.findChild<QAction *>(actionName);
    const QList<QAction *> way = wayTo(action, window.menuBar()->actions());
    if (way.isEmpty())
        throw Exception(QString("Meniu nėra „%1“").arg(actionName));
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, {},
                      window.menuBar()->actionGeometry(way.first()).center());
    for (qsizetype step = 1; step < way.size(); ++step) {
        QMenu *menu = way[step - 1]->menu();
        if (!QTest::qWaitFor([menu] { return menu->isVisible(); }))
            throw Exception(QString("Meniu „%1“ neatsivėrė").arg(menu->title()));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(way[step]).center());
    }
}

void TTourHands::press(QWidget &window, const QString &buttonText)
{
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() &&
            plainCaption(button->text()) == plainCaption(buttonText)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    throw Exception(QString("Lange „%1“ nėra mygtuko „%2“").arg(window.windowTitle(), buttonText));
}

void TTourHands::type(QWidget &edit, const QString &text)
{
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&edit, text);
}
