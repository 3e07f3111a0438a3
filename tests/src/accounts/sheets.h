#pragma once

#include "src/accounts/balance_code.h"
#include "tests/support/print.h"
#include "toolkit/text/errors.h"

#include <ostream>

// Sheets in shorthand: a word for each line, "S" a side total, "G" a total of a group, "D" a detail, "?" a
// line without a kind.
namespace Balans {

inline TBalKind kindOf(QChar letter)
{
    switch (letter.unicode()) {
    case 'S':
        return TBalKind::SideTotal;
    case 'G':
        return TBalKind::GroupTotal;
    case 'D':
        return TBalKind::Detail;
    default:
        return TBalKind::None;
    }
}

inline TBalSheet sheetOf(const QString &letters)
{
    TBalSheet sheet;
    for (const QString &word : letters.split(u' ', Qt::SkipEmptyParts))
        sheet.push_back(
            {word == u"D" ? QStringLiteral("Eilutė (1)") : QStringLiteral("Eilutė"), kindOf(word.front())});
    return sheet;
}

inline bool knowsAll(const QString &)
{
    return true;
}

// The codes of a sheet between blanks, or the words of the refusal.
inline QString codesOf(TBalSide side, const TBalSheet &sheet, const TKnowsAccount &known = knowsAll)
{
    QStringList codes;
    try {
        for (const TBalEntry &entry : encodeSheet(side, sheet, known))
            codes << entry.kodif.kodas;
    } catch (const Exception &error) {
        return error.message();
    }
    return codes.join(u' ');
}

inline void PrintTo(const TBalLine &line, std::ostream *out)
{
    PrintTo(line.text, out);
    *out << " of kind " << int(line.kind);
}

inline void PrintTo(const TBalEntry &entry, std::ostream *out)
{
    *out << entry.kodif.kodas.toStdString() << ' ';
    PrintTo(entry.text, out);
}

} // namespace Balans
