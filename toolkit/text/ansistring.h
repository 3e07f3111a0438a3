#pragma once

#include "toolkit/text/errors.h"

#include <QByteArray>
#include <QString>

// An 8-bit text in code page 1257, implicitly shared. It stands at the package's entry functions; inside,
// text is QString. Converting is explicit in both directions and never loses a character silently.
class AnsiString {
public:
    AnsiString() = default;
    // Raises EConvertError, naming the first character that code page 1257 cannot hold.
    explicit AnsiString(const QString &text);
    // Bytes that are code page 1257 already.
    static AnsiString fromBytes(QByteArray bytes);

    QString toQString() const;
    const QByteArray &bytes() const { return data; }
    qsizetype Length() const { return data.size(); }
    bool IsEmpty() const { return data.isEmpty(); }

    friend bool operator==(const AnsiString &, const AnsiString &) = default;

private:
    QByteArray data;
};

// The position of the first character that code page 1257 cannot hold (a NUL counts as one); -1 when it holds
// all.
qsizetype firstOutsideCodePage(const QString &text);
