#pragma once

#include "toolkit/data/statement.h"

// What a type as it is declared in a table means: "varchar(50)", "numeric(15,4)", "integer" …
struct DeclaredType {
    QString name; // lower case, without sizes
    TFieldType type = TFieldType::ftUnknown;
    int size = 0;   // characters of a text; 0 when unlimited or no text
    int digits = 0; // of an amount, decimals included; 0 when none are given
    int scale = -1; // decimals of an amount; -1 when none are given
};
DeclaredType declaredType(const QString &declaration);

// What a column of that name and type holds for the translator.
ColumnKind columnKind(const QString &name, const DeclaredType &type);
