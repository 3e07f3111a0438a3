#include "host/classifier/book_frm.h"

#include "host/classifier/book_tree.h"
#include "host/controls/browse_frm.h"
#include "tests/host/classifier/book.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/dialog.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// An editor in which nothing but the way it is left matters.
struct TLeftDlg : TDialog {
    TLeftDlg() { describe(u"Eilutė"_s, {}, nullptr); }
};

// A screen as the system's own are: content, a further panel and action, a narrower rule.
class TTestFrm;
TTestFrm *TestFrm = nullptr;

class TTestFrm : public TBookFrm {
public:
    explicit TTestFrm(QWidget *owner = nullptr)
        : TBookFrm({.name = u"TTestFrm"_s, .caption = u"Išlaidų likučiai"_s, .help = 22}, owner),
          grid(new QTableWidget(3, 2))
    {
        keepIn(TestFrm);
        grid->setAccessibleName(u"Likučiai"_s);
        setContent(grid);
        addPanel();
        auto *periods = new QComboBox;
        periods->addItem(u"2005 m. sausis"_s);
        addToToolBar(u"&Periodas"_s, periods);
        onNodeChange([this] { told << JungId(); });
    }

    void CheckActions() override
    {
        TBookFrm::CheckActions();
        acDelete->setEnabled(acDelete->isEnabled() && hasRow);
    }

    QTableWidget *grid;
    QList<double> told;
    QStringList done;
    bool hasRow = true;
    int key = 1;
    int nextWanted = 0; // so many times the editor is left for the next new row
    std::function<void()> duringStep = [] {};
    int periodsRead = 0;

protected:
    void NewRecord() override { edited(u"new"_s); }
    void EditRecord() override { edited(u"edit"_s); }
    void DeleteRecord() override { edited(u"delete"_s); }
    Variant currentKey() const override { return key; }
    void ReadPeriods() override { ++periodsRead; }

private:
    void edited(const QString &step)
    {
        done << step;
        duringStep();
        if (nextWanted-- <= 0)
            return;
        const OnNextDialog<TLeftDlg> left(
            [](TLeftDlg &editor) { QTest::keyClick(&editor, Qt::Key_Return, Qt::ControlModifier); });
        TLeftDlg().run();
    }
};

} // namespace

class BookFrm : public WithClassification {
protected:
    void SetUp() override
    {
        WithClassification::SetUp();
        open();
    }
    void TearDown() override
    {
        delete frm;
        EXPECT_EQ(TestFrm, nullptr);
        WithClassification::TearDown();
    }
    void open()
    {
        frm = createForm<TTestFrm>();
        frm->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm));
    }

    TBookTree *tree() const { return frm->findChild<TBookTree *>(); }
    QComboBox *box(const char *name) const { return frm->findChild<QComboBox *>(QString::fromLatin1(name)); }
    QStringList listed() const
    {
        QStringList texts;
        for (int i = 0; i < frm->list()->topLevelItemCount(); ++i)
            texts << frm->list()->topLevelItem(i)->text(0);
        return texts;
    }

    QPointer<TTestFrm> frm;
};
ON_BOTH_ENGINES(BookFrm);

TEST_P(BookFrm, OpensAboveTheFirstLevelOfTheUsersBook)
{
    EXPECT_EQ(frm->bookId(), 1);
    EXPECT_EQ(frm->JungId(), 0);
    EXPECT_EQ(frm->level(), 0);
    EXPECT_EQ(frm->nodeName(), "");
    EXPECT_EQ(listed(), QStringList({u"01  Bendrosios paslaugos"_s, u"09  Švietimas"_s}));
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: 2");
    EXPECT_EQ(box("PathBox")->currentText(), u"Biudžetas");
    EXPECT_EQ(frm->told, QList<double>({0}));
}

TEST_P(BookFrm, ReadsOnlyTheLevelsThatAreOpened)
{
    QTreeWidgetItem *paslaugos = tree()->topLevelItem(0);
    EXPECT_EQ(paslaugos->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);
    EXPECT_EQ(paslaugos->childCount(), 0);
    EXPECT_EQ(tree()->topLevelItem(1)->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicator);
    tree()->expandItem(paslaugos);
    ASSERT_EQ(paslaugos->childCount(), 2);
    EXPECT_EQ(paslaugos->child(1)->childCount(), 0);
}

