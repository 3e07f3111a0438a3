#pragma once

#include "host/controls/browse_frm.h"
#include "host/controls/list_finder.h"
#include "toolkit/data/query.h"
#include "toolkit/widgets/column_lookup.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <map>

// What the files of the base list share.
struct TBrowseFrm::Private {
    explicit Private(TBrowseFrm *frm) : query(nullptr, frm), finder(&query) { query.readsAside = true; }

    TQuery query;
    TListFinder finder;
    QTimer tmrFind; // waits for the end of typing, then drives the search piece by piece

    // The texts of columns by their column or statement; forgotten with every reading.
    std::map<QString, std::shared_ptr<TColumnLookup>> lookups;
    QAction *afterEditing = nullptr; // parts new, edit and delete from the rest
    QBoxLayout *searchLines = nullptr;
    QBoxLayout *pickLine = nullptr; // where the next control of the tool bar goes
    QLabel *findLabel = nullptr;
    QLineEdit *findEdit = nullptr;
    QString findTitle; // of the column that is searched
    TDBGrid *grid = nullptr;
    QLabel *emptiness = nullptr;

    bool editable = true;
    bool printable = true;
    QString statedOrder; // the shown column by which the statement itself orders; empty: none
    QString orderColumn;
    bool descending = false;

    QElapsedTimer told; // since the count was shown while rows were coming

    qlonglong deleted = 1; // rows that the last delete found
};
