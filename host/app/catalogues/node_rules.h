#pragma once

class TDataSet;

// The rules of a classification book's nodes, for the row of one. Each raises in words what it refuses.

void requireNodeCode(const TDataSet &row); // one level of a book has no code twice
void requireNodeMark(const TDataSet &row); // a code for which amounts are kept goes on carrying them
