#include "host/data/offer_list.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int rowsAtMost = 10;
constexpr int widestAtMost = 600;

} // namespace

TOfferList::TOfferList(QLineEdit *owner) : QListWidget(owner), edit(owner)
{
    // A window that never takes the focus: the user goes on typing.
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setMouseTracking(true);
    hide();
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { emit picked(item->data(keyRole).toDouble()); });
}

void TOfferList::offer(const QList<TOffer> &offers)
{
    clear();
    for (const TOffer &each : offers) {
        auto *item = new QListWidgetItem(each.text, this);
        item->setData(keyRole, each.key);
        item->setToolTip(each.text);
    }
    setCurrentItem(nullptr);
    if (offers.isEmpty() || !edit->isVisible()) {
        closeUp();
        return;
    }
    placeBelow();
    edit->window()->installEventFilter(this);
    show();
}

TOffer TOfferList::at(int row) const
{
    return {item(row)->text(), item(row)->data(keyRole).toDouble()};
}

void TOfferList::closeUp()
{
    edit->window()->removeEventFilter(this);
    hide();
}

std::optional<double> TOfferList::highlighted() const
{
    if (!isVisible() || !currentItem())
        return {};
    return currentItem()->data(keyRole).toDouble();
}

bool TOfferList::takesKey(const QKeyEvent &key)
{
    if (!isVisible())
        return false;
    const int page = rowsAtMost - 1;
    const int row = currentRow();
    const auto moveTo = [this](int wanted) { setCurrentRow(qBound(0, wanted, count() - 1)); };
    switch (key.key()) {
    case Qt::Key_Down:
        moveTo(row + 1);
        return true;
    case Qt::Key_Up:
        moveTo(row < 0 ? count() - 1 : row - 1);
        return true;
    case Qt::Key_PageDown:
        moveTo(row + page);
        return true;
    case Qt::Key_PageUp:
        moveTo(row - page);
        return true;
    case Qt::Key_Escape:
        closeUp();
        return true;
    default:
        return false;
    }
}

// Below the edit, or above it where the screen ends.
void TOfferList::placeBelow()
{
    const int frame = 2 * frameWidth();
    const int width = qBound(edit->width(), sizeHintForColumn(0) + 40, qMax(edit->width(), widestAtMost));
    const int height = sizeHintForRow(0) * qMin(count(), rowsAtMost) + frame;
    QPoint place = edit->mapToGlobal(QPoint(0, edit->height()));
    const QRect screen = edit->screen()->availableGeometry();
    if (place.y() + height > screen.bottom())
        place.setY(edit->mapToGlobal(QPoint(0, 0)).y() - height);
    place.setX(qMax(screen.left(), qMin(place.x(), screen.right() - width)));
    setGeometry(QRect(place, QSize(width, height)));
}

// The list would stay behind when the window goes.
bool TOfferList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Hide ||
        event->type() == QEvent::WindowDeactivate)
        closeUp();
    return QListWidget::eventFilter(watched, event);
}
