#pragma once

#include "database/standard/standard.h"

// The rows of the steps. Each writes into tables that are empty, inside the caller's transactions.

struct TWriting {
    TDatabase &fin;
    TDatabase &ravl;
    const TSetUp &setUp;
};

bool hasRows(TDatabase &db, const QString &table);

void writeInstitution(const TWriting &to);
void writeAdministrator(const TWriting &to);
// Into each book that has none.
void writeMunicipalities(const TWriting &to);
void writeStandardAccounts(const TWriting &to);
// One book over the economic classification; the codes that nothing stands below can carry amounts.
void writeClassification(const TWriting &to);
void writeFunctions(const TWriting &to);
void writeWorkPlaces(const TWriting &to);
void writeSources(const TWriting &to);
void writeBanks(const TWriting &to);
void writeFirstMonth(const TWriting &to);

// Administrators without any right get every right on every source, on work places yet to come too.
void writeMissingRights(TDatabase &ravl);
