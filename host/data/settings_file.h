#pragma once

#include <QByteArray>
#include <QString>

// Replaces a settings file as a whole; as it may hold a password, it is its owner's alone, and so are the
// folders that are made for it. Raises EConvertError when it cannot be written; the old file stays then.
void writeSettingsFile(const QString &file, const QByteArray &content);