TEST_P(BookFrm, GoesToANodeAndTellsOfIt)
{
    frm->SetJungId(13);
    EXPECT_EQ(frm->JungId(), 13);
    EXPECT_EQ(frm->level(), 3);
    EXPECT_EQ(frm->nodeName(), "2.2.1  Mityba");
    EXPECT_EQ(frm->nodeNameOf(14), u"09  Švietimas");
    EXPECT_EQ(tree()->currentNode(), 13);
    EXPECT_EQ(box("PathBox")->count(), 4);
    EXPECT_EQ(box("PathBox")->currentText().trimmed(), "2.2.1  Mityba");
    EXPECT_EQ(frm->told, QList<double>({0, 13}));
    frm->SetJungId(13);
    EXPECT_EQ(frm->told.size(), 2) << "staying is no change";
}

TEST_P(BookFrm, ANodeThatIsGoneLeavesEverythingAsItWas)
{
    frm->SetJungId(12);
    EXPECT_THROW(frm->SetJungId(99), EDatabaseError);
    EXPECT_EQ(frm->JungId(), 12);
    EXPECT_EQ(tree()->currentNode(), 12);
    EXPECT_EQ(listed(), QStringList({"2.2.1  Mityba"}));
    EXPECT_EQ(frm->told, QList<double>({0, 12}));
}

TEST_P(BookFrm, SelectingInTheTreeGoesThere)
{
    tree()->expandItem(tree()->topLevelItem(0));
    tree()->setCurrentItem(tree()->topLevelItem(0)->child(1));
    EXPECT_EQ(frm->JungId(), 12);
    EXPECT_EQ(frm->told, QList<double>({0, 12}));
}

TEST_P(BookFrm, SelectingADeletedNodeShowsTheErrorAndComesBack)
{
    frm->SetJungId(10);
    secondFin()->ExecSQL(u"delete from bd_jve where jve_id = 14"_s);
    NextBoxes boxes{QMessageBox::Ok};
    tree()->setCurrentItem(tree()->topLevelItem(1));
    EXPECT_EQ(boxes.count(), 1);
    EXPECT_EQ(frm->JungId(), 10);
    EXPECT_EQ(tree()->currentNode(), 10);
}

TEST_P(BookFrm, TheListLeadsDownAndUpLeadsBack)
{
    frm->list()->setCurrentItem(frm->list()->topLevelItem(0));
    frm->list()->setFocus();
    QTest::keyClick(frm->list(), Qt::Key_Return);
    EXPECT_EQ(frm->JungId(), 10);
    QTest::keyClick(frm->list(), Qt::Key_Backspace);
    EXPECT_EQ(frm->JungId(), 0);
    EXPECT_FALSE(frm->acUp->isEnabled());
}

TEST_P(BookFrm, BackAndForwardFollowTheWayTaken)
{
    EXPECT_FALSE(frm->acBack->isEnabled());
    frm->SetJungId(10);
    frm->SetJungId(13);
    frm->acBack->trigger();
    EXPECT_EQ(frm->JungId(), 10);
    frm->acBack->trigger();
    EXPECT_EQ(frm->JungId(), 0);
    EXPECT_FALSE(frm->acBack->isEnabled());
    frm->acForward->trigger();
    frm->acForward->trigger();
    EXPECT_EQ(frm->JungId(), 13);
    EXPECT_FALSE(frm->acForward->isEnabled());
    frm->acFirst->trigger();
    EXPECT_EQ(frm->JungId(), 0);
    frm->acBack->trigger();
    EXPECT_EQ(frm->JungId(), 13);
    frm->SetJungId(14);
    EXPECT_FALSE(frm->acForward->isEnabled()) << "a new way ends the old one";
}

TEST_P(BookFrm, BackPassesOverDeletedNodes)
{
    frm->SetJungId(14);
    frm->SetJungId(10);
    secondFin()->ExecSQL(u"delete from bd_jve where jve_id = 14"_s);
    frm->acBack->trigger();
    EXPECT_EQ(frm->JungId(), 0);
}

TEST_P(BookFrm, ThePathBoxLeadsToTheLevelsAbove)
{
    frm->SetJungId(13);
    QComboBox *path = box("PathBox");
    path->setCurrentIndex(1);
    emit path->activated(1);
    EXPECT_EQ(frm->JungId(), 10);
}

TEST_P(BookFrm, AnotherBookIsShownAndKept)
{
    frm->SetJungId(10);
    QComboBox *books = box("BookBox");
    books->setCurrentIndex(1);
    emit books->activated(1);
    EXPECT_EQ(frm->bookId(), 2);
    EXPECT_EQ(frm->JungId(), 0);
    EXPECT_EQ(listed(), QStringList({"10  Fondas"}));
    EXPECT_FALSE(frm->acBack->isEnabled());
    EXPECT_EQ(userKnyga(), 2);
}

