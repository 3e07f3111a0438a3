#pragma once

#include <QStringView>

// Reads the quoted part of a picture that starts at position at with ' or ": returns the text between the
// quotes and moves at behind the closing quote, or to the end when there is none.
inline QStringView quotedPart(QStringView picture, qsizetype &at)
{
    const qsizetype start = at + 1;
    qsizetype end = picture.indexOf(picture[at], start);
    if (end < 0)
        end = picture.size();
    at = std::min(end + 1, picture.size());
    return picture.mid(start, end - start);
}

inline bool isQuote(QChar c)
{
    return c == u'\'' || c == u'"';
}
