#include "toolkit/widgets/invalid_mark.h"

#include <QEvent>
#include <QPainter>

TInvalidMark::TInvalidMark(QWidget *control) : QWidget(control)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(control->rect());
    control->installEventFilter(this);
    raise();
    show();
}

void TInvalidMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(QPen(QColor(0xc0, 0x10, 0x10), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

bool TInvalidMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}
