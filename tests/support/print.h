#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// How a failing test shows Qt's texts: as one reads them.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toUtf8().constData() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << QByteArray(bytes).replace('\0', "\\0").constData() << '"';
}
