#pragma once

#include "toolkit/data/database.h"

#include <QList>

#include <optional>

// A counterparty of the register.
struct TParty {
    double id = 0;
    QString code; // for searching
    QString name;
    Variant companyCode; // null when it has none
    double account = 0;  // what it owes stands on this account

    // How one of its columns is shown and typed; empty for a null.
    QString textOf(const QString &column) const;
    // All that tells it from others, in one line.
    QString label() const;
};

// Fresh from the database; nothing when there is no such counterparty.
std::optional<TParty> findParty(TDatabase *database, double id);

// The counterparties of which a column (dka_i_kod, dka_kod or dka_pavad) is just this text, names without
// regard to case. At most two are read: more than one is as good as many.
QList<TParty> partiesOf(TDatabase *database, const QString &column, const QString &text);

// Counterparties that fit what is being typed: first those whose search code or company code begins with it,
// then those whose name has its words, each part in its order; no regard to case and diacritics. All for an
// empty text. The register is read through the reading connection, and no further than limit rows.
QList<TParty> partiesLike(TDatabase *database, const QString &text, int limit);
