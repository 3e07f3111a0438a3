// F1 inside the real main window, where a key that two actions share is deaf.

#include "host/app/main_window.h"
#include "host/common/help.h"
#include "tests/src/frame/every_entry.h"
#include "tests/src/walk.h"
#include "tests/support/files.h"
#include "toolkit/widgets/dialog.h"

#include <QTest>

namespace {

class HelpOfEveryEntry : public OnEveryEntry {
protected:
    void SetUp() override
    {
        OnEveryEntry::SetUp();
        setHelpViewer([this](int topic) { shown << topic; });
        TDialog::setHelpDisplay(showHelp);
        window.setLoggedIn(true);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TearDown() override
    {
        window.close();
        TDialog::setHelpDisplay({});
        setHelpViewer({});
        OnEveryEntry::TearDown();
    }

    static void pressF1(QWidget &in)
    {
        QCoreApplication::processEvents();
        QWidget *focused = in.focusWidget();
        QTest::keyClick(focused ? focused : &in, Qt::Key_F1);
    }

    QList<int> shown;
    TLoadedPackage package{buildFolder() + "/lib/libvelmora.so"};
    TMainWindow window{package};
};
ON_EVERY_ENTRY(HelpOfEveryEntry);

} // namespace

TEST_P(HelpOfEveryEntry, OpensByItsKey)
{
    const TPackageEntry opened{.name = entry().name, .call = [this] { window.openEntry(entry().name); }};
    const TVisit met = visitEntry(opened, pressF1);
    if (entry().kind == TPackageEntry::Kind::ListScreen)
        pressF1(window);
    else if (met.windows == 0) // nothing but questions
        return;
    EXPECT_EQ(shown, QList<int>(std::max(met.windows, 1), entry().help));
}

TEST_P(HelpOfEveryEntry, IsWritten)
{
    const QString page =
        QString("%1/docs/help/%2.md").arg(sourceFolder()).arg(entry().help, 2, 10, QChar(u'0'));
    EXPECT_FALSE(contentOf(page).trimmed().isEmpty());
}
