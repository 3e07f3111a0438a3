#include "tests/database/tool/velmora_db.h"

#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QProcess>

using namespace Qt::StringLiterals;

TResult velmoraDb(const QStringList &arguments)
{
    QProcess process;
    process.start(buildFolder() + u"/bin/velmora-db"_s, arguments);
    EXPECT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