TEST_P(BookFrm, ANodeOfAnotherBookBringsItsBook)
{
    frm->SetJungId(20);
    EXPECT_EQ(frm->bookId(), 2);
    EXPECT_EQ(box("BookBox")->currentText(), "Fondai");
    EXPECT_EQ(tree()->currentNode(), 20);
}

TEST_P(BookFrm, ContentIsSeenOnlyForNodesThatCarryData)
{
    EXPECT_FALSE(frm->grid->isVisible());
    frm->SetJungId(10);
    EXPECT_FALSE(frm->carriesData());
    EXPECT_FALSE(frm->grid->isVisible());
    EXPECT_TRUE(frm->list()->isVisible());
    frm->SetJungId(12);
    EXPECT_TRUE(frm->carriesData());
    EXPECT_TRUE(frm->grid->isVisible());
    EXPECT_TRUE(frm->list()->isVisible());
    frm->SetJungId(13);
    EXPECT_TRUE(frm->grid->isVisible());
    EXPECT_FALSE(frm->list()->isVisible());
}

TEST_P(BookFrm, TheBookAllowsChangesWhereDataCanBe)
{
    frm->SetJungId(10);
    for (const QAction *action : {frm->acNew, frm->acEdit, frm->acDelete})
        EXPECT_FALSE(action->isEnabled());
    frm->SetJungId(11);
    for (const QAction *action : {frm->acNew, frm->acEdit, frm->acDelete})
        EXPECT_TRUE(action->isEnabled());
    frm->hasRow = false;
    frm->CheckActions();
    EXPECT_FALSE(frm->acDelete->isEnabled()) << "a screen narrows";
}

TEST_P(BookFrm, AViewOnlyUserMayOnlyOpen)
{
    CurrentUser().viewOnly = true;
    frm->SetJungId(11);
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    EXPECT_TRUE(frm->acEdit->isEnabled());
}

TEST_P(BookFrm, KeysAndDoubleClickRunTheScreensSteps)
{
    frm->SetJungId(11);
    frm->grid->setFocus();
    QTest::keyClick(frm->grid, Qt::Key_Insert);
    QTest::keyClick(frm->grid, Qt::Key_Return);
    QTest::keyClick(frm->grid, Qt::Key_Delete);
    EXPECT_EQ(frm->done, QStringList({"new", "edit", "delete"}));
    emit frm->grid->doubleClicked({});
    EXPECT_EQ(frm->done.last(), "edit");
    EXPECT_EQ(frm->done.size(), 4);
}

TEST_P(BookFrm, TheSubscribersReadBeforeAndAfterEveryStep)
{
    frm->SetJungId(11);
    for (QAction *action : {frm->acNew, frm->acEdit, frm->acDelete}) {
        frm->told.clear();
        action->trigger();
        EXPECT_EQ(frm->told, QList<double>({11, 11})) << qPrintable(action->text());
    }
}

TEST_P(BookFrm, ARowThatIsGoneByThenIsToldInsteadOfTheStep)
{
    frm->SetJungId(11);
    frm->onNodeChange([this] { ++frm->key; });
    NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
    frm->acEdit->trigger();
    frm->acDelete->trigger();
    EXPECT_EQ(told.texts().last(), u"Įrašas jau ištrintas kitoje darbo vietoje");
    EXPECT_EQ(frm->done, QStringList());
}

TEST_P(BookFrm, AnEditorLeftForTheNextNewRowIsFollowedByIt)
{
    frm->SetJungId(11);
    frm->nextWanted = 2;
    frm->acEdit->trigger();
    EXPECT_EQ(frm->done, QStringList({"edit", "new", "new"}));
}

TEST_P(BookFrm, AllSubscribersAreToldEvenWhenOneFails)
{
    frm->onNodeChange([] { throw EDatabaseError(u"Nepavyko"_s); });
    int last = 0;
    frm->onNodeChange([&last] { ++last; });
    EXPECT_THROW(frm->SetJungId(11), EDatabaseError);
    EXPECT_EQ(last, 1);
    EXPECT_EQ(frm->JungId(), 11);
    EXPECT_TRUE(frm->acNew->isEnabled());
}

TEST_P(BookFrm, AScreenMakesTheListAReport)
{
    frm->onNodeChange([this] {
        if (frm->level() != 1)
            return;
        frm->showReport({u"Ekonominė kl."_s, u"Metinė"_s});
        frm->list()->topLevelItem(0)->setText(1, u"10.00"_s);
    });
    frm->SetJungId(10);
    EXPECT_FALSE(frm->list()->isHeaderHidden());
    EXPECT_EQ(frm->list()->headerItem()->text(1), u"Metinė");
    EXPECT_EQ(TBookFrm::nodeOf(frm->list()->topLevelItem(0)), 11);
    frm->SetJungId(0);
    EXPECT_TRUE(frm->list()->isHeaderHidden());
    EXPECT_EQ(frm->list()->columnCount(), 1);
}

