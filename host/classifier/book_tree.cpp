#include "host/classifier/book_tree.h"

#include "host/common/lists.h"
#include "toolkit/widgets/guard.h"

#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int filledRole = Qt::UserRole + 1;

} // namespace

QTreeWidgetItem *itemOf(const TBookNode &node, const QWidget *styledBy)
{
    auto *item = new QTreeWidgetItem;
    item->setText(0, node.label());
    item->setToolTip(0, node.label());
    item->setData(0, Qt::UserRole, QVariant::fromValue(TReiksme(node.id)));
    item->setIcon(
        0, styledBy->style()->standardIcon(node.hasChildren ? QStyle::SP_DirIcon : QStyle::SP_FileIcon));
    return item;
}

TBookTree::TBookTree(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAccessibleName(u"Klasifikacijos medis"_s);
    connect(this, &QTreeWidget::itemExpanded, this,
            guarded(this, [this](QTreeWidgetItem *item) { fill(item); }));
}

double TBookTree::nodeOf(const QTreeWidgetItem *item)
{
    return item ? item->data(0, Qt::UserRole).value<TReiksme>().value().toDouble() : 0;
}

void TBookTree::setBook(TDatabase *fromDatabase, double newBook)
{
    clear();
    database = fromDatabase;
    book = newBook;
    invisibleRootItem()->setData(0, filledRole, false);
    if (book > 0)
        fill(invisibleRootItem());
}

void TBookTree::fill(QTreeWidgetItem *above)
{
    if (above->data(0, filledRole).toBool())
        return;
    QList<QTreeWidgetItem *> items;
    const QList<TBookNode> nodes = nodesBelow(database, book, nodeOf(above));
    for (const TBookNode &node : nodes) {
        QTreeWidgetItem *item = itemOf(node, this);
        item->setChildIndicatorPolicy(node.hasChildren ? QTreeWidgetItem::ShowIndicator
                                                       : QTreeWidgetItem::DontShowIndicator);
        items.append(item);
    }
    above->setData(0, filledRole, true);
    above->addChildren(items);
}

QTreeWidgetItem *TBookTree::childOf(QTreeWidgetItem *above, double node)
{
    fill(above);
    for (int i = 0; i < above->childCount(); ++i) {
        if (nodeOf(above->child(i)) == node)
            return above->child(i);
    }
    return nullptr;
}

bool TBookTree::goTo(double node)
{
    if (node <= 0) {
        setCurrentItem(nullptr);
        return true;
    }
    QTreeWidgetItem *item = invisibleRootItem();
    const QList<TBookNode> path = pathTo(database, node);
    if (path.isEmpty() || path.first().book != book)
        return false;
    for (const TBookNode &step : path) {
        item = childOf(item, step.id);
        if (!item)
            return false;
    }
    for (QTreeWidgetItem *above = item->parent(); above; above = above->parent())
        above->setExpanded(true);
    setCurrentItem(item);
    scrollToItem(item);
    return true;
}

double TBookTree::currentNode() const
{
    return nodeOf(currentItem());
}
