#pragma once

#include "src/frame/host_services.h"

#include <QListWidget>
#include <QTreeWidget>

#include <vector>

// A set of work places: bit k-1 stands for work place k. Only the work places 1 to 16 have a bit.
using TWorkPlaceMask = quint16;
TWorkPlaceMask workPlaceBit(int workPlace); // 0 for a work place without a bit

// One right: the work places at which a user works with a financing source.
struct TRight {
    QString source;
    TWorkPlaceMask workPlaces = 0;
};

// The lists whose items are dragged onto the tree of rights. What they give while dragging is known to the
// tree alone.
class TRightsList : public QListWidget {
    Q_OBJECT
public:
    explicit TRightsList(QWidget *parent = nullptr);

    // The list that a drag comes from, by its object's name; empty for any other drag.
    static QString origin(const QMimeData *dragged);

protected:
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QListWidgetItem *> &items) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
};

// The rights of a user: financing sources, and under each its work places. Every node holds a number in a
// TReiksme: a source the mask of the work places under it, a work place its id.
class TRightsTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit TRightsTree(QWidget *parent = nullptr);

    // The work places that can be given, in the order in which they are listed.
    void setWorkPlaces(const TRightsList *list) { places = list; }

    // Adds a source with these work places, unless any node bears its name.
    void addSource(const QString &name, TWorkPlaceMask mask);
    // Adds those of the work places to a node that it does not have yet. Nothing for a null node.
    void addWorkPlaces(QTreeWidgetItem *node, TWorkPlaceMask mask);
    // Removes the selected node with all under it; the node before it becomes the selected one. No change of
    // the selection is told.
    void removeSelected();
    QTreeWidgetItem *selectedNode() const; // or null

    // There is a source, and none is without a work place.
    bool isComplete() const;
    std::vector<TRight> rights() const; // of the sources, in their order

    static int valueOf(const QTreeWidgetItem *node);

signals:
    // Something was dragged here from the list of that name; node: where it landed, or null.
    void dropped(const QString &origin, QTreeWidgetItem *node);

protected:
    // Selects the first node when nothing is selected yet, so that keys have a node in sight to act on.
    void focusInEvent(QFocusEvent *event) override;

    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QTreeWidgetItem *> &nodes) const override;

private:
    bool bearsName(const QString &name) const;
    static void remove(QTreeWidgetItem *node);

    const TRightsList *places = nullptr;
};
