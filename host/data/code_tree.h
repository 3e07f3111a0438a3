#pragma once

#include "toolkit/data/database.h"

#include <QHash>
#include <QList>

// One row of a catalogue of codes that has a tree shape: an account, a function, a node.
struct TCodeRow {
    double id = 0;
    QString code;
    QString name;
    bool detail = false; // the table itself marks the row as one that carries data
    int parent = -1;     // its row in the tree; -1 at the top
    QList<int> children; // in the order of their codes
};

// A whole catalogue of codes, read with one statement: some ten thousand rows at most.
class TCodeTree {
public:
    // Reads the rows of a select with five columns: key, key of the parent (null at the top), code, name, and
    // a number that is not 0 for a detail row. Rows are kept ordered by code. A row whose parent is missing,
    // and one of every circle of parents, stands at the top, so every row can be reached. codeTitle is what a
    // code is called, for column titles.
    static TCodeTree read(TDatabase *database, const QString &statement, const QString &codeTitle);

    const QString &codeTitle() const { return title; }

    int count() const { return int(rows.size()); }
    const TCodeRow &at(int row) const { return rows.at(row); }
    const QList<int> &childrenOf(int row) const { return row < 0 ? top : rows.at(row).children; }
    bool isSummary(int row) const { return !rows.at(row).children.isEmpty(); }

    // -1 when there is no such row.
    int rowOf(double id) const;
    int rowOfCode(const QString &code) const;

    // Code, two blanks and name.
    QString label(int row) const;

    // The rows whose code begins with the text, and after them those whose name has all words of the text,
    // without regard to case and diacritics. Every row for an empty text. At most so many when limit is
    // given.
    QList<int> search(const QString &text, int limit = -1) const;

private:
    void connectRows(const QList<double> &parents);
    void bringOutCircles();
    const QStringList &foldedNames() const;

    QString title;
    QList<TCodeRow> rows;
    QList<int> top;
    QHash<qlonglong, int> byId;
    mutable QStringList folded; // made by the first search
};