TEST_P(BookFrm, RefreshShowsChangesAndStays)
{
    frm->SetJungId(12);
    addNode(15, 1, 12, u"2.2.2"_s, u"Vaistai"_s, 1);
    frm->acRefresh->trigger();
    EXPECT_EQ(frm->JungId(), 12);
    EXPECT_EQ(listed(), QStringList({"2.2.1  Mityba", "2.2.2  Vaistai"}));
    EXPECT_EQ(tree()->currentItem()->childCount(), 0) << "read when it is opened";
}

TEST_P(BookFrm, RefreshGoesToTheNearestNodeThatIsStillThere)
{
    frm->SetJungId(13);
    fin->ExecSQL(u"delete from bd_jve where jve_id = 13"_s);
    fin->ExecSQL(u"delete from bd_jve where jve_id = 12"_s);
    frm->RefreshBook();
    EXPECT_EQ(frm->JungId(), 10);
    EXPECT_EQ(frm->told.last(), 10);
}

TEST_P(BookFrm, AChangedPeriodReachesTheScreenAndDisturbsNoStep)
{
    EXPECT_EQ(frm->periodsRead, 1);
    emit periodNotifier().periodChanged();
    EXPECT_EQ(frm->periodsRead, 2);
    frm->SetJungId(11);
    frm->duringStep = [this] {
        emit periodNotifier().periodChanged();
        EXPECT_EQ(frm->periodsRead, 2);
    };
    frm->acDelete->trigger();
    EXPECT_EQ(frm->periodsRead, 3);
}

TEST_P(BookFrm, TheGlobalNamesTheOpenScreen)
{
    EXPECT_EQ(TestFrm, frm);
    frm->acClose->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(frm, nullptr);
    EXPECT_EQ(TestFrm, nullptr);
}

TEST_P(BookFrm, RemembersItsPlaceAndCaptions)
{
    frm->acCaptions->trigger();
    frm->resize(800, 450);
    frm->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    EXPECT_EQ(frm->size(), QSize(800, 450));
    EXPECT_EQ(frm->findChild<QToolBar *>()->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

TEST_P(BookFrm, WithoutBooksItIsEmptyAndHarmless)
{
    delete frm;
    fin->ExecSQL(u"delete from bd_jve where jve_tevid = 12"_s);
    fin->ExecSQL(u"delete from bd_jve where jve_tevid = 10"_s);
    fin->ExecSQL(u"delete from bd_jve"_s);
    fin->ExecSQL(u"delete from bd_asgisl"_s);
    open();
    EXPECT_EQ(frm->bookId(), 0);
    EXPECT_EQ(listed(), QStringList());
    frm->RefreshBook();
    EXPECT_FALSE(frm->acNew->isEnabled());
}

TEST_P(BookFrm, EveryControlHasANameAndEveryButtonAHint)
{
    for (QComboBox *each : frm->findChildren<QComboBox *>())
        EXPECT_FALSE(each->accessibleName().isEmpty());
    for (QToolButton *each : frm->findChild<QToolBar *>()->findChildren<QToolButton *>()) {
        if (!each->defaultAction())
            continue;
        EXPECT_FALSE(each->accessibleName().isEmpty());
        EXPECT_FALSE(each->toolTip().isEmpty());
        EXPECT_FALSE(each->icon().isNull()) << qPrintable(each->text());
    }
    EXPECT_FALSE(tree()->accessibleName().isEmpty());
    EXPECT_FALSE(frm->list()->accessibleName().isEmpty());
}

TEST_P(BookFrm, ABookOfThousandsOfNodesReadsOneLevel)
{
    {
        TTransaction tran(fin);
        for (int i = 0; i < 3000; ++i)
            addNode(1000 + i, 2, i < 50 ? 0 : 1000 + i % 50, QString::number(10000 + i), u"Kodas"_s, 1);
        tran.commit();
    }
    frm->setBook(2);
    EXPECT_EQ(tree()->topLevelItemCount(), 51);
    int items = 0;
    for (QTreeWidgetItemIterator it(tree()); *it; ++it)
        ++items;
    EXPECT_EQ(items, 51);
    frm->SetJungId(1050);
    EXPECT_EQ(frm->level(), 2);
}
