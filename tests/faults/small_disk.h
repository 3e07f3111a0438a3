#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <sys/mount.h>

// A disk of a given size; only root can have one.
class SmallDisk {
public:
    explicit SmallDisk(qint64 bytes) : mounted(folder.isValid() && request(0, bytes)) {}
    ~SmallDisk()
    {
        if (mounted)
            umount2(folder.path().toUtf8(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool there() const { return mounted; }
    QString path() const { return folder.path(); }
    bool resize(qint64 bytes) const { return request(MS_REMOUNT, bytes); }

private:
    bool request(unsigned long flags, qint64 bytes) const
    {
        const QByteArray size = "size=" + QByteArray::number(bytes);
        return mount("tmpfs", folder.path().toUtf8(), "tmpfs", flags, size.constData()) == 0;
    }

    QTemporaryDir folder;
    bool mounted;
};
