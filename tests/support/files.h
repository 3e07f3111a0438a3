#pragma once

#include <QByteArray>
#include <QString>

// The folder of the build that this test program belongs to, and the root of its sources.
QString buildFolder();
QString sourceFolder();

// A folder for files that tests throw away: in memory where the machine has such a folder, else the temporary
// one.
QString scratchRoot();

// The whole content of a file; the test fails when it cannot be read.
QByteArray contentOf(const QString &file);
void writeFile(const QString &file, const QByteArray &content);
