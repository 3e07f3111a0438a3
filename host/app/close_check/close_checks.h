#pragma once

#include "host/app/place.h"
#include "toolkit/data/database.h"
#include "toolkit/text/datetime.h"

#include <vector>

// What speaks against closing a month. The checks read and change nothing.

struct TCloseFinding {
    QString about; // an account, a document, a node …
    QString text;  // what is the matter, as a sentence
    TPlace place;  // where it is put right
    int count = 1; // more where one line stands for many

    bool operator==(const TCloseFinding &) const = default;
};

int countOf(const std::vector<TCloseFinding> &findings);

// The month to be closed and the books that it is in.
struct TClosing {
    TDatabase &fin;
    TDatabase &ravl;
    qlonglong period; // per_id of the month
    TDateTime month;
};

// The check says nothing of these books; the message says why.
class ENotChecked : public Exception {
public:
    using Exception::Exception;
};

struct TCloseCheck {
    QString name;
    // Raises ENotChecked, and EDatabaseError.
    std::function<std::vector<TCloseFinding>(const TClosing &)> find;
};

// In the order in which they are shown.
const std::vector<TCloseCheck> &closeChecks();
