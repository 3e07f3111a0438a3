#pragma once

#include "host/controls/browse_frm.h"
#include "host/controls/list_finder.h"
#include "host/controls/list_query.h"
#include "host/controls/status_panels.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolBar>

// What the files of the base list share.
struct TBrowseFrm::Private {
    explicit Private(TBrowseFrm *frm) : query(frm), finder(&query), bar(new QToolBar(frm)) {}

    TListQuery query;
    TListFinder finder;
    QTimer tmrFind; // waits for the end of typing, then drives the search piece by piece

    QToolBar *bar;
    QMenu *menu = nullptr;
    QMenu *deleteMenu = nullptr;
    QAction *afterEditing = nullptr;    // parts new, edit and delete from the rest
    QAction *afterOwnActions = nullptr; // where the screen's own tool buttons end
    QLabel *findLabel = nullptr;
    QLineEdit *findEdit = nullptr;
    TDBGrid *grid = nullptr;
    QLabel *emptiness = nullptr;
    TStatusPanels *status = nullptr;

    bool captionsShown = false;
    bool toolBarShown = true;
    bool editable = true;
    bool printable = true;
    QString statedOrder; // the shown column by which the statement itself orders; empty: none
    QString orderColumn;
    bool descending = false;

    QElapsedTimer told; // since the count was shown while rows were coming

    qlonglong deleted = 1; // rows that the last delete found

    bool created = false;   // FormCreate went through
    bool destroyed = false; // FormDestroy was called
    bool placed = false;    // the kept placement was applied
    QEventLoop *modalLoop = nullptr;
};
