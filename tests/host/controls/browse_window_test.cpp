#include "host/common/help.h"
#include "host/common/settings_store.h"
#include "host/controls/images.h"
#include "tests/host/controls/bankai_fixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>

namespace {
class BrowseWindow : public Bankai {
protected:
    QToolBar *bar() const { return frm->findChild<QToolBar *>(u"ToolBar"_s); }
};
ON_BOTH_ENGINES(BrowseWindow);

// A list with an action of its own behind a separator, which comes and goes.
class TSeparatedFrm : public TBankaiFrm {
public:
    explicit TSeparatedFrm(QWidget *owner) : TBankaiFrm(owner)
    {
        acOwn = addListAction({.name = u"acOwn"_s,
                               .text = u"Savas"_s,
                               .handler = [] {},
                               .enabled = [this] { return !currentKey().isNull(); },
                               .visible = [this] { return isWanted; },
                               .separated = true});
    }
    void want(bool on)
    {
        isWanted = on;
        judgeActions();
    }
    QAction *acOwn = nullptr;

private:
    bool isWanted = true;
};
} // namespace

TEST_P(BrowseWindow, ASeparatorComesAndGoesWithItsAction)
{
    auto *list = createForm<TSeparatedFrm>(nullptr);
    frm = list;
    list->show();
    const QList<QAction *> tools = bar()->actions();
    const qsizetype at = tools.indexOf(list->acOwn);
    ASSERT_GT(at, 0);
    const QAction *separator = tools[at - 1];
    ASSERT_TRUE(separator->isSeparator());
    for (const bool wanted : {true, false, true}) {
        list->want(wanted);
        EXPECT_EQ(list->acOwn->isVisible(), wanted);
        EXPECT_EQ(separator->isVisible(), wanted);
    }
}

TEST_P(BrowseWindow, AnActionOfARowIsShutWhenTheListBecomesEmpty)
{
    auto *list = createForm<TSeparatedFrm>(nullptr);
    frm = list;
    list->show();
    EXPECT_TRUE(list->acOwn->isEnabled());
    fin->ExecSQL(u"delete from bd_bankai"_s);
    list->RefreshBtnClick();
    EXPECT_FALSE(list->acOwn->isEnabled());
    addBank(50, u"Naujas bankas"_s, 0);
    list->RefreshBtnClick();
    EXPECT_TRUE(list->acOwn->isEnabled());
}

TEST_P(BrowseWindow, ItsButtonsHaveThePicturesOfTheSharedList)
{
    open();
    const auto inked = [](const QIcon &picture) { return picture.pixmap(Images().size()).toImage(); };
    EXPECT_EQ(inked(frm->acNew->icon()), inked(Images()[TIcon::New]));
    EXPECT_NE(inked(frm->acNew->icon()), inked(Images()[TIcon::Delete]));
    EXPECT_EQ(bar()->iconSize(), Images().size());
    for (int place = 0; place < Images().Count(); ++place)
        EXPECT_FALSE(Images()[TIcon(place)].isNull()) << place;
}

TEST_P(BrowseWindow, MovingByButtonsAndKeys)
{
    open();
    frm->LastBtnClick();
    EXPECT_EQ(key(), 10);
    frm->PrevBtnClick();
    EXPECT_EQ(key(), 30);
    frm->FirstBtnClick();
    EXPECT_EQ(key(), 20);
    frm->NextBtnClick();
    EXPECT_EQ(key(), 30);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(key(), 10);
    frm->NextBtnClick();
    EXPECT_EQ(key(), 10);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(key(), 20);
    press(Qt::Key_Down);
    EXPECT_EQ(key(), 30);
}

TEST_P(BrowseWindow, TheRowsTakeTheRoomBetweenToolBarAndStatusBar)
{
    open();
    frm->resize(700, 500);
    QCoreApplication::processEvents();
    const QRect rows(frm->grid()->mapTo(frm.data(), QPoint()), frm->grid()->size());
    EXPECT_GE(rows.top(), bar()->geometry().bottom());
    EXPECT_EQ(rows.width(), 700);
    EXPECT_GT(rows.height(), 250);
    EXPECT_LT(rows.bottom(), 500);
}

