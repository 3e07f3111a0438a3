// Keys inside the real main window, where one that two share is deaf.

#include "host/app/document_area.h"
#include "host/app/main_window.h"
#include "host/common/help.h"
#include "tests/src/frame/every_entry.h"
#include "tests/src/walk.h"
#include "tests/support/files.h"
#include "toolkit/widgets/dialog.h"

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTest>

namespace {

class InMainWindow : public OnEveryEntry {
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
using HelpOfEveryEntry = InMainWindow;
ON_EVERY_ENTRY(HelpOfEveryEntry);

class DocumentInMainWindow : public InMainWindow {};
INSTANTIATE_TEST_SUITE_P(, DocumentInMainWindow,
                         testing::Combine(testing::Values(Engine::Sqlite),
                                          testing::ValuesIn(entryNames(TPackageEntry::Kind::ListScreen))),
                         entryAndEngine);

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

TEST_P(DocumentInMainWindow, SharesNoAcceleratorWithTheMenuBar)
{
    window.openEntry(entry().name);
    QMdiSubWindow *document = window.documents()->activeSubWindow();
    ASSERT_TRUE(document);
    const QStringList inDocument = accelerators(*document);
    QStringList shared;
    for (const QAction *menu : window.menuBar()->actions())
        if (inDocument.contains(QKeySequence::mnemonic(menu->text()).toString().right(1)))
            shared << menu->text();
    EXPECT_EQ(shared, QStringList());
}

TEST_P(HelpOfEveryEntry, IsWritten)
{
    const QString page =
        QString("%1/docs/help/%2.md").arg(sourceFolder()).arg(entry().help, 2, 10, QChar(u'0'));
    EXPECT_FALSE(contentOf(page).trimmed().isEmpty());
}
