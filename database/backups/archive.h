#pragma once

#include "database/backups/whole_file.h"

#include <QJsonObject>
#include <QList>

// A backup that is damaged, cut short or no backup at all.
class EArchiveError : public Exception {
public:
    using Exception::Exception;
};

// One database inside a backup.
struct TArchivePart {
    QString name;
    qint64 offset = 0; // of its first byte in the file
    qint64 size = 0;
    QByteArray sha256;  // hexadecimal
    QJsonObject totals; // control totals of the database, compared again after the restore
};

// What a backup says of itself.
struct TArchive {
    QString engine;    // "sqlite" or "postgresql": in whose own format the parts are
    QString createdAt; // local time, ISO
    QList<TArchivePart> parts;
    QString institution; // its name in the books; empty in backups that do not tell
    QString month;       // the last one of the books, "2026-10"; empty: none, or not told
    int revision = 0;    // of the schema; 0: not told
};

// The file: a line that names the format, a line with the manifest (JSON), a line with the manifest's
// SHA-256, then the parts one after the other.

// Writes a backup of the given files, one per part; name and totals of each part are taken from the archive,
// size and checksum are filled in. The file is read again and verified before it gets its name.
// Raises EFileError when it exists or the disk is full; nothing is left of it then.
void writeArchive(const QString &file, TArchive archive, const QStringList &partFiles);

// Reads a backup and verifies every byte of it. Raises EArchiveError or EFileError.
TArchive readArchive(const QString &file);

// What a backup says of itself. Head and length of the file are verified, its parts are not. Raises
// EArchiveError or EFileError.
TArchive describeArchive(const QString &file);

// Writes one part into a file of its own, verifying it on the way.
void extractPart(const QString &file, const TArchivePart &part, const QString &target);
