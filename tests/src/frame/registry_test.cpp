// What every screen and dialog of the package owes, shown for each of them: a new one is tested by being
// registered.

#include "src/frame/registry.h"
#include "tests/src/open_books.h"
#include "tests/src/walk.h"

namespace {

class EveryScreen : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        startOfWork(2026, 1, 1);
        balance(account("241"), 100, 0);
        balance(account("401"), 0, 100);
    }
};
ON_BOTH_ENGINES(EveryScreen);

} // namespace

TEST_P(EveryScreen, OpensAndCloses)
{
    for (const TPackageEntry &entry : packageEntries()) {
        SCOPED_TRACE(entry.name.toStdString());
        int seen = 0;
        lookAtEntry(entry, [&seen](QWidget &) { ++seen; });
        EXPECT_EQ(seen, 1);
    }
}

TEST_P(EveryScreen, LeavesTheBooksAloneWhenOnlyLookedAt)
{
    const QStringList before = dump(books());
    for (const TPackageEntry &entry : packageEntries())
        lookAtEntry(entry, [](QWidget &) {});
    EXPECT_EQ(dump(books()), before);
}

TEST_P(EveryScreen, NamesEveryControlForThoseWhoCannotSeeIt)
{
    for (const TPackageEntry &entry : packageEntries())
        lookAtEntry(entry, [&entry](QWidget &window) {
            EXPECT_EQ(controlsWithoutName(window), QStringList()) << qPrintable(entry.name);
        });
}

TEST_P(EveryScreen, LetsTheKeyboardReachEveryControl)
{
    for (const TPackageEntry &entry : packageEntries())
        lookAtEntry(entry, [&entry](QWidget &window) {
            EXPECT_EQ(controlsOutOfReach(window), QStringList()) << qPrintable(entry.name);
        });
}

TEST_P(EveryScreen, GivesNoAcceleratorTwice)
{
    for (const TPackageEntry &entry : packageEntries())
        lookAtEntry(entry, [&entry](QWidget &window) {
            EXPECT_EQ(repeatedAccelerators(window), QStringList()) << qPrintable(entry.name);
        });
}

TEST_P(EveryScreen, HasStatementsThatTheEngineTakes)
{
    for (const TPackageEntry &entry : packageEntries())
        lookAtEntry(entry, [&entry](QWidget &window) {
            for (const TQuery *query : window.findChildren<TQuery *>())
                EXPECT_NO_THROW(query->Database()->prepare(query->SQL())) << qPrintable(entry.name);
        });
}

TEST_P(EveryScreen, SaysWhatItIsInItsTitleAndMenu)
{
    for (const TPackageEntry &entry : packageEntries()) {
        EXPECT_FALSE(entry.caption.isEmpty()) << qPrintable(entry.name);
        EXPECT_FALSE(entry.menu.isEmpty()) << qPrintable(entry.name);
        lookAtEntry(entry, [&entry](QWidget &window) {
            EXPECT_FALSE(window.windowTitle().isEmpty()) << qPrintable(entry.name);
        });
    }
}
