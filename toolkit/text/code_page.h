#pragma once

#include <QByteArrayView>

// A text given in UTF-8 as bytes of code page 1257, without a QString in between.
struct TCodePageText {
    char *end; // behind the last byte written
    // Where the text has a character that the code page cannot hold, and the writing stopped; -1: nowhere. A
    // NUL counts as one, and so does what is no UTF-8.
    qsizetype refused;
};
// out has room for as many bytes as the text has.
TCodePageText toCodePage(char *out, QByteArrayView utf8);
