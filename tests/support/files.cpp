#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

QString buildFolder()
{
    return qEnvironmentVariable("VELMORA_BUILD_DIR", QStringLiteral(VELMORA_BUILD_DIR));
}

QString sourceFolder()
{
    return qEnvironmentVariable("VELMORA_SOURCE_DIR", QStringLiteral(VELMORA_SOURCE_DIR));
}

namespace {
// A test that was killed could not remove what it wrote; a day later nobody needs it.
void removeLeftovers(const QString &root)
{
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    for (const QFileInfo &folder : QDir(root).entryInfoList({u"velmora-test-*"_s}, QDir::Dirs)) {
        if (folder.lastModified() < yesterday)
            QDir(folder.filePath()).removeRecursively();
    }
}
} // namespace

QString scratchRoot()
{
    static const QString root = [] {
        constexpr qint64 plenty = 1'000'000'000;
        const QStorageInfo memory(u"/dev/shm"_s);
        const bool roomy = QFileInfo(memory.rootPath()).isWritable() && memory.bytesAvailable() > plenty;
        QString folder = roomy && memory.rootPath() == u"/dev/shm"_s ? memory.rootPath() : QDir::tempPath();
        removeLeftovers(folder);
        return folder;
    }();
    return root;
}

QByteArray contentOf(const QString &file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << file.toStdString() << ": " << input.errorString().toStdString();
        return {};
    }
    return input.readAll();
}

void writeFile(const QString &file, const QByteArray &content)
{
    QFile output(file);
    const bool written = output.open(QIODevice::WriteOnly) && output.write(content) == content.size();
    EXPECT_TRUE(written) << "cannot write " << file.toStdString();
}
