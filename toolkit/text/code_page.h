#pragma once

#include <QByteArray>

// Appends a text given in UTF-8 as bytes of code page 1257, without a QString in between, and returns -1.
// Returns the offset of the first character that the code page cannot hold instead (a NUL counts as one, and
// so does what is no UTF-8); what stood in front of it may be appended then.
qsizetype appendInCodePage(QByteArray &target, QByteArrayView utf8);
