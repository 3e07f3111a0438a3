#pragma once

#include "host/controls/key_rule.h"
#include "host/controls/session.h"
#include "toolkit/data/query.h"
#include "toolkit/widgets/dialog.h"

#include <vector>

// When the save button of an editor can be pressed; judged anew at every keystroke.
enum class TSaveRule {
    Always,
    WhenFilled,           // while every required field shows something
    WhenFilledAndChanged, // the same, and not before the user changed something
};

// A code that no other row of the table may have.
struct TUniqueCode {
    QString column;
    QString message = QStringLiteral("Kodas \"%s\" jau egzistuoja"); // %s stands for the code
};

// What the editor of one row says about itself.
struct TRecordDescription {
    QString name; // the dialog's class
    QString newCaption;
    QString editCaption; // empty: as newCaption
    int help = 0;        // help topic; 0: none
    TSession session = TSession::Main;

    QString table;
    QString keyColumn;
    TKeyRule key;
    QString sql; // the row, by one parameter: the key. Not for an editor over its list's own row.
    bool addsMissing = false; // a row that is not there is added instead of refused
    bool byKeyOnly = false;   // written by key alone: the last save wins
    std::vector<TUniqueCode> unique;

    QList<TFieldRow> rows; // in tab order
    QList<TDialogButton> buttons = saveAndCancel();
    TSaveRule save = TSaveRule::Always;

    // Shown instead of what the database says when it refuses; empty: its own words. A row that is gone and a
    // server that is lost are told as ever.
    QString openFailure, saveFailure;

    // Further settings of the row before it is opened: rules, statements of held changes.
    std::function<void(TQuery &)> prepare;
};

// Which row an editor opens.
struct TRecordStart {
    enum class Kind {
        New,     // a new one; key is that of a row to start from, if any
        Row,     // the one with the key
        ListRow, // the current one of its list, which is in insert or edit state
    };
    Kind kind = Kind::New;
    Variant key;
    TQuery *list = nullptr;

    static TRecordStart newRow(const Variant &from = {}) { return {Kind::New, from, nullptr}; }
    static TRecordStart row(const Variant &key) { return {Kind::Row, key, nullptr}; }
    static TRecordStart rowOrNew(bool isNew, const Variant &key) { return isNew ? newRow() : row(key); }
    static TRecordStart on(TQuery &list) { return {Kind::ListRow, {}, &list}; }
    // The row that the open list of that class ("TKasosFrm") has in insert or edit state; raises when there
    // is none.
    static TRecordStart onRowOf(const QString &listName);
};
