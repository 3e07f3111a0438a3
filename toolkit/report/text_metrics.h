#pragma once

#include <QFont>

// The font of reports at a size in points, measured in points whatever the device.
QFont reportFont(int size, bool bold);
qreal lineHeight(int fontSize);
// The height of a text broken into lines of the given width.
qreal wrappedHeight(const QString &text, qreal width, int fontSize, bool bold);
