#include "toolkit/widgets/dialog_body.h"

#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

TDialogBody::TDialogBody(QWidget *parent) : QScrollArea(parent), room(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    auto *inside = new QWidget;
    content = new QVBoxLayout(inside);
    content->setContentsMargins(0, 0, 0, 0);
    setWidget(inside);
    // It looks like the dialog behind it.
    viewport()->setAutoFillBackground(false);
    inside->setAutoFillBackground(false);
    connectGuarded(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *entered) {
        if (entered && widget()->isAncestorOf(entered))
            ensureWidgetVisible(entered);
    });
}

void TDialogBody::setRoom(QSize most)
{
    room = most;
    updateGeometry();
}

// Where one direction has to scroll, its bar takes room from the other.
QSize TDialogBody::fitting(QSize wanted) const
{
    QSize size = wanted;
    if (wanted.height() > room.height())
        size.rwidth() += verticalScrollBar()->sizeHint().width();
    if (wanted.width() > room.width())
        size.rheight() += horizontalScrollBar()->sizeHint().height();
    return size.boundedTo(room);
}

QSize TDialogBody::sizeHint() const
{
    return fitting(widget()->sizeHint());
}

QSize TDialogBody::minimumSizeHint() const
{
    return fitting(widget()->minimumSizeHint());
}

// The content's own wishes change while it is shown: rows come and go.
bool TDialogBody::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}
