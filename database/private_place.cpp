#include "database/private_place.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool makePrivateFolder(const QString &folder)
{
    const QString path = QDir::cleanPath(QDir(folder).absolutePath());
    if (QDir(path).exists())
        return true;
    return makePrivateFolder(QFileInfo(path).path()) &&
           (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || QDir(path).exists());
}

bool makePrivateFile(const QString &file)
{
    const int handle =
        ::open(QFile::encodeName(file).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle >= 0)
        ::close(handle);
    return handle >= 0;
}

void keepNewFilesPrivate()
{
    ::umask(S_IRWXG | S_IRWXO);
}
