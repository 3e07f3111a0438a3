#include "tests/support/files.h"

#include <gtest/gtest.h>

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

QString scratchRoot()
{
    static const QString root = [] {
        QString memory = u"/dev/shm"_s;
        constexpr qint64 plenty = 1'000'000'000;
        if (QFileInfo(memory).isWritable() && QStorageInfo(memory).bytesAvailable() > plenty)
            return memory;
        return QDir::tempPath();
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
