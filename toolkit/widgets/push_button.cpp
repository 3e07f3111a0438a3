#include "toolkit/widgets/push_button.h"

#include <QPainter>

void TPushButton::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    constexpr int inset = 3;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(inset, inset, -inset, -inset));
}
