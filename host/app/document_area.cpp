#include "host/app/document_area.h"

#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/screen_room.h"

#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

constexpr char topicProperty[] = "helpTopic";

// The control that had the keyboard last, else the first one that takes it.
QWidget *keyboardControl(QWidget *document)
{
    const auto takesIt = [document](const QWidget *control) {
        return document->isAncestorOf(control) && control->isEnabled() && control->isVisibleTo(document) &&
               (control->focusPolicy() & Qt::TabFocus);
    };
    for (QWidget *control : {document->focusWidget(), document->focusProxy()})
        if (control && takesIt(control))
            return control;
    for (QWidget *next = document->nextInFocusChain(); next != document; next = next->nextInFocusChain())
        if (takesIt(next))
            return next;
    return document;
}

// Where a frame stands a step further, in the room; one that fills the room becomes smaller.
QRect stepFurther(QRect frame, int step, const QRect &room)
{
    frame.setSize(frame.size().boundedTo(room.size() - QSize(step, step)));
    frame.translate(step, step);
    if (frame.right() > room.right())
        frame.moveLeft(room.left());
    if (frame.bottom() > room.bottom())
        frame.moveTop(room.top());
    return frame;
}

} // namespace

TDocumentArea::TDocumentArea(QWidget *parent) : QMdiArea(parent)
{
    setBackground(palette().brush(QPalette::Mid).color().lighter(125));
    // Without a window the area has the keyboard: a menu that had it would take letters for commands.
    setFocusPolicy(Qt::StrongFocus);
    connectGuarded(this, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        // The area moves the focus itself after it told of the activation.
        QMetaObject::invokeMethod(
            this,
            [this, window = QPointer<QMdiSubWindow>(window)] {
                placeHome();
                giveKeyboard(window);
            },
            Qt::QueuedConnection);
    });
}

void TDocumentArea::open(const TPackageEntry &entry)
{
    if (QMdiSubWindow *there = windowOf(entry.name)) {
        if (there->isMinimized())
            there->showNormal();
        setActiveSubWindow(there);
        giveKeyboard(there);
        return;
    }
    QMdiSubWindow *window = make(entry);
    window->show();
    placeHome();
    giveKeyboard(window);
    // A screen puts itself where it was kept, after it is shown.
    QMetaObject::invokeMethod(
        this, [this, shown = QPointer<QMdiSubWindow>(window)] { moveOffOthers(shown); },
        Qt::QueuedConnection);
}

QMdiSubWindow *TDocumentArea::make(const TPackageEntry &entry)
{
    std::unique_ptr<QWidget> screen(entry.create(this));
    if (entry.opened)
        entry.opened(screen.get());
    QMdiSubWindow *window = addSubWindow(screen.release());
    window->setObjectName(entry.name);
    window->setProperty(topicProperty, entry.help);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // A list closes by a key of its own; two actions with the same key would both be deaf.
    for (QAction *action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    return window;
}

QMdiSubWindow *TDocumentArea::windowOf(const QString &name) const
{
    for (QMdiSubWindow *window : subWindowList())
        if (window->objectName() == name)
            return window;
    return nullptr;
}

QWidget *TDocumentArea::document(const QString &name) const
{
    const QMdiSubWindow *window = windowOf(name);
    return window ? window->widget() : nullptr;
}

void TDocumentArea::setHome(QWidget *page, int help)
{
    delete std::exchange(home, page);
    if (home) {
        home->setParent(viewport());
        home->setProperty(topicProperty, help);
    }
    placeHome();
}

void TDocumentArea::placeHome()
{
    if (!home)
        return;
    home->setGeometry(viewport()->rect());
    const auto windows = subWindowList();
    home->setVisible(std::ranges::all_of(windows, &QMdiSubWindow::isHidden));
}

void TDocumentArea::resizeEvent(QResizeEvent *event)
{
    QMdiArea::resizeEvent(event);
    placeHome();
}

int TDocumentArea::helpTopic() const
{
    const QWidget *inFront = activeSubWindow();
    if (!inFront && home && home->isVisible())
        inFront = home;
    return inFront ? inFront->property(topicProperty).toInt() : 0;
}

// A window never stands exactly on another one: it moves down and right by a title bar until it is alone
// there, and from the edge of the area begins again at the other one.
void TDocumentArea::moveOffOthers(QMdiSubWindow *window)
{
    if (!window || !isVisible() || window->isMaximized())
        return;
    const QRect room = viewport()->rect();
    window->setGeometry(movedInto(window->geometry(), room));
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    const auto covered = [this, window] {
        for (const QMdiSubWindow *other : subWindowList())
            if (other != window && other->isVisible() && other->pos() == window->pos())
                return true;
        return false;
    };
    for (qsizetype tries = subWindowList().size(); tries > 0 && covered(); --tries)
        window->setGeometry(stepFurther(window->geometry(), step, room));
}

void TDocumentArea::giveKeyboard(QMdiSubWindow *window)
{
    const QWidget *focused = QApplication::focusWidget();
    if (!window) {
        QWidget *linkLeft = home && home->isVisible() ? home->focusWidget() : nullptr;
        if (!activeSubWindow() && (!focused || focused->window() == this->window()))
            (linkLeft ? linkLeft : this)->setFocus();
        return;
    }
    QWidget *document = window->widget();
    if (window != activeSubWindow() || !document || document->isAncestorOf(focused))
        return;
    if (this->window()->isActiveWindow() || !QApplication::activeWindow())
        keyboardControl(document)->setFocus(Qt::ActiveWindowFocusReason);
}
