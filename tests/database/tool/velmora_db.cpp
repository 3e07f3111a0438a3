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

bool velmoraDbEndsBefore(int step, const QStringList &arguments)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, buildFolder() + u"/lib/libstop_at.so"_s);
    environment.insert(u"VELMORA_STOP_AT"_s, QString::number(step));
    environment.insert(u"ASAN_OPTIONS"_s,
                       environment.value(u"ASAN_OPTIONS"_s) + u":verify_asan_link_order=0"_s);
    program.setProcessEnvironment(environment);
    program.start(buildFolder() + u"/bin/velmora-db"_s, arguments);
    EXPECT_TRUE(program.waitForFinished(120'000));
    return program.exitStatus() == QProcess::NormalExit;
}
