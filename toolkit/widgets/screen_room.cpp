#include "toolkit/widgets/screen_room.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

QRect movedInto(QRect frame, const QRect &room)
{
    frame.setSize(frame.size().boundedTo(room.size()));
    frame.moveRight(std::min(frame.right(), room.right()));
    frame.moveBottom(std::min(frame.bottom(), room.bottom()));
    frame.moveLeft(std::max(frame.left(), room.left()));
    frame.moveTop(std::max(frame.top(), room.top()));
    return frame;
}

QRect roomFor(const QWidget *window)
{
    const int title = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    const int frame = window->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, window);
    return window->screen()->availableGeometry().adjusted(frame, title + frame, -frame, -frame);
}

void resizeInScreen(QWidget *window, const QSize &wanted)
{
    window->resize(wanted.boundedTo(roomFor(window).size()));
}

void moveIntoScreen(QWidget *window)
{
    const QPoint inside = movedInto(QRect(window->pos(), window->size()), roomFor(window)).topLeft();
    if (inside != window->pos())
        window->move(inside);
}
