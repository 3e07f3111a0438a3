// What every screen, dialog and editor of the package owes, shown for each of them: a new one is tested by
// being registered.

#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"
#include "tests/src/frame/every_entry.h"
#include "tests/src/walk.h"
#include "tests/src/written_rows.h"
#include "tests/support/message_box.h"

#include <QDialog>
#include <QScreen>

#include <map>

namespace {

// What was wrong in the windows of an entry, each with its window's title.
struct TFaults {
    QStringList nameless, unreachable, repeated, refused, unworded, otherwiseLong, untitled, beyondAnEdge;
};

QStringList inWindow(const QWidget &window, const QStringList &faults)
{
    QStringList named;
    for (const QString &fault : faults)
        named << window.windowTitle() + ": " + fault;
    return named;
}

class EveryEntry : public OnEveryEntry {
protected:
    // Looks at every window of the entry; there must be one, or questions that stand for it.
    void visit(const std::function<void(QWidget &)> &look = [](QWidget &) {})
    {
        const TVisit met = visitEntry(entry(), look);
        EXPECT_GT(met.windows + (entry().writes ? met.boxes.size() : 0), 0);
    }
    // The entry is walked through once for all that is asked of it.
    const TFaults &faults()
    {
        static std::map<TEntryOnEngine, TFaults> walked;
        const auto known = walked.find(GetParam());
        if (known != walked.end())
            return known->second;
        TFaults &found = walked[GetParam()];
        visit([&found](QWidget &window) {
            found.nameless += inWindow(window, controlsWithoutName(window));
            found.unreachable += inWindow(window, controlsOutOfReach(window));
            found.repeated += inWindow(window, repeatedAccelerators(window));
            found.refused += inWindow(window, statementsRefused(window) + writesRefused(window));
            // A document that stands alone here has the main window around it elsewhere.
            if (qobject_cast<QDialog *>(&window) &&
                !window.screen()->availableGeometry().contains(window.geometry()))
                found.beyondAnEdge << window.windowTitle();
            found.unworded += inWindow(window, statementsUnworded(window));
            found.otherwiseLong += inWindow(window, editsOfAnotherLength(window));
            if (window.windowTitle().isEmpty())
                found.untitled << window.metaObject()->className();
        });
        return found;
    }
};
ON_EVERY_ENTRY(EveryEntry);

} // namespace

TEST(Registry, NamesScreensDialogsFunctionsAndEditors)
{
    using Kind = TPackageEntry::Kind;
    for (const Kind kind : {Kind::ListScreen, Kind::Dialog, Kind::Function, Kind::Editor})
        EXPECT_TRUE(std::ranges::count(packageEntries(), kind, &TPackageEntry::kind) > 0) << int(kind);
}

TEST_P(EveryEntry, OpensAndLeavesTheBooksAlone)
{
    visit();
    EXPECT_EQ(books().fingerprints(), TDemoCopy::unchanged(engine()));
    if (HasFailure())
        TDemoCopy::renewShared(engine());
}

TEST_P(EveryEntry, NamesEveryControlForThoseWhoCannotSeeIt)
{
    EXPECT_EQ(faults().nameless, QStringList());
}

TEST_P(EveryEntry, LetsTheKeyboardReachEveryControl)
{
    EXPECT_EQ(faults().unreachable, QStringList());
}

TEST_P(EveryEntry, GivesNoAcceleratorTwice)
{
    EXPECT_EQ(faults().repeated, QStringList());
}

TEST_P(EveryEntry, StandsOnASmallScreenWhole)
{
    EXPECT_EQ(faults().beyondAnEdge, QStringList());
}

TEST_P(EveryEntry, HasStatementsThatTheEngineTakes)
{
    EXPECT_EQ(faults().refused, QStringList());
}

TEST_P(EveryEntry, RunsTheStatementsThatTheCorpusWords)
{
    EXPECT_EQ(faults().unworded, QStringList());
}

TEST_P(EveryEntry, TakesTheLongestTextByAPasteAndNoLetterMore)
{
    EXPECT_EQ(faults().otherwiseLong, QStringList());
}

TEST_P(EveryEntry, SaysWhatItIsInItsTitleAndMenu)
{
    const bool inNoMenu = entry().kind == TPackageEntry::Kind::Editor;
    EXPECT_EQ(entry().caption.isEmpty(), inNoMenu);
    EXPECT_EQ(entry().menu.isEmpty(), inNoMenu);
    EXPECT_EQ(faults().untitled, QStringList());
}

// That the others look at what New and Edit open, too.
class WalkOverAList : public OnEveryEntry {};
INSTANTIATE_TEST_SUITE_P(, WalkOverAList, testing::Values(TEntryOnEngine(Engine::Sqlite, "TImokosFrm")));

TEST_P(WalkOverAList, MeetsItsDialogs)
{
    QStringList titles;
    visitEntry(entry(), [&titles](QWidget &window) { titles << window.windowTitle(); });
    EXPECT_EQ(titles, QStringList({"Mokesčių, rinkliavų ir kitų įmokų kodų sąrašas", "Įmokos kodas",
                                   "Įmokos kodas"}));
}

#ifndef QT_NO_DEBUG

// A misspelt column is asserted when the screen is built: opening every entry shows that all are there.
class MisspeltColumn : public OnEveryEntry {
protected:
    static void openList(const QString &column)
    {
        const TBrowseDescription described{.name = "TBandFrm",
                                           .keyColumn = "imo_kod",
                                           .table = "pp_imok",
                                           .sql = "select * from pp_imok",
                                           .columns = {{column, "Pavadinimas"}}};
        delete createForm<TBrowseFrm>(described, nullptr);
    }
    static void openDialog(const QString &column)
    {
        OnNextDialog<TRecordDialog> leaves([](TRecordDialog &dialog) { dialog.reject(); });
        TRecordDialog({.name = "TBandDlg",
                       .table = "pp_imok",
                       .keyColumn = "imo_kod",
                       .sql = "select * from pp_imok where imo_kod = :kodas",
                       .rows = {TFieldRow::edit("Pavadinimas", column)}},
                      TRecordStart::newRow(), nullptr)
            .run();
    }
};
INSTANTIATE_TEST_SUITE_P(, MisspeltColumn, testing::Values(TEntryOnEngine(Engine::Sqlite, "TImokosFrm")));

TEST_P(MisspeltColumn, OfAListIsAsserted)
{
    openList("IMO_PAVAD");
    EXPECT_DEATH(openList("IMO_PAVADINIMAS"), "IMO_PAVADINIMAS");
}

TEST_P(MisspeltColumn, OfADialogIsAsserted)
{
    openDialog("IMO_PAVAD");
    EXPECT_DEATH(openDialog("IMO_PAVADINIMAS"), "IMO_PAVADINIMAS");
}

#endif
