#pragma once

#include "toolkit/data/database.h"

#include <QDate>
#include <QSet>

#include <optional>
#include <utility>

// What the set-up of new books can write. A step is refused where its tables hold rows already.
enum class SetUpStep {
    Institution,
    Administrator,
    Municipalities,
    Accounts,
    Classification,
    Functions,
    WorkPlaces,
    Sources,
    Banks,
    StartOfWork
};

// The institution as bd_org has it; empty texts and numbers stay null.
struct TInstitution {
    QString pavad;
    QString adr;
    std::optional<qlonglong> kodas;
    QString pvmKodas;
    QString draudKodas;
    std::optional<int> savivaldybe;
};

// The first user: he administers users, and has every right on every source that is written with him.
// Name and password must not be empty.
struct TAdministrator {
    QString name;
    QString vardas;
    QString pavarde;
    QString password;
};

struct TSetUp {
    std::optional<TInstitution> institution;
    std::optional<TAdministrator> administrator;
    QSet<SetUpStep> standard;         // of Municipalities to Banks
    std::optional<QDate> startOfWork; // any day of the month, of a year from 1997 to 2100
};

// The steps whose tables hold rows already.
QSet<SetUpStep> doneSteps(TDatabase &fin, TDatabase &ravl);

// What a step is called in messages, Lithuanian, nominative ("Sąskaitų planas").
QString stepName(SetUpStep step);

// Code and name of the municipalities, by code.
QList<std::pair<int, QString>> standardMunicipalities();

// Writes the steps, all of a book in one transaction, both transactions open until both books are filled.
// Raises Exception naming the step whose tables hold rows already or the value that cannot be stored, or
// EDatabaseError; nothing is written then. An institution's municipality brings the municipalities with it
// when there are none.
//
// A step that was skipped may be written by a later call. Municipalities stand in both books, and the call
// fills the book that has none. An administrator without any right gets every right as soon as there are
// sources. The budget book is committed first: whatever interrupts the two, somebody can log in and have the
// rest written.
void setUpBooks(TDatabase &fin, TDatabase &ravl, const TSetUp &setUp);
