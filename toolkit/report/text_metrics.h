#pragma once

#include <QFont>

// The font of reports at a size in points, measured in points whatever the device.
QFont reportFont(int size, bool bold);
qreal lineHeight(int fontSize);
// How a text is broken into lines of the given width: between words, and inside a word that is wider.
int wrapFlags(const QString &text, qreal width, int fontSize, bool bold);
// The height of a text broken into lines so.
qreal wrappedHeight(const QString &text, qreal width, int fontSize, bool bold);
