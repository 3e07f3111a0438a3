#pragma once

#include <QList>

class TDataSet;

// The rules of a classification book's nodes. Each raises in words what it refuses.

void requireNodeCode(const TDataSet &row); // one level of a book has no code twice
void requireNodeMark(const TDataSet &row); // a code for which amounts are kept goes on carrying them

// A branch, given by the keys of its row and of all below it, may come to stand below parent (0: at the top):
// unless one of its codes is in use, and it is not loose; and never beside its own code.
void placeNode(const QList<double> &branch, double parent, bool loose);
