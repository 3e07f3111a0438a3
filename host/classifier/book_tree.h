#pragma once

#include "host/classifier/book_data.h"

#include <QTreeWidget>

// The tree of a classification book. A level is read from the database when it is opened for the first time,
// so a book of any size opens at once.
class TBookTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit TBookTree(QWidget *parent = nullptr);

    // Shows the first level of a book, read afresh; no node is current.
    void setBook(TDatabase *database, double book);

    // Makes a node current, opening the levels above it; 0 makes none current. Nothing happens to the tree,
    // and the result is false, when the book has no such node.
    bool goTo(double node);

    // The current node; 0 when there is none.
    double currentNode() const;

    static double nodeOf(const QTreeWidgetItem *item);

private:
    void fill(QTreeWidgetItem *above);
    QTreeWidgetItem *childOf(QTreeWidgetItem *above, double node);

    TDatabase *database = nullptr;
    double book = 0;
};

// A node as an item of a tree or list: its label, its key and an icon that tells levels from nodes that carry
// data.
QTreeWidgetItem *itemOf(const TBookNode &node, const QWidget *styledBy);
