#pragma once

#include "toolkit/data/database.h"

#include <QList>

#include <optional>

// A classification book.
struct TKnyga {
    double id = 0;
    QString name;
};

// A node of a book: a functional or economic classification code.
struct TBookNode {
    double id = 0;
    double book = 0;
    double parent = 0; // 0 at the first level
    QString code;
    QString name;
    bool carriesData = false; // amounts can be kept for it
    bool hasChildren = false;

    // Code, two blanks and name.
    QString label() const { return code + QStringLiteral("  ") + name; }
};

// All books, ordered by name.
QList<TKnyga> booksOf(TDatabase *database);

// The nodes right below a node of the book, or of its first level when parent is 0; ordered by code. Reads
// one level only, whatever the size of the book.
QList<TBookNode> nodesBelow(TDatabase *database, double book, double parent);

// A node by its key; nothing when there is none.
std::optional<TBookNode> findNode(TDatabase *database, double id);

// The nodes from the first level down to the given one; empty when there is no such node, or when its
// ancestors run in a circle.
QList<TBookNode> pathTo(TDatabase *database, double id);
