#pragma once

#include "database/filling/table_text.h"

// One code of a classification.
struct TCode {
    QString code;
    QString name;
    qsizetype parent = -1; // its place in the list; -1 at the top
    bool leaf = true;      // nothing stands below it
};

// The key of what a code stands below, where keys are places counted from 1; null at the top.
QString parentKey(const TCode &code);

// The codes of a text with the columns kodas, tevas and pavad, in their order; a parent stands before what is
// below it.
QList<TCode> codeTree(const TTableText &text);

// The accounts of a text with the columns sas_sasnr and sas_pavad in the order of the numbers: what an
// account stands below is the longest other number that begins its own.
QList<TCode> accountTree(const TTableText &text);
