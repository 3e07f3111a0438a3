#include "tests/database/tool/velmora_db.h"

#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace Qt::StringLiterals;

TResult velmoraDb(const QStringList &arguments, const QString &input)
{
    QProcess process;
    process.start(buildFolder() + u"/bin/velmora-db"_s, arguments);
    process.write(input.toUtf8());
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
