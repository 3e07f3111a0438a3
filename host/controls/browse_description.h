#pragma once

#include "host/controls/key_rule.h"
#include "host/controls/session.h"
#include "toolkit/data/query.h"

#include <functional>
#include <optional>
#include <type_traits>
#include <vector>

// Who may change the rows of a list.
enum class TEditing {
    Always,         // everybody sees new, edit and delete; a view-only user may only open the editor
    UnlessViewOnly, // a view-only user sees neither new nor delete, and may open the editor
    Never,
};

// One column of a list.
struct TBrowseColumn {
    QString field;
    QString title;
    int width = 0;                       // pixels; 0: wide enough for the title and the usual value
    std::optional<TAlignment> alignment; // without one numbers stand right, everything else left
    QString format;                      // of the shown value: "0.00", "#", "yyyy.mm.dd" …
    // The text shown for a key, looked up once for each key until the list is read again. A null key shows
    // nothing.
    std::function<QString(const Variant &key)> text;
    // The same by a statement with the key in its first column, run at first use; columns with the same
    // statement read it once.
    QString lookup;
    // The text of one of its rows; without it that of the second column.
    std::function<QString(const TDataSet &row)> lookupText;
};

// The text of a flag's column: yes, and no for 0.
inline QString yesOrNo(const Variant &flag)
{
    return flag.toInt() != 0 ? QStringLiteral("Taip") : QStringLiteral("Ne");
}

// A list that writes its rows itself: its dialog only asks for values.
struct TListValues {
    // Shows the dialog with a row's values by column in small letters, none for a new row; null when the user
    // gave up. What the database refuses is asked for again.
    std::function<std::optional<QVariantMap>(const QString &caption, const QVariantMap &now)> ask;
    TKeyRule key;
    // Shown instead of what the database says when it refuses; empty: its own words.
    QString newFailure, editFailure;
};

// The statements of a list that holds its changes until its dialog saves; parameters are named after the
// columns, OLD_name is the value before the change.
struct TListStatements {
    QString insert, update, remove;
};

// Rows that business records refer to are not deleted.
struct TUsedCheck {
    QString message;            // the refusal; %s stands for the row's name. Empty: no check is made.
    QString nameColumn;         // the column with the row's name
    bool afterQuestion = false; // whether the user is asked first and the database afterwards
};

// What a list screen says about itself. Everything else is the same for all lists.
struct TBrowseDescription {
    QString name; // the screen's class: "TObjektFrm"; its settings are kept under it
    QString caption;
    int help = 0; // help topic; 0: none
    TSession session = TSession::Main;
    QString keyColumn;
    QString table; // the base's own delete removes the key from it
    QString sql;
    QVariantMap parameters;
    std::vector<TBrowseColumn> columns;

    bool titleOrder = true; // a click on a title orders the list
    bool titlesCentred = false;
    TEditing editing = TEditing::Always;
    bool printable = true;
    int report = 0;             // the number of the host's report that is printed; 0: the list itself
    bool closesReports = false; // the end of the list ends the report engine, too
    TUsedCheck used;

    QString newCaption;
    QString editCaption;
    // One of three. The editor of one row: shows it and returns whether the user saved; a new row's key comes
    // back in key.
    std::function<bool(const QString &caption, bool isNew, Variant &key)> edit;
    // A dialog over the list's own current row, which the list has put into insert or edit state before; see
    // TRecordStart::onRowOf(). What it leaves unsaved is dropped.
    std::function<void(const QString &caption, bool isNew)> editRow;
    TListStatements statements; // with editRow: what the dialog's changes are written by
    // A dialog that only asks for values.
    TListValues values;

    // Further settings of the data set before it is opened first: live, calculated fields, rules of columns.
    std::function<void(TQuery &)> prepare;
};

// An editor whose keys are of type Key (double, int, AnsiString) as a list calls it: a function of caption,
// new flag and key, the latter two in either order, or of key and new flag alone.
template<class Key, class Editor> auto keyed(Editor editor)
{
    return [editor](const QString &caption, bool isNew, Variant &key) {
        auto typed = TKeyOf<Key>::from(key);
        bool saved = false;
        if constexpr (std::is_invocable_v<Editor, Key &, bool>)
            saved = editor(typed, isNew);
        else if constexpr (std::is_invocable_v<Editor, AnsiString, bool, Key &>)
            saved = editor(AnsiString(caption), isNew, typed);
        else if constexpr (std::is_invocable_v<Editor, AnsiString, Key &, bool>)
            saved = editor(AnsiString(caption), typed, isNew);
        else
            saved = editor(caption, isNew, typed);
        key = TKeyOf<Key>::to(typed);
        return saved;
    };
}
