#include "host/app/home/link.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

TLink::TLink(const QString &text, QWidget *parent) : QAbstractButton(parent)
{
    setText(text);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

int TLink::padding(const QWidget &in)
{
    return in.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &in) + 1;
}

QSize TLink::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * padding(*this),
            fontMetrics().height() + 2 * padding(*this)};
}

QSize TLink::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 8, sizeHint().height()};
}

void TLink::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect inside = rect().adjusted(padding(*this), 0, -padding(*this), 0);
    QFont font = this->font();
    font.setUnderline(underMouse() || hasFocus());
    painter.setFont(font);
    painter.setPen(palette().color(isEnabled() ? QPalette::Link : QPalette::PlaceholderText));
    painter.drawText(inside, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    frame.rect.setWidth(qMin(width(), sizeHint().width()));
    frame.backgroundColor = palette().color(QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void TLink::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void TLink::resizeEvent(QResizeEvent *event)
{
    setToolTip(width() < sizeHint().width() ? text() : QString());
    QAbstractButton::resizeEvent(event);
}

void TLink::enterEvent(QEnterEvent *event)
{
    update();
    QAbstractButton::enterEvent(event);
}

void TLink::leaveEvent(QEvent *event)
{
    update();
    QAbstractButton::leaveEvent(event);
}
