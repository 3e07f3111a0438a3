#pragma once

#include <QList>
#include <QString>

class TDataSet;

// The rules of a classification book's nodes. Each raises in words what it refuses.

void requireNodeCode(const TDataSet &row); // one level of a book has no code twice
// A code for which amounts are kept goes on carrying them, and one with others below it does not begin to.
void requireNodeMark(const TDataSet &row);

// A code comes to stand below the node: amounts are kept for it no more. Refused when it has some already.
void makeHeading(double node);

// What makeHeading() takes from the node, as a sentence; empty when nothing.
QString lossOfHeading(double node);

// A branch, given by the keys of its row and of all below it, comes to stand below parent (0: at the top):
// refused when one of its codes is in use, and it is not loose, and beside its own code; parent becomes a
// heading.
void placeNode(const QList<double> &branch, double parent, bool loose);
