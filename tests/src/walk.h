#pragma once

#include "host/common/package.h"

#include <QStringList>

// What somebody met who only looked.
struct TVisit {
    int windows = 0;   // looked at
    QStringList boxes; // texts of the message boxes passed on the way
};

// Opens what the entry names, calls look with every window that comes, and leaves each by Esc without
// changing anything. From a document New and Edit are pressed too, where they can be. Message boxes are
// passed: the first question is answered by yes, a further one by no, for who asks twice is about to write.
TVisit visitEntry(const TPackageEntry &entry, const std::function<void(QWidget &)> &look);

// Controls that take input but have neither a caption, nor a label of their own, nor an accessible name; and
// boxes that are read by their contents instead of their name.
QStringList controlsWithoutName(QWidget &window);
// Enabled controls that neither Tab nor a key of their own reaches.
QStringList controlsOutOfReach(QWidget &window);
// The letters that the visible controls of the window have as their accelerators.
QStringList accelerators(QWidget &window);
// Letters that two visible controls of the window share as their accelerator.
QStringList repeatedAccelerators(QWidget &window);
// Statements of the window's queries that no file of the corpus has, blanks aside. A list over a statement
// without an order may read it in that of a column.
QStringList statementsUnworded(const QWidget &window);
// Edits of texts that take more by a paste than their column holds, or less.
QStringList editsOfAnotherLength(QWidget &window);
// Statements of the window's queries that their engine refuses to prepare, with its words.
QStringList statementsRefused(QWidget &window);
