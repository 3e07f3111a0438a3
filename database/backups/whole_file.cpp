#include "database/backups/whole_file.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 copiedAtOnce = 1 << 20;

[[noreturn]] void failWriting(const QString &name, const QString &reason)
{
    throw EFileError(u"Nepavyko įrašyti failo „%1“: %2."_s.arg(name, reason));
}

void syncPath(const QString &path, int flags)
{
    const int handle = ::open(QFile::encodeName(path).constData(), flags);
    if (handle < 0)
        failWriting(path, systemTrouble(errno));
    const int failed = ::fsync(handle) != 0 ? errno : 0;
    ::close(handle);
    if (failed)
        failWriting(path, systemTrouble(failed));
}

void refuseExisting(const QString &name)
{
    if (QFileInfo::exists(name))
        throw EFileError(u"Failas „%1“ jau yra."_s.arg(name));
}

// Renames to a name that nobody has. Some file systems only replace.
void renameToFree(const QString &from, const QString &to)
{
    if (::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                    QFile::encodeName(to).constData(), RENAME_NOREPLACE) == 0)
        return;
    const int failed = errno;
    refuseExisting(to);
    if (failed != EINVAL && failed != ENOSYS)
        failWriting(to, systemTrouble(failed));
    renameOver(from, to);
}

} // namespace

QString fileTrouble(const QFileDevice &file)
{
    return file.error() == QFileDevice::ResourceError ? systemTrouble(ENOSPC) : file.errorString();
}

TWholeFile::TWholeFile(const QString &name) : target(name), file(name + u".dalinis"_s)
{
    refuseExisting(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) ||
        !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        failWriting(file.fileName(), fileTrouble(file));
}

TWholeFile::~TWholeFile()
{
    if (!published)
        file.remove();
}

void TWholeFile::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            failWriting(file.fileName(), fileTrouble(file));
        bytes = bytes.sliced(written);
    }
}

void TWholeFile::append(const QString &source)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        throw EFileError(u"Nepavyko perskaityti failo „%1“: %2."_s.arg(source, fileTrouble(from)));
    QByteArray bytes(copiedAtOnce, Qt::Uninitialized);
    for (;;) {
        const qint64 got = from.read(bytes.data(), copiedAtOnce);
        if (got < 0)
            throw EFileError(u"Nepavyko perskaityti failo „%1“: %2."_s.arg(source, fileTrouble(from)));
        if (got == 0)
            return;
        write(QByteArrayView(bytes).first(got));
    }
}

QString TWholeFile::finish()
{
    if (file.isOpen()) {
        if (::fsync(file.handle()) != 0)
            failWriting(file.fileName(), systemTrouble(errno));
        file.close();
    }
    return file.fileName();
}

void TWholeFile::publish()
{
    renameToFree(finish(), target);
    published = true;
    syncFolder(QFileInfo(target).absolutePath());
}

void syncFile(const QString &file)
{
    syncPath(file, O_RDONLY | O_CLOEXEC);
}

void syncFolder(const QString &folder)
{
    syncPath(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

void renameOver(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        failWriting(to, systemTrouble(errno));
}
