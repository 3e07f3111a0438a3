#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {
// Nothing of the person who runs the tests is read or changed: settings and data live in a folder of the run,
// and the language of the machine does not decide how numbers look.
void isolate(const QString &folder)
{
    qputenv("XDG_CONFIG_HOME", (folder + u"/config"_s).toUtf8());
    qputenv("XDG_DATA_HOME", (folder + u"/data"_s).toUtf8());
    qputenv("XDG_STATE_HOME", (folder + u"/state"_s).toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        for (const QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, folder + u"/config"_s);
    }
}
} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder;
    isolate(folder.path());
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"velmora-test"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    watchModalWindows();
    return RUN_ALL_TESTS();
}
