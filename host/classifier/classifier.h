#pragma once

#include "host/data/main_datas.h"

// Asks for a classification book with a small modal picker, the user's former choice preselected, and keeps
// the choice in the settings store for the current user. Returns the book's id, 0 when cancelled or when
// there are no books.
double GetUserKnygaId();

// The book kept for the current user, without asking; the first book when none is kept or it no longer
// exists; 0 when there are no books.
double userKnyga();
// Keeps a book for the current user.
void setUserKnyga(double book);

// Opens the picker of the state function codes modally. Returns the id of the chosen function, 0 when none.
// leavesOnly: true: only functions without functions below them may be chosen, the others only open; false:
// any. asList: true: shows the list of all functions ordered by code first; false: the tree.
double OpenFunModal(bool leavesOnly, bool asList);

// The code of a function, two blanks and its name; empty when there is no such function.
QString GetFunById(double id);
