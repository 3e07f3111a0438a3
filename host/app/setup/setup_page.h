#pragma once

#include "database/standard/standard.h"
#include "toolkit/widgets/form.h"

#include <functional>

// One step of the set-up as the user meets it, described.
struct TSetUpPage {
    QString title;
    QString told; // above the fields
    QList<TFieldRow> rows;
    // Raises, with the cursor in the field, when what was typed cannot be written.
    std::function<void(TFieldForm &)> check;
    // Adds what was typed to what is written; nothing where the page was left empty.
    std::function<void(const TFieldForm &, TSetUp &)> take;
    bool done = false; // the books have it already: the page is only looked at
};

// The pages in their order. done: the steps that the books have already. An administrator is asked for
// without fail while the books have no user.
QList<TSetUpPage> setUpPages(const QSet<SetUpStep> &done);

// What is written and what is left for later, a line each.
QStringList summaryOf(const TSetUp &setUp, const QSet<SetUpStep> &done);
