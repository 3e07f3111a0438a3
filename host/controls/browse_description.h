#pragma once

#include "toolkit/data/query.h"

#include <functional>
#include <optional>
#include <vector>

// Which of the host's sessions a list reads.
enum class TSession { Main, Budget };

// Who may change the rows of a list.
enum class TEditing {
    Always,         // everybody sees new, edit and delete; a view-only user may only open the editor
    UnlessViewOnly, // a view-only user does not see them at all
    Never,
};

// One column of a list.
struct TBrowseColumn {
    QString field;
    QString title;
    int width = 0;                       // pixels; 0: wide enough for the title and the usual value
    std::optional<TAlignment> alignment; // without one numbers stand right, everything else left
    QString format;                      // of the shown value: "0.00", "#", "yyyy.mm.dd" …
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
    TUsedCheck used;

    // The editor of one row: shows it and returns whether the user saved; a new row's key comes back in key.
    QString newCaption;
    QString editCaption;
    std::function<bool(const QString &caption, bool isNew, Variant &key)> edit;

    // Further settings of the data set before it is opened first: live, cached updates, calculated fields.
    std::function<void(TQuery &)> prepare;
};
