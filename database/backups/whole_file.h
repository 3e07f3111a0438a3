#pragma once

#include "toolkit/text/file_error.h"

#include <QByteArrayView>
#include <QFile>

// The reason of the last failure of a file in words; a full disk is named as such.
QString fileTrouble(const QFileDevice &file);

// A file that stands under its name only when it is whole: written beside it under the name with ".dalinis",
// brought to the disk and renamed by publish(). Without publish() nothing is left of it. It holds books, so
// it is readable by its owner alone.
class TWholeFile {
public:
    // Raises EFileError when the target exists already or its folder cannot be written.
    explicit TWholeFile(const QString &target);
    ~TWholeFile();
    TWholeFile(const TWholeFile &) = delete;
    TWholeFile &operator=(const TWholeFile &) = delete;

    void write(QByteArrayView bytes);
    // Copies all of another file.
    void append(const QString &source);
    // Brings everything to the disk and closes; the temporary file can then be read for verification.
    QString finish();
    // Raises EFileError when somebody has made such a file meanwhile; that one stays.
    void publish();

private:
    QString target;
    QFile file;
    bool published = false;
};

// Brings a file, or the names of a folder, to the disk. Raises EFileError.
void syncFile(const QString &file);
void syncFolder(const QString &folder);
// Renames, replacing the target. Raises EFileError.
void renameOver(const QString &from, const QString &to);
