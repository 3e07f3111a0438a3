#pragma once

#include <QLockFile>
#include <QString>

// A folder for the parts of a backup, private and empty at first; it goes with the object. Its name is always
// the same, so that one left by a killed run is found and removed by the next: whoever makes it holds a lock
// that keeps others from it.
class TPartsFolder {
public:
    // Raises EFileError when it cannot be made.
    explicit TPartsFolder(const QString &path);
    ~TPartsFolder();
    TPartsFolder(const TPartsFolder &) = delete;
    TPartsFolder &operator=(const TPartsFolder &) = delete;

    QString filePath(const QString &part) const;

    // Removes one that a killed run left.
    static void remove(const QString &path);

private:
    QString path;
};

// A folder into which backups are written, held against every other program that writes them there, with room
// for the parts of one. What a killed run left there is removed.
class TBackupPlace {
public:
    // Waits for others. Raises EFileError when the folder cannot be written or the others do not end.
    explicit TBackupPlace(const QString &folder);

    QString part(const QString &name) const { return parts.filePath(name); }

private:
    class TFolderLock {
    public:
        explicit TFolderLock(const QString &folder);

    private:
        QLockFile lock;
    };

    TFolderLock lock;
    TPartsFolder parts;
};
