#pragma once

#include <QRect>

class QWidget;

// No window stands beyond an edge of what is around it.

// A frame moved into the room, and made smaller where the room is.
QRect movedInto(QRect frame, const QRect &room);

// What the screen has for a window, the frame that the desktop draws around it left out.
QRect roomFor(const QWidget *window);
// Gives a window the size it would like to have, or as much of it as the screen has.
void resizeInScreen(QWidget *window, const QSize &wanted);
void moveIntoScreen(QWidget *window);
