#pragma once

#include <QDirIterator>
#include <QFileInfo>
#include <QStringList>

#include <sys/stat.h>

// While the object lives, new files would be readable by everybody unless somebody sees to it.
class OpenMask {
public:
    OpenMask() : before(::umask(0)) {}
    ~OpenMask() { ::umask(before); }
    OpenMask(const OpenMask &) = delete;
    OpenMask &operator=(const OpenMask &) = delete;

private:
    mode_t before;
};

// What others than the owner can get at: of the folder itself, the files and the folders in it.
inline QStringList openToOthers(const QString &folder)
{
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QStringList found;
    const auto look = [&](const QFileInfo &info) {
        if (info.permissions() & others)
            found << info.filePath();
    };
    look(QFileInfo(folder));
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        look(QFileInfo(all.next()));
    return found;
}
