#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

// The contract between the host and a loadable package. A package exports four plain functions:
//   GetPackageInfoTable, Initialize, Finalize, GetEntryTable.

struct TPackageInfo {
    QString name;
    QStringList required; // packages it stands on, then the toolkit's libraries that it is linked with
    QStringList units;    // contained units, in order of initialization
};

// One thing that the host can open: a screen class, an entry function that needs no arguments, or an editor.
// A class that opens in several ways has an entry for each, with a name and a window of its own.
struct TPackageEntry {
    enum class Kind {
        ListScreen, // create() gives a list screen; the host shows it as a document window
        Dialog,     // create() gives a dialog; the host shows it modally
        Function,   // call() does everything
        Editor,     // call() opens the editor of one row on the first row of the books; in no menu
    };
    QString name; // "TPeriodDlg", "StartPerClose": the class or the entry function; no two are alike
    QString unit; // the unit it lives in
    Kind kind = Kind::Function;
    QStringList menu; // the menu it stands in and its sub-menus on the way; empty: in none
    QString caption;  // its menu caption, with the accelerator
    int help = 0;     // help topic; 0: none
    std::function<QWidget *(QWidget *owner)> create;
    std::function<void()> call;
    // A call of the screen's own between its creation and its first showing; what it raises ends the screen.
    std::function<void(QWidget *screen)> opened;
    bool writes = false; // it can do nothing but write: shut for a user who may only look
};

using TPackageEntries = std::vector<TPackageEntry>;

extern "C" {
using GetPackageInfoTableFn = const TPackageInfo *();
using InitializeFn = void();
using FinalizeFn = void();
using GetEntryTableFn = const TPackageEntries *();
}
