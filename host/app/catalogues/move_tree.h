#pragma once

#include "host/data/code_tree.h"

#include <QHash>
#include <QSet>
#include <QTreeWidget>

// The tree of a catalogue, whose rows can be dragged onto others of it; what comes from elsewhere is not
// taken. It moves nothing itself.
class TMoveTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit TMoveTree(QWidget *parent = nullptr);

    // Shows the rows below a first line that stands for all of them. What was open stays open, and the
    // current node current, or the nearest one above it that is still there. No choice is told.
    void fill(const TCodeTree &codes, const QString &root);

    double node() const; // the key of the current row; 0 on the first line
    void goTo(double key);

    // The user chose a node; dragged one row onto another (0: the first line, or beside the rows).
    std::function<void()> chosen;
    std::function<void(double key, double onto)> dropped;

protected:
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QTreeWidgetItem *> &items) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    void dropEvent(QDropEvent *event) override;

private:
    const QString ownRow; // the format of what is dragged: no other tree, of any program, has it

    void addBelow(QTreeWidgetItem *item, const TCodeTree &codes, int row);

    QHash<double, QTreeWidgetItem *> items; // by key; the first line is 0
    QSet<double> open;
};
