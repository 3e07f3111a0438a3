#include "toolkit/export/export_file.h"

#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype portion = 256 << 10;

#ifdef Q_OS_WIN
constexpr char lineEnd[] = "\r\n";
#else
constexpr char lineEnd[] = "\n";
#endif

} // namespace

TExportFile::TExportFile(const QString &name) : file(name), bytes(portion + portion / 4)
{
    errno = QFileInfo(name).isDir() ? EISDIR : 0;
    if (errno || !file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        fail();
}

// The file tells a full disk from other troubles of writing, and the rest in the system's language only; the
// number of the error says more.
void TExportFile::fail()
{
    const QString reason = errno ? systemTrouble(errno) : file.errorString();
    throw EFileError(u"Nepavyko įrašyti failo „%1“: %2."_s.arg(file.fileName(), reason));
}

void TExportFile::endLine()
{
    bytes.append(lineEnd);
    if (bytes.size() >= portion)
        write();
}

void TExportFile::write()
{
    errno = 0;
    for (QByteArrayView left = bytes.view(); !left.isEmpty();) {
        const qint64 written = file.write(left.data(), left.size());
        if (written <= 0)
            fail();
        left = left.sliced(written);
    }
    bytes.clear();
}

void TExportFile::commit()
{
    write();
    errno = 0;
    if (!file.commit())
        fail();
}