TEST_P(BrowseWindow, CopyGivesTheSelectedRowsWithTitles)
{
    open();
    load();
    QCoreApplication::processEvents();
    frm->grid()->selectAll();
    press(Qt::Key_C, Qt::ControlModifier);
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    const QStringList lines = copied->text().split(u'\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[0], u"Kodas\tCentrinio banko kodas\tPavadinimas\tRinkliava"_s);
    EXPECT_TRUE(lines[1].startsWith(u"20\t\tĄžuolo kreditas\t1"_s));
    EXPECT_TRUE(lines[3].startsWith(u"10\t\tŠiaulių bankas\t0"_s));
    EXPECT_TRUE(copied->html().contains(u">Kodas</th>"_s));
    EXPECT_TRUE(copied->html().contains(u">Ąžuolo kreditas</td>"_s));
}

TEST_P(BrowseWindow, CopyWithoutASelectionGivesTheCurrentRow)
{
    addBank(5, u"A\tB\nC <b>"_s, 0);
    open();
    frm->RefreshData(5);
    frm->grid()->clearSelection();
    frm->CopyBtnClick();
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text().count(u'\n'), 2);
    EXPECT_TRUE(copied->text().contains(u"A B C <b>"_s));
    EXPECT_TRUE(copied->html().contains(u"&lt;b&gt;"_s));
}

