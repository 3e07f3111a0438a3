#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <sys/mount.h>

// Only root may mount: a test that needs a mount begins with this.
#define REQUIRE_MOUNTED(mount)                                                                               \
    if (!(mount).there())                                                                                    \
    GTEST_SKIP() << "only root may mount"

// A disk of a given size.
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

// A file that something is mounted on cannot be replaced, as one that another program holds.
class HeldFile {
public:
    explicit HeldFile(const QString &file)
        : name(file.toUtf8()),
          mounted(mount(name, name, nullptr, MS_BIND, nullptr) == 0)
    {
    }
    ~HeldFile()
    {
        if (mounted)
            umount2(name, MNT_DETACH);
    }
    HeldFile(const HeldFile &) = delete;
    HeldFile &operator=(const HeldFile &) = delete;

    bool there() const { return mounted; }

private:
    QByteArray name;
    bool mounted;
};
