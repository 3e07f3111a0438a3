#include "host/controls/list_report.h"
#include "tests/host/controls/bankai_fixture.h"
#include "tests/support/clock.h"
#include "toolkit/report/dataset_rows.h"
#include "toolkit/report/preview.h"

#include <QHeaderView>
#include <QProgressDialog>

namespace {

QStringList textsOf(const TReportPage &page)
{
    QStringList texts;
    for (const TReportPrimitive &primitive : page)
        if (primitive.kind == TReportPrimitive::Kind::Text)
            texts << primitive.text;
    return texts;
}

const TTableHeading heading{u"Bankai"_s, u"Darželis"_s, QDate(2005, 3, 31)};

class BrowsePrint : public Bankai {
protected:
    // The pages of the printed list as texts.
    QList<QStringList> printed()
    {
        QList<QStringList> pages;
        OnNextDialog<TReportPreview> preview([&pages](TReportPreview &shown) {
            for (int page = 0; page < shown.layout().pageCount(); ++page)
                pages << textsOf(shown.layout().page(page));
            EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown.view()->hasFocus(); }));
            QTest::keyClick(shown.view(), Qt::Key_Escape);
        });
        press(Qt::Key_P, Qt::ControlModifier);
        return pages;
    }
};
ON_BOTH_ENGINES(BrowsePrint);

} // namespace

TEST_P(BrowsePrint, AnEmptyListIsRefused)
{
    fin->ExecSQL(u"delete from bd_bankai"_s);
    open();
    NextBoxes boxes{QMessageBox::Ok};
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(boxes.at(0).text, u"Nėra duomenu!"_s);
}

TEST_P(BrowsePrint, TheListIsPrintedAsItIsShown)
{
    ClockAt clock(QDate(2005, 3, 31));
    fin->ExecSQL(u"insert into bd_org (org_pavad) values ('Darželis „Žiogelis“')"_s);
    open();
    const QList<QStringList> pages = printed();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0], QStringList({u"Darželis „Žiogelis“"_s,
                                     u"2005.03.31"_s,
                                     u"Bankai"_s,
                                     u"Kodas"_s,
                                     u"Centrinio banko kodas"_s,
                                     u"Pavadinimas"_s,
                                     u"Rinkliava"_s,
                                     u"20"_s,
                                     QString(),
                                     u"Ąžuolo kreditas"_s,
                                     u"1.00"_s,
                                     u"30"_s,
                                     QString(),
                                     u"Citadelė"_s,
                                     u"0.00"_s,
                                     u"10"_s,
                                     QString(),
                                     u"Šiaulių bankas"_s,
                                     u"0.25"_s,
                                     u"1 puslapis iš 1"_s}));
}

TEST_P(BrowsePrint, ColumnsThatTheUserMovedOrHidAreMovedOrLeftOut)
{
    open();
    frm->grid()->horizontalHeader()->moveSection(2, 0);
    frm->grid()->setColumnHidden(1, true);
    const QList<QStringList> pages = printed();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].mid(3, 6), QStringList({u"Pavadinimas"_s, u"Kodas"_s, u"Rinkliava"_s,
                                               u"Ąžuolo kreditas"_s, u"20"_s, u"1.00"_s}));
}

TEST_P(BrowsePrint, TheCurrentRowStaysCurrent)
{
    open();
    frm->LastBtnClick();
    printed();
    EXPECT_EQ(key(), 10);
}

TEST_P(BrowsePrint, TenThousandRowsAreAllThereInOrder)
{
    addManyBanks(10'000);
    open();
    const QList<QStringList> pages = printed();
    EXPECT_GT(pages.size(), 100);
    int rows = 0;
    for (const QStringList &page : pages)
        for (const QString &text : page)
            rows += text.startsWith(u"Bankas "_s);
    EXPECT_EQ(rows, 10000);
    EXPECT_EQ(pages.last().last(), u"%1 puslapis iš %1"_s.arg(pages.size()));
}

TEST_P(BrowsePrint, EscapeStopsTheReadingOfALongListAndShowsNothing)
{
    addManyBanks(400'000);
    open();
    OnNextDialog<QProgressDialog> progress([](QProgressDialog &shown) {
        EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown.isActiveWindow(); }));
        QTest::keyClick(&shown, Qt::Key_Escape);
    });
    frm->acPrint->trigger();
    EXPECT_TRUE(progress.came());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_P(BrowsePrint, AListWhoseReadingWasStoppedIsNotPrintedInPart)
{
    addManyBanks(5000);
    open();
    frm->stopLoading();
    QCoreApplication::processEvents();
    NextBoxes boxes{QMessageBox::Ok};
    frm->acPrint->trigger();
    EXPECT_TRUE(boxes.at(0).text.startsWith(u"Perskaityta tik dalis sąrašo."_s));
}

TEST_P(BrowsePrint, AListThatIsNotPrintableHidesTheAction)
{
    open();
    frm->SetPrintable(false);
    EXPECT_FALSE(frm->acPrint->isVisible());
}

TEST_P(BrowsePrint, AListThatIsTooWideForASheetUprightLiesAcross)
{
    open();
    EXPECT_EQ(reportOfList(heading, *frm->grid(), *frm->dataSet()).page.orientation(), QPageLayout::Portrait);
    frm->grid()->setColumnWidth(2, 900);
    EXPECT_EQ(reportOfList(heading, *frm->grid(), *frm->dataSet()).page.orientation(),
              QPageLayout::Landscape);
}

TEST_P(BrowsePrint, ATextTooLongForItsColumnTakesMoreLines)
{
    for (const QString &name : {u"Ilgas pavadinimas, kuris netelpa, tikrai"_s, QString(40, u'W')}) {
        fin->ExecSQL(u"update bd_bankai set bnk_pavad = :p where bnk_kodas = 10"_s, {{u"p"_s, name}});
        open();
        load();
        frm->grid()->setColumnWidth(2, 120);
        TDataSetRows rows(frm->dataSet());
        const TReport report = reportOfList(heading, *frm->grid(), *frm->dataSet());
        QHash<QString, qreal> heights;
        for (const TReportPrimitive &primitive : TReportLayout(report, rows).page(0))
            heights[primitive.text] = primitive.rect.height();
        ASSERT_GT(heights.value(u"Citadelė"_s), 0);
        EXPECT_GT(heights.value(name), 1.5 * heights.value(u"Citadelė"_s)) << name.toStdString();
        close();
    }
}

TEST_P(BrowsePrint, AListThatGoesTakesItsPreviewWithIt)
{
    open();
    OnNextDialog<TReportPreview> preview([this](TReportPreview &) { delete frm; });
    frm->PrintBtnClick();
    EXPECT_EQ(frm, nullptr);
}

TEST_P(BrowsePrint, AClosedListHasNoRowsToPrint)
{
    open();
    load();
    TDataSetRows rows(frm->dataSet());
    EXPECT_EQ(rows.count(), 3);
    EXPECT_EQ(rows.value(0, u"BNK_PAVAD"_s).toString(), u"Ąžuolo kreditas"_s);
    EXPECT_FALSE(rows.value(0, u"NERA"_s).isValid());
    close();
    EXPECT_EQ(rows.count(), 0);
    EXPECT_FALSE(rows.value(0, u"BNK_PAVAD"_s).isValid());
}
