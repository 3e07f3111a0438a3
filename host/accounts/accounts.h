#pragma once

#include "host/data/main_datas.h"

#include <QWidget>

// The number of an account, and with withName two blanks and its name; empty when there is no such account.
QString GetSasById(double id, bool withName);
// The id of an account number; 0 when there is none.
double GetSasByNr(const QString &nr);
// True when the account has sub-accounts, that is, it is a summary account.
bool SasHasChildren(const QString &nr);
// The kind letter of an account: "D" marks a detail account. Empty when there is no such account.
QString GetSasKind(double id);

// Opens the chart-of-accounts picker modally: tree, list and search. Returns the chosen account's id, 0 when
// none. anyAccount: true: every account may be chosen; false: only detail accounts (kind "D", without
// sub-accounts), summary accounts only open. firstView: what it shows first: 1 the tree, 2 the list of all
// accounts ordered by number.
double OpenSasModal(bool anyAccount, unsigned char firstView);
