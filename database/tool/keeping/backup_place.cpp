#include "database/tool/keeping/backup_place.h"

#include "database/backups/replacement.h"
#include "database/backups/unfinished.h"

#include <QDir>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int waitForOthersMs = 300'000;

} // namespace

TPartsFolder::TPartsFolder(const QString &aPath) : path(aPath)
{
    remove(path);
    if (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) != 0)
        throw EFileError(u"Nepavyko sukurti aplanko „%1“: %2."_s.arg(path, systemTrouble(errno)));
}

TPartsFolder::~TPartsFolder()
{
    QDir(path).removeRecursively();
}

QString TPartsFolder::filePath(const QString &part) const
{
    return QDir(path).filePath(part);
}

void TPartsFolder::remove(const QString &path)
{
    // In a folder that everybody may write to, the name may be somebody else's.
    struct stat found = {};
    if (::lstat(QFile::encodeName(path).constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
        found.st_uid == ::geteuid())
        QDir(path).removeRecursively();
}

TBackupPlace::TFolderLock::TFolderLock(const QString &folder) : lock(booksLock(folder))
{
    lock.setStaleLockTime(0);
    if (!lock.tryLock(waitForOthersMs))
        throw EFileError(
            u"Į aplanką „%1“ negalima rašyti, arba jame kopiją vis dar daro kita programa."_s.arg(folder));
    for (const QString &file : unfinishedIn(folder))
        QFile::remove(file);
}

TBackupPlace::TBackupPlace(const QString &folder)
    : lock(folder),
      parts(QDir(folder).filePath(QLatin1String(partsName)))
{
}
