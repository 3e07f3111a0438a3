#include "host/app/catalogues/move_tree.h"

#include "toolkit/widgets/guard.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalBlocker>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

double keyOf(const QTreeWidgetItem *item)
{
    return item ? item->data(0, Qt::UserRole).toDouble() : 0;
}

} // namespace

TMoveTree::TMoveTree(QWidget *parent)
    : QTreeWidget(parent),
      ownRow(u"application/x-velmora-row-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDropIndicatorShown(true);
    setDragDropOverwriteMode(true); // onto a row, never between two
    connectGuarded(this, &QTreeWidget::currentItemChanged, this, [this] { chosen(); });
    connectGuarded(this, &QTreeWidget::itemExpanded, this,
                   [this](QTreeWidgetItem *item) { open.insert(keyOf(item)); });
    connectGuarded(this, &QTreeWidget::itemCollapsed, this,
                   [this](QTreeWidgetItem *item) { open.remove(keyOf(item)); });
}

// Items are put into the view when all are made: the view then lays itself out once.
void TMoveTree::fill(const TCodeTree &codes, const QString &root)
{
    QList<double> upwards; // from the current row
    for (const QTreeWidgetItem *item = currentItem(); item; item = item->parent())
        upwards.append(keyOf(item));
    const QSignalBlocker quiet(this);
    clear();
    items.clear();
    auto *first = new QTreeWidgetItem({root});
    first->setFlags(first->flags() & ~Qt::ItemIsDragEnabled);
    items.insert(0, first);
    addBelow(first, codes, -1);
    addTopLevelItem(first);
    first->setExpanded(true);
    open.removeIf([this](double key) { return !items.contains(key); });
    for (const double key : std::as_const(open))
        items.value(key)->setExpanded(true);
    const auto there = std::ranges::find_if(upwards, [this](double key) { return items.contains(key); });
    goTo(there == upwards.end() ? 0 : *there);
}

void TMoveTree::addBelow(QTreeWidgetItem *item, const TCodeTree &codes, int row)
{
    QList<QTreeWidgetItem *> below;
    for (const int child : codes.childrenOf(row)) {
        auto *made = new QTreeWidgetItem({codes.label(child)});
        made->setToolTip(0, codes.label(child));
        made->setData(0, Qt::UserRole, codes.at(child).id);
        items.insert(codes.at(child).id, made);
        addBelow(made, codes, child);
        below.append(made);
    }
    item->addChildren(below);
}

double TMoveTree::node() const
{
    return keyOf(currentItem());
}

void TMoveTree::goTo(double key)
{
    QTreeWidgetItem *item = items.value(key, items.value(0));
    setCurrentItem(item);
    scrollToItem(item);
}

QStringList TMoveTree::mimeTypes() const
{
    return {ownRow};
}

QMimeData *TMoveTree::mimeData(const QList<QTreeWidgetItem *> &dragged) const
{
    auto *row = new QMimeData;
    row->setData(ownRow, QByteArray::number(keyOf(dragged.value(0)), 'f', 0));
    return row;
}

// What is dropped comes after the drag has ended: a question cannot be asked while it lasts. The view itself
// must not take the row away.
void TMoveTree::dropEvent(QDropEvent *event)
{
    const double key = event->mimeData()->data(ownRow).toDouble();
    const double onto = keyOf(itemAt(event->position().toPoint()));
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    QMetaObject::invokeMethod(this, guarded(this, [this, key, onto] { dropped(key, onto); }),
                              Qt::QueuedConnection);
}
