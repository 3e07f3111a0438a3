#include "src/users/rights_tree.h"

#include "toolkit/widgets/icons.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTreeWidgetItemIterator>

#include <cmath>

namespace {

const QString draggedType = QStringLiteral("application/x-velmora-rights");
const QString nodeType = QStringLiteral("application/x-velmora-right");
constexpr int largestWorkPlace = 16;

void setValue(QTreeWidgetItem *node, int value)
{
    node->setData(0, Qt::UserRole, QVariant::fromValue(TReiksme(value)));
}

QTreeWidgetItem *newNode(const QString &text, int value, TIcon picture)
{
    auto *node = new QTreeWidgetItem({text});
    node->setIcon(0, icon(picture));
    setValue(node, value);
    return node;
}

} // namespace

TWorkPlaceMask workPlaceBit(int workPlace)
{
    if (workPlace < 1 || workPlace > largestWorkPlace)
        return 0;
    return TWorkPlaceMask(std::lround(std::pow(2.0, workPlace - 1)));
}

// --- the lists

TRightsList::TRightsList(QWidget *parent) : QListWidget(parent)
{
    setDragEnabled(true);
    setSpacing(1); // else the boxes to tick touch each other
}

QString TRightsList::origin(const QMimeData *dragged)
{
    return QString::fromUtf8(dragged->data(draggedType));
}

QStringList TRightsList::mimeTypes() const
{
    return {draggedType};
}

QMimeData *TRightsList::mimeData(const QList<QListWidgetItem *> &) const
{
    auto *dragged = new QMimeData;
    dragged->setData(draggedType, objectName().toUtf8());
    return dragged;
}

// --- the tree

TRightsTree::TRightsTree(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
}

int TRightsTree::valueOf(const QTreeWidgetItem *node)
{
    return node->data(0, Qt::UserRole).value<TReiksme>().value().toInt();
}

bool TRightsTree::bearsName(const QString &name) const
{
    for (QTreeWidgetItemIterator node(const_cast<TRightsTree *>(this)); *node; ++node)
        if ((*node)->text(0) == name)
            return true;
    return false;
}

void TRightsTree::addSource(const QString &name, TWorkPlaceMask mask)
{
    if (bearsName(name))
        return;
    QTreeWidgetItem *source = newNode(name, 0, TIcon::Folder);
    addTopLevelItem(source);
    addWorkPlaces(source, mask);
    source->setExpanded(true);
}

void TRightsTree::addWorkPlaces(QTreeWidgetItem *node, TWorkPlaceMask mask)
{
    if (!node || mask == 0)
        return;
    int has = valueOf(node);
    for (int i = 0; i < places->count(); ++i) {
        const int workPlace = GetListObject(places->model(), i);
        const TWorkPlaceMask bit = workPlaceBit(workPlace);
        if (!(bit & mask) || (bit & has))
            continue;
        node->addChild(newNode(places->item(i)->text(), workPlace, TIcon::User));
        has |= bit;
    }
    setValue(node, has);
}

QTreeWidgetItem *TRightsTree::selectedNode() const
{
    return selectedItems().value(0);
}

// First what is under the node, so that it holds its own value again when its bit is taken from its source.
void TRightsTree::remove(QTreeWidgetItem *node)
{
    while (node->childCount() > 0)
        remove(node->child(node->childCount() - 1));
    if (QTreeWidgetItem *above = node->parent())
        setValue(above, valueOf(above) ^ workPlaceBit(valueOf(node)));
    delete node;
}

void TRightsTree::removeSelected()
{
    QTreeWidgetItem *node = selectedNode();
    if (!node)
        return;
    const QSignalBlocker silently(this);
    QTreeWidgetItemIterator before(node);
    --before;
    QTreeWidgetItem *next = *before;
    remove(node);
    setCurrentItem(next);
}

bool TRightsTree::isComplete() const
{
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->childCount() == 0)
            return false;
    return topLevelItemCount() > 0;
}

std::vector<TRight> TRightsTree::rights() const
{
    std::vector<TRight> all;
    all.reserve(size_t(topLevelItemCount()));
    for (int i = 0; i < topLevelItemCount(); ++i)
        all.push_back({topLevelItem(i)->text(0), TWorkPlaceMask(valueOf(topLevelItem(i)))});
    return all;
}

void TRightsTree::focusInEvent(QFocusEvent *event)
{
    QTreeWidget::focusInEvent(event);
    if (!selectedNode() && topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0));
}

// A node can be dragged, but nothing takes it.
QStringList TRightsTree::mimeTypes() const
{
    return {nodeType};
}

QMimeData *TRightsTree::mimeData(const QList<QTreeWidgetItem *> &) const
{
    auto *dragged = new QMimeData;
    dragged->setData(nodeType, {});
    return dragged;
}

void TRightsTree::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(!TRightsList::origin(event->mimeData()).isEmpty());
}

void TRightsTree::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(!TRightsList::origin(event->mimeData()).isEmpty());
}

void TRightsTree::dropEvent(QDropEvent *event)
{
    const QString origin = TRightsList::origin(event->mimeData());
    event->setAccepted(!origin.isEmpty());
    if (!origin.isEmpty())
        emit dropped(origin, itemAt(event->position().toPoint()));
}
