#include "toolkit/widgets/invalid_mark.h"

#include <QEvent>
#include <QPainter>

namespace {

TInvalidMark *markOn(const QWidget *control)
{
    for (QObject *child : control->children()) {
        if (auto *mark = dynamic_cast<TInvalidMark *>(child))
            return mark;
    }
    return nullptr;
}

} // namespace

void TInvalidMark::put(QWidget *control, const QString &reason)
{
    TInvalidMark *mark = markOn(control);
    if (!mark && reason.isEmpty())
        return;
    if (!mark)
        mark = new TInvalidMark(control);
    control->setToolTip(reason.isEmpty() ? mark->ownToolTip : reason);
    control->setAccessibleDescription(reason);
    if (reason.isEmpty())
        delete mark;
}

TInvalidMark::TInvalidMark(QWidget *control) : QWidget(control), ownToolTip(control->toolTip())
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