TEST_P(BrowseWindow, PlacementWidthsToolBarAndCaptionsAreRemembered)
{
    open();
    frm->setGeometry(30, 40, 640, 400);
    frm->grid()->setColumnWidth(2, 217);
    EXPECT_EQ(bar()->toolButtonStyle(), Qt::ToolButtonTextUnderIcon) << "at first";
    frm->ButtonsCaptionClick();
    EXPECT_EQ(bar()->toolButtonStyle(), Qt::ToolButtonIconOnly);
    frm->mnToolsClick();
    EXPECT_TRUE(bar()->isHidden());
    EXPECT_TRUE(frm->acToolBar->isCheckable());
    EXPECT_FALSE(frm->acToolBar->isChecked());
    close();
    open();
    EXPECT_EQ(frm->geometry(), QRect(30, 40, 640, 400));
    EXPECT_EQ(frm->grid()->columnWidth(2), 217);
    EXPECT_EQ(bar()->toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_TRUE(bar()->isHidden());
    frm->RefreshBtnClick();
    EXPECT_EQ(frm->grid()->columnWidth(2), 217);
}

TEST_P(BrowseWindow, AReopenedListGivesItsColumnsTheWidthThatIsThere)
{
    const auto fills = [this] {
        return frm->grid()->horizontalHeader()->length() == frm->grid()->viewport()->width();
    };
    const auto openWide = [this](int width) {
        open();
        frm->resize(width, 400);
        QCoreApplication::processEvents();
    };
    openWide(900);
    EXPECT_TRUE(fills());
    frm->grid()->setColumnWidth(0, 61);
    close();
    openWide(1200);
    EXPECT_TRUE(fills()) << frm->grid()->horizontalHeader()->length();
    EXPECT_EQ(frm->grid()->columnWidth(0), 61) << "the user's own width stays";
    close();
    openWide(800);
    EXPECT_TRUE(fills()) << frm->grid()->horizontalHeader()->length();
}

TEST_P(BrowseWindow, DamagedSettingsOpenTheListAsUsual)
{
    open();
    close();
    const QStringList kept = settingsStore().allKeys();
    ASSERT_FALSE(kept.isEmpty());
    for (const QString &name : kept)
        settingsStore().setValue(name, u"@Rect(x"_s);
    open();
    EXPECT_EQ(names().size(), 3);
    EXPECT_GT(frm->width(), 200);
    EXPECT_GT(frm->grid()->columnWidth(2), 20);
}

TEST_P(BrowseWindow, AsADocumentWindowItIsPlacedAndClosedWithItsFrame)
{
    QMdiArea area;
    area.resize(900, 700);
    area.show();
    const auto openIn = [&] {
        frm = createForm<TBankaiFrm>(&area);
        QMdiSubWindow *window = area.addSubWindow(frm);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
        QCoreApplication::processEvents();
        return window;
    };
    QMdiSubWindow *window = openIn();
    EXPECT_EQ(BankaiFrm, frm);
    window->setGeometry(60, 70, 500, 300);
    frm->CloseBtnClick();
    EXPECT_EQ(BankaiFrm, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(area.subWindowList().isEmpty());
    EXPECT_TRUE(frm.isNull());
    window = openIn();
    EXPECT_EQ(window->geometry(), QRect(60, 70, 500, 300));
    window->close();
    EXPECT_EQ(BankaiFrm, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_P(BrowseWindow, HelpShowsItsTopic)
{
    int topic = 0;
    setHelpViewer([&](int number) { topic = number; });
    open();
    press(Qt::Key_F1);
    setHelpViewer({});
    EXPECT_EQ(topic, 31);
}

TEST_P(BrowseWindow, EveryButtonHasAnAccessibleNameAndEveryActionAHint)
{
    open();
    const auto buttons = bar()->findChildren<QToolButton *>();
    for (const QToolButton *button : buttons)
        EXPECT_TRUE(!button->accessibleName().isEmpty() || !button->defaultAction());
    EXPECT_EQ(frm->grid()->accessibleName(), u"Bankai"_s);
    for (const QAction *action :
         {frm->acNew, frm->acEdit, frm->acDelete, frm->acRefresh, frm->acFind, frm->acPrint})
        EXPECT_FALSE(action->shortcuts().isEmpty()) << action->objectName().toStdString();
}

TEST_P(BrowseWindow, AScreensOwnActionPanelPickerAndDeleteMenu)
{
    struct Own : TBankaiFrm {
        explicit Own(QWidget *owner) : TBankaiFrm(owner)
        {
            addPanel();
            addToToolBar(u"&Periodas"_s, &picker);
            own = addListAction({.text = u"&Skaičiuoti"_s,
                                 .keys = {Qt::CTRL | Qt::Key_K},
                                 .handler = [this] { ++runs; },
                                 .enabled = [this] { return !dataSet()->IsEmpty(); },
                                 .place = TActionPlace::DeleteMenu});
            setPanel(1, u"Suma: 5"_s);
        }
        QLineEdit picker;
        QAction *own;
        int runs = 0;
    };
    auto *screen = createForm<Own>(nullptr);
    frm = screen;
    frm->show();
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(screen->runs, 1);
    EXPECT_EQ(frm->panel(1), u"Suma: 5"_s);
    auto *deleteButton = qobject_cast<QToolButton *>(bar()->widgetForAction(frm->acDelete));
    ASSERT_NE(deleteButton->menu(), nullptr);
    EXPECT_EQ(deleteButton->menu()->defaultAction(), frm->acDelete);
    EXPECT_TRUE(screen->picker.isVisible());
}

TEST_P(BrowseWindow, TheFirstPickerStandsBesideTheSearchAndFurtherOnesBelow)
{
    struct WithPickers : TBankaiFrm {
        explicit WithPickers(QWidget *owner) : TBankaiFrm(owner)
        {
            addToToolBar(u"Kn&ygos:"_s, &books);
            addToToolBar(u"&Nuo:"_s, &from);
            addToToolBar(u"&Iki:"_s, &to);
        }
        QComboBox books, from, to;
    };
    auto *screen = createForm<WithPickers>(nullptr);
    frm = screen;
    frm->show();
    const auto heightOf = [](const QWidget &control) { return control.geometry().center().y(); };
    const auto *search = frm->findChild<QLineEdit *>(u"FindEdit"_s);
    EXPECT_NEAR(heightOf(screen->books), heightOf(*search), 2);
    EXPECT_GT(screen->from.y(), screen->books.geometry().bottom());
    EXPECT_EQ(heightOf(screen->to), heightOf(screen->from));
}

TEST_P(BrowseWindow, KeysOfTheRowsDoNothingInAPicker)
{
    struct WithPicker : TBankaiFrm {
        explicit WithPicker(QWidget *owner) : TBankaiFrm(owner) { addToToolBar(u"&Periodas"_s, &picker); }
        QComboBox picker;
    };
    auto *screen = createForm<WithPicker>(nullptr);
    frm = screen;
    frm->show();
    frm->RefreshData(30);
    activate();
    screen->picker.setFocus();
    for (const Qt::Key edge : {Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&screen->picker, edge, Qt::ControlModifier);
        EXPECT_EQ(key(), 30);
    }
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseWindow, AChangedPeriodIsReadAgain)
{
    open();
    addBank(15, u"AB Ūkio"_s, 0);
    emit periodNotifier().periodChanged();
    EXPECT_EQ(names().size(), 4);
}
