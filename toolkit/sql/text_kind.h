#pragma once

#include "toolkit/sql/translator.h"

#include <algorithm>

// What a text column holds, told by its name: people's words (names, addresses, folders), which lists order
// by Lithuanian collation, or codes and numbers, which are ordered by code point.
// The name may be of any case, with or without its three-letter table prefix.
inline ColumnKind textKind(const QString &column)
{
    // "pav" covers pavad, pav and pavarde.
    static const QStringList words = {QStringLiteral("pav"), QStringLiteral("vardas"), QStringLiteral("adr"),
                                      QStringLiteral("dir")};
    static const QStringList codes = {QStringLiteral("kod"), QStringLiteral("nr")};
    const QString name = column.mid(column.indexOf(QLatin1Char('_')) + 1).toLower();
    const auto contains = [&name](const QString &part) { return name.contains(part); };
    const bool isCode = std::any_of(codes.cbegin(), codes.cend(), contains);
    const bool isWords = std::any_of(words.cbegin(), words.cend(), contains);
    return isWords && !isCode ? ColumnKind::Name : ColumnKind::Code;
}
